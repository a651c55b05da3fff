// Texts between UTF-8, in which everything here is kept, and UTF-16.
#pragma once

#include <string>
#include <string_view>

namespace formwizard::system {

// What is no character, such as half of a pair, becomes U+FFFD.
std::string Utf8(std::u16string_view text);
std::u16string Utf16(std::string_view utf8);

// Whether nothing has to be replaced.
bool IsWhole(std::u16string_view text);
bool IsUtf8(std::string_view text);
// The bytes before the first that would have to be.
std::string_view WholeStart(std::string_view utf8);

// The same for the wide characters of Windows, which are units of UTF-16.
#ifdef _WIN32
std::string Utf8(std::wstring_view text);
std::wstring Wide(std::string_view utf8);
bool IsWhole(std::wstring_view text);
#endif

}  // namespace formwizard::system
