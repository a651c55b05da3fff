#include "adapters/com/Text.h"

#include "runtime/RuntimeError.h"
#include "system/Text.h"

#include <new>

namespace formwizard::adapters::com {

std::wstring Wide(std::string_view utf8) {
  if (!system::IsUtf8(utf8)) runtime::Raise(runtime::InvalidProcedureCall, "The text is not valid UTF-8");
  return system::Wide(utf8);
}

std::string Utf8(std::wstring_view text) {
  if (!system::IsWhole(text)) {
    runtime::Raise(runtime::InvalidProcedureCall, "The text holds a character that is half of a pair");
  }
  return system::Utf8(text);
}

std::string Readable(std::wstring_view text) {
  return system::Utf8(text.substr(0, text.find_last_not_of(L" \t\r\n") + 1));
}

Bstr::Bstr(std::string_view utf8) : text_(nullptr) {
  const std::wstring text = Wide(utf8);
  text_ = ::SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
  if (!text_) throw std::bad_alloc();
}

}  // namespace formwizard::adapters::com
