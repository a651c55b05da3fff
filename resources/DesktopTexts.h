// The texts of the desktop program's own windows. They stand apart from the wizard's, so that the add-in goes without
// them.
#pragma once

#include <string_view>
#include <vector>

namespace formwizard::resources {

// The number is the string id under which a satellite holds the text.
enum class DesktopText : int {
#define TEXT(id, name, english) name = (id),
#include "resources/DesktopTexts.inc"
#undef TEXT
};

// In English, UTF-8.
std::string_view EnglishText(DesktopText text);

// All ids, in order.
std::vector<int> DesktopTextIds();

}  // namespace formwizard::resources
