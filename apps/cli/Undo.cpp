#include "adapters/vb6files/Undo.h"

#include "apps/cli/Commands.h"
#include "apps/cli/Spool.h"
#include "apps/cli/Summary.h"
#include "apps/common/Endings.h"
#include "apps/common/Interruption.h"
#include "apps/common/Paths.h"
#include "system/FileSystem.h"

#include <CLI/CLI.hpp>
#include <nlohmann/json.hpp>

#include <iostream>
#include <memory>
#include <string>

namespace formwizard::apps::cli {
namespace {

using Json = nlohmann::ordered_json;
using adapters::vb6files::FileChange;

struct UndoOptions {
  std::string Project;
  bool DryRun = false, Diff = false, Json = false, Quiet = false;
};

int TakeBack(const UndoOptions& options) {
  Spool report;  // printed when it is true
  Json files = Json::array();
  const auto note = [&](const FileChange& change) {
    common::CheckInterrupted();
    if (options.Json) {
      files.push_back({{"file", change.Path}, {"change", change.New ? "written" : "removed"}});
    } else if (options.Diff) {
      report.Add(DiffOf(change));
    } else if (!options.Quiet) {
      report.Add(LineOf(change, !options.DryRun));
    }
  };
  adapters::vb6files::Undo(system::RealFileSystem(), common::Resolved(options.Project), options.DryRun, note);
  const auto print = [&] {
    report.PrintTo(std::cout);
    if (options.Json) std::cout << Json{{"project", options.Project}, {"files", files}}.dump(2) << '\n';
    common::FlushOutput();
    return common::Done;
  };
  return options.DryRun ? print() : common::AfterSaving(options.Project, print);
}

}  // namespace

void AddUndo(CLI::App& command, Task& task) {
  const auto options = std::make_shared<UndoOptions>();
  AddFile(command, "--project", options->Project, "the VB6 project file (.vbp)")->required();
  AddDryRun(command, options->DryRun);
  CLI::Option& diff = *AddDiff(command, options->Diff);
  AddJson(command, options->Json, "files")->excludes(&diff);
  AddQuiet(command, options->Quiet);
  command.callback([&task, options] {
    task = {[options] { return TakeBack(*options); }, options->Project, !options->DryRun, true};
  });
}

}  // namespace formwizard::apps::cli
