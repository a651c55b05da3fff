#include "adapters/win32/Text.h"

namespace formwizard::adapters::win32 {

std::wstring Wide(std::string_view text) {
  const int size = static_cast<int>(text.size());
  const int length = MultiByteToWideChar(CP_UTF8, 0, text.data(), size, nullptr, 0);
  std::wstring wide(static_cast<std::size_t>(length), L'\0');
  MultiByteToWideChar(CP_UTF8, 0, text.data(), size, wide.data(), length);
  return wide;
}

std::string Utf8(std::wstring_view text) {
  const int size = static_cast<int>(text.size());
  const int length = WideCharToMultiByte(CP_UTF8, 0, text.data(), size, nullptr, 0, nullptr, nullptr);
  std::string utf8(static_cast<std::size_t>(length), '\0');
  WideCharToMultiByte(CP_UTF8, 0, text.data(), size, utf8.data(), length, nullptr, nullptr);
  return utf8;
}

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
