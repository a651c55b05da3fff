// Pictures of the windows, taken when the environment variable FORMWIZARD_PICTURES names a folder.
#pragma once

#include <string>

namespace formwizard::tests::host {

// The window that has the user's input, as it is on the screen, in NAME.bmp.
void TakePicture(const std::string& name);

}  // namespace formwizard::tests::host
