// Texts between UTF-8 and the ANSI code page of this machine, in which the platform's "A" calls speak.
#pragma once

#include <string>
#include <string_view>

namespace formwizard::adapters::native {

// They turn a character that the code page lacks into a similar one or a question mark.
std::string ToAnsi(std::string_view utf8);
std::string FromAnsi(std::string_view bytes);

}  // namespace formwizard::adapters::native
