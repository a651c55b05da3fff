// Pictures of what is on the screen, for whoever wants to look at the windows.
#pragma once

#include <string>

namespace formwizard::tests {

// The window that has the user's input, in NAME.bmp of the folder that the environment variable FORMWIZARD_PICTURES
// names; without the variable there is none.
void TakePicture(const std::string& name);

}  // namespace formwizard::tests
