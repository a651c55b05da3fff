// One direction of a conversion between UTF-8 and a Windows code page, by the means of the operating system.
#pragma once

#include <memory>
#include <string>
#include <string_view>

namespace formwizard::system {

class CodePageConverter {
 public:
  virtual ~CodePageConverter() = default;

  // Appends what could be converted and takes it off `text`; what is left begins with a character that could not, or
  // with a byte that begins none. No character is replaced by a similar one.
  virtual void Convert(std::string_view& text, std::string& result) = 0;
};

// From UTF-8 and to UTF-8, of a code page that is not UTF-8 itself. Null when the operating system does not know it.
std::unique_ptr<CodePageConverter> MakeEncoder(int codePage);
std::unique_ptr<CodePageConverter> MakeDecoder(int codePage);

}  // namespace formwizard::system
