// The texts of windows.
#pragma once

#include "system/Text.h"

#include <windows.h>

#include <string>
#include <string_view>

namespace formwizard::adapters::win32 {

using system::Utf8;
using system::Wide;

// The text of a window, and giving it another one, which does nothing when it has that text already.
std::wstring TextOf(HWND window);
void SetText(HWND window, std::string_view text);

}  // namespace formwizard::adapters::win32
