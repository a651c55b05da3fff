// Which texts of a dictionary are harmless where they end up: names in code, captions in lines of it.
#pragma once

#include <string>
#include <string_view>

namespace formwizard::wizard::factory {

// Letters and digits of any language, "_", "%" and "."; nothing at which Visual Basic sees a name end, such as a blank,
// quote, bracket, operator or line break. Not empty. `text` is UTF-8; anything else is no name.
bool IsName(std::string_view text);

// No line break or control character, of any script.
bool IsLine(std::string_view text);

// The code for a list or an array asks the user for elements under the property's caption, which it has between quotes
// as it is: false for a caption that would end them.
bool StaysQuoted(std::string_view caption, std::string_view collection);

// As it is shown in a message: between quotes, control characters as "\n" or "\x07", a long text cut off.
std::string Shown(std::string_view text);

}  // namespace formwizard::wizard::factory
