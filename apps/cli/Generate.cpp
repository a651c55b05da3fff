#include "apps/cli/Commands.h"
#include "apps/cli/DescriptionFiles.h"
#include "apps/cli/GenerateOptions.h"
#include "apps/cli/GenerateRun.h"
#include "apps/cli/Progress.h"
#include "apps/common/Interruption.h"
#include "apps/common/Paths.h"
#include "apps/common/Platform.h"
#include "support/Failures.h"

#include <CLI/CLI.hpp>

#include <iostream>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace formwizard::apps::cli {
namespace {

using forms::FormDescription;

// The name of a description is not needed any longer than the description itself.
void MakeAll(GenerateRun& run, GenerateOptions& options) {
  if (options.Descriptions.empty()) run.Make(DescriptionFromOptions(options));
  Progress progress(std::cerr, "making forms", ShowsProgress(options.Tells.Quiet, !options.Writes()));
  const auto count = static_cast<double>(options.Descriptions.size());
  for (std::string& file : options.Descriptions) {
    const auto before = static_cast<double>(&file - options.Descriptions.data());
    const std::vector<FormDescription> forms = forms::ReadFormDescriptions(std::exchange(file, ""));
    for (const FormDescription& form : forms) {
      common::CheckInterrupted();
      run.Make(form);
      progress.Show(before + static_cast<double>(&form - forms.data() + 1) / static_cast<double>(forms.size()), count);
    }
  }
}

int Generate(GenerateOptions& options) {
  CheckUsage(options);
  GenerateRun run(options);
  try {
    MakeAll(run, options);
  } catch (const support::InputError& error) {
    run.Stop();
    throw support::InputError(std::string(error.what()) + "; nothing was written");
  } catch (...) {
    run.Stop();
    throw;
  }
  common::CheckInterrupted();  // what follows is not given up
  return run.Save();
}

}  // namespace

void AddGenerate(CLI::App& command, Task& task) {
  const auto options = std::make_shared<GenerateOptions>();
  Declare(command, *options);
  command.callback([&task, options] {
    const bool saves = options->Writes() || !options->Journal.empty();
    const auto generate = [options] {
      options->Descriptions =
          DescriptionFiles(common::FilesMeant(std::move(options->Descriptions)), options->DescriptionsFrom);
      return Generate(*options);
    };
    task = {generate, options->Project, saves, true};
  });
}

}  // namespace formwizard::apps::cli
