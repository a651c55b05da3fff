#include "adapters/native/AnsiText.h"

#include "system/Text.h"

#include <windows.h>

namespace formwizard::adapters::native {

std::string ToAnsi(std::string_view utf8) {
  const std::wstring text = system::Wide(utf8);
  const int size = static_cast<int>(text.size());
  const int wanted = ::WideCharToMultiByte(CP_ACP, 0, text.data(), size, nullptr, 0, nullptr, nullptr);
  std::string bytes(static_cast<std::size_t>(wanted), '\0');
  ::WideCharToMultiByte(CP_ACP, 0, text.data(), size, bytes.data(), wanted, nullptr, nullptr);
  return bytes;
}

std::string FromAnsi(std::string_view bytes) {
  const int size = static_cast<int>(bytes.size());
  std::wstring text(static_cast<std::size_t>(::MultiByteToWideChar(CP_ACP, 0, bytes.data(), size, nullptr, 0)), L'\0');
  ::MultiByteToWideChar(CP_ACP, 0, bytes.data(), size, text.data(), static_cast<int>(text.size()));
  return system::Utf8(text);
}

}  // namespace formwizard::adapters::native
