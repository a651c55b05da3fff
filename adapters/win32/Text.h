// Texts between the core, which keeps UTF-8, and the system, which keeps UTF-16.
#pragma once

#include <windows.h>

#include <string>
#include <string_view>

namespace formwizard::adapters::win32 {

// Damaged characters become replacement characters.
std::wstring Wide(std::string_view text);
std::string Utf8(std::wstring_view text);

// The text of a window, and giving it another one, which does nothing when it has that text already.
std::wstring TextOf(HWND window);
void SetText(HWND window, std::string_view text);

}  // namespace formwizard::adapters::win32
