// Hands over to the desktop program, whose dialogs they are on this system.
#include "adapters/vb6files/ProjectOnDisk.h"
#include "apps/cli/DesktopProgram.h"
#include "apps/cli/WizardProgram.h"
#include "apps/common/Dictionaries.h"
#include "apps/common/Languages.h"
#include "apps/common/Paths.h"
#include "apps/forms/RunProfile.h"
#include "support/Messages.h"

#include <iostream>
#include <string>
#include <vector>

namespace formwizard::apps::cli {
namespace {

// What is wrong with them is said here, with a status, and not in a window.
void CheckInputs(const WizardOptions& options) {
  common::LanguageMeant(options.Language);
  common::OpenDictionary(options.Dictionary);
  const adapters::vb6files::ProjectOnDisk project(system::RealFileSystem(), common::Resolved(options.Project),
                                                  {options.CodePage, options.Toolbox});
  const std::string profile = options.Profile.empty() ? common::DefaultProfile() : options.Profile;
  for (const std::string& warning : forms::WarningsOn(profile, !options.Profile.empty())) {
    std::cerr << "ostrel-form-wizard: warning: " << support::Shown(warning) << '\n';
  }
}

std::vector<std::string> OptionsFor(const WizardOptions& options) {
  std::vector<std::string> arguments{"--wizard", "--dictionary=" + options.Dictionary,
                                     "--code-page=" + std::to_string(options.CodePage)};
  if (!options.Toolbox.empty()) arguments.push_back("--toolbox=" + options.Toolbox);
  if (!options.Profile.empty()) arguments.push_back("--profile=" + options.Profile);
  if (!options.Language.empty()) arguments.push_back("--language=" + options.Language);
  return arguments;
}

}  // namespace

void AddDialogOptions(CLI::App&, WizardOptions&) {}

int ShowWizard(const WizardOptions& options) {
  CheckInputs(options);
  BecomeDesktopProgram(OptionsFor(options), options.Project, "whose dialogs these are",
                       ", or make the form with \"ostrel-form-wizard generate\"");
}

}  // namespace formwizard::apps::cli
