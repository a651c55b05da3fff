// What shows the wizard's dialogs on this system.
#pragma once

#include "apps/cli/ProjectOptions.h"

#include <string>

namespace formwizard::apps::cli {

struct WizardOptions : ProjectOptions {
  std::string Journal;
  bool DryRun = false, Force = false;
};

// Options that only the dialogs of this system have.
void AddDialogOptions(CLI::App& command, WizardOptions& options);

// Returns the ExitStatus when the dialogs are closed, or hands over to the desktop program and never returns.
int ShowWizard(const WizardOptions& options);

}  // namespace formwizard::apps::cli
