#include "apps/cli/Commands.h"
#include "apps/cli/Progress.h"
#include "apps/common/Dictionaries.h"
#include "apps/common/Endings.h"
#include "apps/common/Interruption.h"
#include "apps/common/Platform.h"
#include "apps/common/TextInput.h"
#include "support/Failures.h"
#include "support/Messages.h"
#include "system/Paths.h"
#include "system/WholeFile.h"

#include <CLI/CLI.hpp>

#include <filesystem>
#include <iostream>
#include <memory>
#include <system_error>
#include <utility>

namespace formwizard::apps::cli {
namespace {

struct TransferOptions {
  std::string From, To, System;
  bool Server = false;  // export from the installed server, of one system or all
  bool Force = false;   // replaces whatever file stands there
  Verbosity Tells;
};

void WriteJson(const TransferOptions& options, std::ostream& out) {
  Progress progress(std::cerr, "exporting", ShowsProgress(options.Tells.Quiet, options.To == "-"));
  const auto show = [&](double part) {
    common::CheckInterrupted();
    progress.Show(part, 1);
  };
  if (options.Server) {
    common::ExportServer(*common::InstalledServer(), options.System, out, show);
  } else {
    common::ExportDictionary(options.From, out, show);
  }
  common::CheckInterrupted();  // what follows is not given up
}

common::RowCounts ReadJson(const TransferOptions& options) {
  Progress progress(std::cerr, "importing", ShowsProgress(options.Tells.Quiet, false));
  std::error_code none;
  const auto size = options.From == "-" ? 0 : std::filesystem::file_size(system::NativePath(options.From), none);
  const auto in = common::OpenText(options.From, [&](std::size_t bytes) {
    common::CheckInterrupted();
    progress.Show(static_cast<double>(bytes), none ? 0 : static_cast<double>(size));
  });
  if (!in) throw support::InputError(options.From + ": the file cannot be read; give a dictionary in JSON");
  return common::ImportDictionary(*in, common::NameOf(options.From), options.To, options.Force);
}

std::string LineOf(const std::string& file, const common::RowCounts& rows) {
  using support::Counted;
  return "wrote " + support::Escaped(file) + ": " + Counted(rows[0], "system") + ", " +
         Counted(rows[1], "class", "classes") + ", " + Counted(rows[2], "property", "properties") + ", " +
         Counted(rows[3], "query", "queries") + '\n';
}

int Import(const TransferOptions& options) {
  // Says what is no file and what cannot be read.
  if (options.From != "-" && !system::RealFileSystem().ReadHead(options.From, 0)) {
    throw support::InputError(options.From + ": there is no such file; give a dictionary in JSON");
  }
  const common::RowCounts rows = ReadJson(options);
  if (options.Tells.Verbose) std::cout << LineOf(options.To, rows);
  return common::Done;
}

int Export(const TransferOptions& options) {
  if (options.To == "-") {
    WriteJson(options, std::cout);
    return common::Done;
  }
  if (!options.Force) common::CheckIsExport(options.To);
  system::WholeFile file(system::RealFileSystem(), options.To);
  WriteJson(options, file.Stream());
  file.Commit();
  if (options.Tells.Verbose) std::cout << "wrote " << support::Escaped(options.To) << '\n';
  return common::Done;
}

// With --server there is nothing to read: the only name is what to write.
void AddServerToExport(CLI::App& command, TransferOptions& options) {
  command.add_flag("--server", options.Server, "take it from the installed server: export --server OUT.json");
  command.add_option("--system", options.System, "with --server, the system (default: all)")->type_name("NAME");
}

void CheckExport(TransferOptions& options) {
  if (options.Server && !options.To.empty()) throw CLI::ExcludesError("--server", "in");
  if (options.Server) options.To = std::exchange(options.From, "");
  const std::string wrong = NoStream(options.From);
  if (!wrong.empty()) throw CLI::ValidationError("in", wrong);
}

void AddTransfer(CLI::App& dictionary, Task& task, bool isImport) {
  const auto options = std::make_shared<TransferOptions>();
  CLI::App& command =
      *dictionary.add_subcommand(isImport ? "import" : "export",
                                 isImport ? "make a class dictionary from JSON" : "write a class dictionary as JSON");
  // A store is no stream.
  const auto addIn = isImport || common::CanHaveServer() ? AddStream : AddFile, addOut = isImport ? AddFile : AddStream;
  addIn(command, "in", options->From, isImport ? "JSON; \"-\" for standard input" : "class dictionary")->required();
  CLI::Option& out =
      *addOut(command, "out", options->To, isImport ? "class dictionary" : "JSON; \"-\" for standard output");
  if (isImport || !common::CanHaveServer()) out.required();  // an export of a server has one name alone
  command.add_flag("--force", options->Force, "replace the file also when it is something else");
  AddVerbosity(command, options->Tells, "say what was written");
  if (!isImport && common::CanHaveServer()) AddServerToExport(command, *options);
  command.callback([&task, options, isImport] {
    if (!isImport) CheckExport(*options);
    if (options->To.empty()) throw CLI::RequiredError("out");
    task = {[options, isImport] { return isImport ? Import(*options) : Export(*options); }, options->From,
            isImport || options->To != "-", true};
  });
}

}  // namespace

void AddDictionary(CLI::App& dictionary, Task& task) {
  dictionary.require_subcommand(1);
  for (const bool isImport : {true, false}) AddTransfer(dictionary, task, isImport);
  AddDictionaryDiff(*dictionary.add_subcommand("diff", "say what differs between two class dictionaries"), task);
}

}  // namespace formwizard::apps::cli
