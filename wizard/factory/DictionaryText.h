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

// As it is shown in a message: between quotes, control characters as "\n" or "\x07", a long text cut off.
std::string Shown(std::string_view text);

}  // namespace formwizard::wizard::factory
