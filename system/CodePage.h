// Text between UTF-8 and the Windows code page in which a project's files are written.
#pragma once

#include <memory>
#include <span>
#include <string>
#include <string_view>

namespace formwizard::system {

class CodePageConverter;

inline constexpr int Utf8CodePage = 65001;
// The other Windows code pages that are known.
std::span<const int> CodePageNumbers();

class CodePage {
 public:
  // `number` is a Windows code page such as 1252 or 932; support::InputError for one that is not known.
  explicit CodePage(int number);
  ~CodePage();
  CodePage(const CodePage&) = delete;
  CodePage& operator=(const CodePage&) = delete;

  int Number() const { return number_; }
  // support::InputError, naming the text and the character, when the code page lacks a character or the text is no
  // UTF-8. No character is replaced by a similar one.
  std::string Encode(std::string_view utf8) const;
  // The same without a copy of a text that is ASCII, as most are; `room` takes any other.
  std::string_view Encoded(std::string_view utf8, std::string& room) const;
  // Bytes that the code page does not define become U+FFFD.
  std::string Decode(std::string_view bytes) const;

 private:
  int number_;
  std::unique_ptr<CodePageConverter> encoder_, decoder_;
};

}  // namespace formwizard::system
