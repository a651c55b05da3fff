#include "adapters/native/AnsiText.h"

#include <windows.h>

namespace formwizard::adapters::native {
namespace {

std::wstring Widened(UINT codePage, std::string_view bytes) {
  const int size = static_cast<int>(bytes.size());
  std::wstring text(static_cast<std::size_t>(::MultiByteToWideChar(codePage, 0, bytes.data(), size, nullptr, 0)),
                    L'\0');
  ::MultiByteToWideChar(codePage, 0, bytes.data(), size, text.data(), static_cast<int>(text.size()));
  return text;
}

std::string Narrowed(UINT codePage, std::wstring_view text) {
  const int size = static_cast<int>(text.size());
  const int wanted = ::WideCharToMultiByte(codePage, 0, text.data(), size, nullptr, 0, nullptr, nullptr);
  std::string bytes(static_cast<std::size_t>(wanted), '\0');
  ::WideCharToMultiByte(codePage, 0, text.data(), size, bytes.data(), wanted, nullptr, nullptr);
  return bytes;
}

}  // namespace

std::wstring Utf16(std::string_view utf8) { return Widened(CP_UTF8, utf8); }
std::string Utf8(std::wstring_view text) { return Narrowed(CP_UTF8, text); }
std::string ToAnsi(std::string_view utf8) { return Narrowed(CP_ACP, Utf16(utf8)); }
std::string FromAnsi(std::string_view bytes) { return Utf8(Widened(CP_ACP, bytes)); }

}  // namespace formwizard::adapters::native
