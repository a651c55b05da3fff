#include "adapters/win32/FontCharacters.h"

#include <algorithm>
#include <cstddef>
#include <numeric>
#include <string>
#include <vector>

namespace formwizard::adapters::win32 {
namespace {

constexpr WORD MissingGlyph = 0xFFFF;
constexpr std::size_t FirstDrawn = 0x20;

}  // namespace

Characters CharactersOf(std::span<const WCRANGE> ranges, std::span<const WORD> glyphs) {
  Characters named;
  for (const WCRANGE& range : ranges) {
    for (std::size_t i = 0; i < range.cGlyphs; ++i) named.set((range.wcLow + i) % named.size());
  }
  Characters drawn;
  for (std::size_t i = 0; i < std::min(glyphs.size(), drawn.size()); ++i) {
    drawn[i] = i < FirstDrawn || (glyphs[i] != MissingGlyph && (ranges.empty() || named[i]));
  }
  return drawn;
}

Characters CharactersOf(HDC context) {
  std::wstring all(Characters().size(), L'\0');
  std::iota(all.begin(), all.end(), L'\0');
  std::vector<WORD> glyphs(all.size(), MissingGlyph);
  GetGlyphIndicesW(context, all.data(), static_cast<int>(all.size()), glyphs.data(), GGI_MARK_NONEXISTING_GLYPHS);
  // In whole structures, whose last member is the first of the ranges.
  std::vector<GLYPHSET> answer(GetFontUnicodeRanges(context, nullptr) / sizeof(GLYPHSET) + 1);
  if (GetFontUnicodeRanges(context, answer.data()) == 0) return CharactersOf({}, glyphs);
  return CharactersOf({answer.front().ranges, answer.front().cRanges}, glyphs);
}

bool HasAll(const Characters& characters, std::wstring_view text) {
  return std::ranges::all_of(text, [&](wchar_t character) { return characters[character]; });
}

}  // namespace formwizard::adapters::win32
