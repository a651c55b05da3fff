// The texts of automation, UTF-16 with a length, and the core's, UTF-8.
#pragma once

#include <windows.h>

#include <oleauto.h>

#include <string>
#include <string_view>
#include <utility>

namespace formwizard::adapters::com {

// Error 5 for a text that is not valid in its encoding: nothing is replaced in what will be written into a project.
std::wstring Wide(std::string_view utf8);
std::string Utf8(std::wstring_view text);

// For a message that somebody reads: no error, an invalid character is replaced, blanks and line breaks at the end go.
std::string Readable(std::wstring_view text);

// Owns an automation text. Null is an empty text, as everywhere in automation.
class Bstr {
 public:
  explicit Bstr(std::string_view utf8);
  Bstr(Bstr&& other) noexcept : text_(std::exchange(other.text_, nullptr)) {}
  Bstr& operator=(Bstr&&) = delete;
  ~Bstr() { ::SysFreeString(text_); }

  // Leaves the text to the caller.
  BSTR Release() { return std::exchange(text_, nullptr); }

 private:
  BSTR text_;
};

inline std::wstring_view View(BSTR text) {
  return text ? std::wstring_view(text, ::SysStringLen(text)) : std::wstring_view();
}

}  // namespace formwizard::adapters::com
