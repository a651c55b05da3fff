#include "apps/cli/Commands.h"
#include "apps/cli/KeptListing.h"
#include "apps/cli/KeptProject.h"
#include "apps/cli/Summary.h"
#include "apps/common/Endings.h"
#include "apps/common/Interruption.h"
#include "support/Failures.h"
#include "support/Messages.h"

#include <CLI/CLI.hpp>

#include <iostream>
#include <memory>
#include <utility>

namespace formwizard::apps::cli {
namespace {

struct KeepOptions : ProjectOptions {
  std::string Description, Form;
  bool DryRun = false, Diff = false;
  Verbosity Tells;
};

forms::FormDescription DescriptionFor(const KeepOptions& options) {
  std::vector<forms::FormDescription> descriptions = forms::ReadFormDescriptions(options.Description);
  if (descriptions.size() != 1) {
    throw support::InputError(options.Description + ": this describes " + std::to_string(descriptions.size()) +
                              " forms; give the description of " + options.Form + " alone");
  }
  return std::move(descriptions.front());
}

int TakeUp(const KeepOptions& options) {
  const forms::FormDescription description = DescriptionFor(options);
  KeptProject kept(options);
  std::string report;
  kept.Project.OnChange(
      [&](const adapters::vb6files::FileChange& change) {
        report += options.Diff ? DiffOf(change) : LineOf(change, !options.DryRun);
      },
      options.DryRun);
  const forms::Taken taken = kept.Forms.Keep(description, options.Form);
  for (const std::string& message : taken.Messages) {
    std::cerr << "ostrel-form-wizard: warning: " << support::Shown(message) << '\n';
  }
  common::CheckInterrupted();  // what follows is not given up
  kept.Project.Save();
  return common::AfterSaving(options.Project, [&] {
    if (!options.Tells.Quiet) std::cout << report << LinesOf(taken.Name, taken.State, kept.Project.ProjectCodePage());
    return common::Done;
  });
}

}  // namespace

void AddKeep(CLI::App& command, Task& task) {
  const auto options = std::make_shared<KeepOptions>();
  AddKeptInputs(command, *options);
  AddDryRun(command, options->DryRun);
  AddDiff(command, options->Diff);
  AddQuiet(command, options->Tells.Quiet);
  AddStream(command, "description", options->Description,
            "the description that the form was made from, \"-\" for standard input")
      ->required()
      ->type_name("FORM.json");
  command.add_option("form", options->Form, "the form in the project, by its name")->required()->type_name("FORM");
  command.callback([&task, options] {
    task = {[options] { return TakeUp(*options); }, options->Project, !options->DryRun, true};
  });
}

}  // namespace formwizard::apps::cli
