// Texts between UTF-8 and what Windows calls take.
#pragma once

#include <string>
#include <string_view>

namespace formwizard::adapters::native {

std::wstring Utf16(std::string_view utf8);
std::string Utf8(std::wstring_view text);

// In the ANSI code page of this machine, in which the platform's "A" calls speak. They turn a character that it lacks
// into a similar one or a question mark.
std::string ToAnsi(std::string_view utf8);
std::string FromAnsi(std::string_view bytes);

}  // namespace formwizard::adapters::native
