#include "apps/cli/Commands.h"
#include "apps/cli/WizardProgram.h"

#include <CLI/CLI.hpp>

#include <memory>

namespace formwizard::apps::cli {

void AddWizard(CLI::App& program, Task& task) {
  const auto options = std::make_shared<WizardOptions>();
  CLI::App& command = *program.add_subcommand("wizard", "open the wizard's dialogs over a project");
  AddInputs(command, *options);
  AddSurroundings(command, *options);
  AddDialogOptions(command, *options);
  command.callback([&task, options] { task = {[options] { return ShowWizard(*options); }, options->Project}; });
}

}  // namespace formwizard::apps::cli
