#include "apps/cli/DesktopProgram.h"
#include "apps/common/Paths.h"
#include "support/Failures.h"

#include <unistd.h>

#include <cerrno>
#include <system_error>

namespace formwizard::apps::cli {
namespace {

constexpr const char* Name = "ostrel-form-wizard-desktop";

}  // namespace

void BecomeDesktopProgram(const std::vector<std::string>& options, const std::string& file, const std::string& whose,
                          const std::string& instead) {
  std::vector<std::string> arguments{Name};
  arguments.insert(arguments.end(), options.begin(), options.end());
  // The toolkit takes what begins with a dash for its own, wherever it stands.
  arguments.insert(arguments.end(), {"--", file.starts_with('-') ? "./" + file : file});
  std::vector<char*> pointers;
  pointers.reserve(arguments.size() + 1);
  for (std::string& argument : arguments) pointers.push_back(argument.data());
  pointers.push_back(nullptr);
  ::execv((common::ProgramFolder() + Name).c_str(), pointers.data());
  const int beside = errno;
  ::execvp(Name, pointers.data());  // on the path
  const int reason = beside == ENOENT ? errno : beside;
  if (reason != ENOENT) {
    throw support::InputError(std::string(Name) +
                              ": the desktop program cannot be started: " + std::generic_category().message(reason));
  }
  throw support::InputError(std::string(Name) + ": the desktop program, " + whose +
                            ", is neither beside this program nor on the path; install it (on Debian, the package " +
                            Name + ")" + instead);
}

}  // namespace formwizard::apps::cli
