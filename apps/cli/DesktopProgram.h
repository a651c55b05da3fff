// The desktop program, which stands beside this one or on the path.
#pragma once

#include <string>
#include <vector>

namespace formwizard::apps::cli {

// The name of a file as an argument that no program takes for an option or for a standard stream.
std::string AsArgument(const std::string& file);

// Becomes the desktop program, which gets the arguments as they are, and never returns. support::InputError where there
// is none, saying that it is the one `whose` ("whose dialogs these are") and what to do, or `instead`.
[[noreturn]] void BecomeDesktopProgram(std::vector<std::string> arguments, const std::string& whose,
                                       const std::string& instead = "");

}  // namespace formwizard::apps::cli
