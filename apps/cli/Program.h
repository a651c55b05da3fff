// The program: from a command line to its exit status.
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace formwizard::apps::cli {

// Gets the arguments, UTF-8 and without the program's name, and runs the command that they ask for. Results go to
// standard output, messages to standard error. Returns an ExitStatus, also when `arguments` fails.
int RunProgram(const std::function<std::vector<std::string>()>& arguments);

}  // namespace formwizard::apps::cli
