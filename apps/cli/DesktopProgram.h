// The desktop program, which stands beside this one or on the path.
#pragma once

#include <string>
#include <vector>

namespace formwizard::apps::cli {

// Becomes the desktop program, which gets the options as they are and the name of a file, and never returns.
// support::InputError where there is none, saying that it is the one `whose` ("whose dialogs these are") and what to
// do, or `instead`.
[[noreturn]] void BecomeDesktopProgram(const std::vector<std::string>& options, const std::string& file,
                                       const std::string& whose, const std::string& instead = "");

}  // namespace formwizard::apps::cli
