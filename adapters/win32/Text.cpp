#include "adapters/win32/Text.h"

namespace formwizard::adapters::win32 {

std::wstring TextOf(HWND window) {
  std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
  text.resize(static_cast<std::size_t>(GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
  return text;
}

void SetText(HWND window, std::string_view text) {
  const std::wstring wide = Wide(text);
  if (TextOf(window) != wide) SetWindowTextW(window, wide.c_str());
}

}  // namespace formwizard::adapters::win32
