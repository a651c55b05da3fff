// Names for what is prepared beside a file and then moved into its place.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace formwizard::system {

// "NAME.TOKEN.new" for the file NAME: 24 hexadecimal digits, of which 16 cannot be foreseen and 8 are the check sum of
// them and of the name, so that only a name that was made here is one.
std::string AsideName(std::string_view name);
bool IsAsideName(std::string_view aside, std::string_view name);
// The same for a file of any name.
bool IsAsideName(std::string_view aside);

// A message that begins with the path `aside` begins with `target`, the file that the user knows.
std::string AboutTarget(std::string message, std::string_view aside, std::string_view target);

// With `digits` lower-case hexadecimal digits.
std::string Hexadecimal(std::uint64_t value, int digits = 16);

}  // namespace formwizard::system
