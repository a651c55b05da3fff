// Texts for people, fit to be shown whatever stands in the names and values that they quote.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace formwizard::support {

// Control characters and bytes that are no UTF-8 as escapes: "\n", "\x1B". What would change the direction of the
// text around it is a control character too.
std::string Escaped(std::string_view text);
// A text that is longer than a screen, about 1,500 bytes, without its middle.
std::string Shortened(std::string text);
// A message that ends up in a terminal: escaped and shortened.
std::string Shown(std::string_view message);
// "1 field", "2 fields"; of a word that takes no "s", `plural` is its plural.
std::string Counted(std::size_t count, std::string_view what, std::string_view plural = "");

}  // namespace formwizard::support
