// What a merge does to the places of controls.
#pragma once

#include <string>
#include <vector>

namespace formwizard::kept {

// Controls that overlap in `after`, or stick out of their container, and did not in `before`. Both are forms; a text
// that is none has no places.
std::vector<std::string> LayoutNotes(const std::string& before, const std::string& after);

}  // namespace formwizard::kept
