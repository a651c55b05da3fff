#include "adapters/com/Text.h"

#include "runtime/Integer.h"

#include <new>

namespace formwizard::adapters::com {
namespace {

int Length(std::size_t size) { return runtime::Int32(size).Value(); }

std::string Converted(std::wstring_view text, DWORD flags) {
  if (text.empty()) return {};
  const int length = Length(text.size());
  const int size = ::WideCharToMultiByte(CP_UTF8, flags, text.data(), length, nullptr, 0, nullptr, nullptr);
  if (size == 0) runtime::Raise(runtime::InvalidProcedureCall, "The text holds a character that is half of a pair");
  std::string utf8(static_cast<std::size_t>(size), '\0');
  ::WideCharToMultiByte(CP_UTF8, flags, text.data(), length, utf8.data(), size, nullptr, nullptr);
  return utf8;
}

}  // namespace

std::wstring Wide(std::string_view utf8) {
  if (utf8.empty()) return {};
  const int length = Length(utf8.size());
  const int size = ::MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, utf8.data(), length, nullptr, 0);
  if (size == 0) runtime::Raise(runtime::InvalidProcedureCall, "The text is not valid UTF-8");
  std::wstring text(static_cast<std::size_t>(size), L'\0');
  ::MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, utf8.data(), length, text.data(), size);
  return text;
}

std::string Utf8(std::wstring_view text) { return Converted(text, WC_ERR_INVALID_CHARS); }

std::string Readable(std::wstring_view text) {
  const std::size_t last = text.find_last_not_of(L" \t\r\n");
  return Converted(text.substr(0, last == std::wstring_view::npos ? 0 : last + 1), 0);
}

Bstr::Bstr(std::string_view utf8) : text_(nullptr) {
  const std::wstring text = Wide(utf8);
  text_ = ::SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
  if (!text_) throw std::bad_alloc();
}

}  // namespace formwizard::adapters::com
