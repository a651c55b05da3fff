// Hands over to the desktop program, whose dialogs they are on this system.
#include "adapters/vb6files/ProjectOnDisk.h"
#include "apps/cli/WizardProgram.h"
#include "apps/common/Dictionaries.h"
#include "apps/common/Paths.h"
#include "support/Failures.h"

#include <unistd.h>

#include <cerrno>
#include <system_error>
#include <vector>

namespace formwizard::apps::cli {
namespace {

constexpr const char* DesktopProgram = "ostrel-form-wizard-desktop";

// What is wrong with them is said here, with a status, and not in a window.
void CheckInputs(const WizardOptions& options) {
  common::OpenDictionary(options.Dictionary);
  const adapters::vb6files::ProjectOnDisk project(system::RealFileSystem(), common::Resolved(options.Project),
                                                  {options.CodePage, options.Toolbox});
}

std::vector<std::string> ArgumentsFor(const WizardOptions& options) {
  std::vector<std::string> arguments{DesktopProgram, "--wizard", "--dictionary=" + options.Dictionary,
                                     "--code-page=" + std::to_string(options.CodePage)};
  if (!options.Toolbox.empty()) arguments.push_back("--toolbox=" + options.Toolbox);
  if (!options.Profile.empty()) arguments.push_back("--profile=" + options.Profile);
  if (!options.Language.empty()) arguments.push_back("--language=" + options.Language);
  arguments.insert(arguments.end(), {"--", options.Project});
  return arguments;
}

}  // namespace

void AddDialogOptions(CLI::App&, WizardOptions&) {}

int ShowWizard(const WizardOptions& options) {
  CheckInputs(options);
  std::vector<std::string> arguments = ArgumentsFor(options);
  std::vector<char*> pointers;
  pointers.reserve(arguments.size() + 1);
  for (std::string& argument : arguments) pointers.push_back(argument.data());
  pointers.push_back(nullptr);
  ::execv((common::ProgramFolder() + DesktopProgram).c_str(), pointers.data());
  const int beside = errno;
  ::execvp(DesktopProgram, pointers.data());  // on the path
  const int reason = beside == ENOENT ? errno : beside;
  throw support::InputError(
      std::string(DesktopProgram) +
      (reason == ENOENT ? ": the desktop program, whose dialogs these are, is neither beside this program nor on the "
                          "path; install it, or make the form with \"ostrel-form-wizard generate\""
                        : ": the desktop program cannot be started: " + std::generic_category().message(reason)));
}

}  // namespace formwizard::apps::cli
