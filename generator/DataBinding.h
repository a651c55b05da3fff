// The data-binding lines that other writers repeat.
#pragma once

#include <string_view>

namespace formwizard::generator {

// The lines that show a reference in its combo box; gaps as NamesOf gives them.
std::string_view ReferenceComboToScreen();

}  // namespace formwizard::generator
