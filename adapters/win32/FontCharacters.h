// Which characters a font draws itself, and which come from another one or are not drawn at all.
#pragma once

#include <windows.h>

#include <bitset>
#include <span>
#include <string_view>

namespace formwizard::adapters::win32 {

// By code unit; half of a pair is never among them.
using Characters = std::bitset<0x10000>;

// By the ranges that a font names, if it names any, and by its glyphs for the code units from 0: a bitmap font answers
// with a placeholder of its own for a character that it lacks, and then the ranges alone tell. Control characters are
// not drawn, so no font lacks them.
Characters CharactersOf(std::span<const WCRANGE> ranges, std::span<const WORD> glyphs);

// As the system answers for the font that is selected.
Characters CharactersOf(HDC context);

bool HasAll(const Characters& characters, std::wstring_view text);

}  // namespace formwizard::adapters::win32
