#include "apps/cli/Commands.h"
#include "apps/cli/WizardProgram.h"

#include <CLI/CLI.hpp>

#include <memory>

namespace formwizard::apps::cli {

void AddWizard(CLI::App& command, Task& task) {
  const auto options = std::make_shared<WizardOptions>();
  AddInputs(command, *options);
  AddSurroundings(command, *options);
  AddDialogOptions(command, *options);
  command.callback([&task, options] { task = {[options] { return ShowWizard(*options); }, options->Project}; });
}

}  // namespace formwizard::apps::cli
