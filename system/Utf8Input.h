// Text that other programs have written, read as UTF-8.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <istream>
#include <streambuf>
#include <string>
#include <string_view>
#include <utility>

namespace formwizard::system {

// Takes UTF-8 with or without a byte order mark, and UTF-16 of either byte order, which is known by its mark or, as no
// text here begins with a character of code 0, by its first two bytes. What is no UTF-8 goes through as it is.
class Utf8Input : public std::streambuf {
 public:
  // `name` is that of the input in messages. Both must outlive this object. Reading raises support::InputError when
  // the input cannot be read, or begins like UTF-16 and is none.
  // `onRead` hears how many bytes of the input were taken so far.
  Utf8Input(std::istream& in, const std::string& name, std::function<void(std::size_t)> onRead = {})
      : in_(in), name_(name), onRead_(std::move(onRead)) {}

 protected:
  int_type underflow() override;

 private:
  enum class Form : std::uint8_t { Unknown, Utf8, Utf16Little, Utf16Big };

  void ReadBlock();
  void Recognize();
  void Convert();
  [[noreturn]] void FailAsUtf16() const;

  std::istream& in_;
  const std::string& name_;
  std::function<void(std::size_t)> onRead_;
  std::size_t taken_ = 0;
  Form form_ = Form::Unknown;
  std::size_t blockSize_ = 2'048;  // of what is read next: most inputs are short
  std::string block_;              // as read; of UTF-16 its first bytes may be half a character of the block before
  std::string utf8_;               // what UTF-16 has become
};

}  // namespace formwizard::system
