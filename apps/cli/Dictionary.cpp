#include "apps/cli/Commands.h"
#include "apps/common/Dictionaries.h"
#include "apps/common/Endings.h"
#include "apps/common/Platform.h"
#include "support/Failures.h"
#include "system/Paths.h"
#include "system/WholeFile.h"

#include <CLI/CLI.hpp>

#include <fstream>
#include <iostream>
#include <memory>
#include <utility>

namespace formwizard::apps::cli {
namespace {

struct TransferOptions {
  std::string From, To, System;
  bool Server = false;  // export from the installed server, of one system or all
  bool Force = false;   // replaces whatever file stands there
};

void WriteJson(const TransferOptions& options, std::ostream& out) {
  if (options.Server) {
    common::ExportServer(*common::InstalledServer(), options.System, out);
  } else {
    common::ExportDictionary(options.From, out);
  }
}

int Import(const TransferOptions& options) {
  if (options.From == "-") {
    common::ImportDictionary(std::cin, "standard input", options.To, options.Force);
    return common::Done;
  }
  if (!system::RealFileSystem().ReadHead(options.From, 0)) {  // says what is no file and what cannot be read
    throw support::InputError(options.From + ": there is no such file; give a dictionary in JSON");
  }
  std::ifstream in(system::NativePath(options.From), std::ios::binary);
  if (!in) throw support::InputError(options.From + ": the file cannot be read; give a dictionary in JSON");
  common::ImportDictionary(in, options.From, options.To, options.Force);
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
}

void AddTransfer(CLI::App& dictionary, Task& task, bool isImport) {
  const auto options = std::make_shared<TransferOptions>();
  CLI::App& command =
      *dictionary.add_subcommand(isImport ? "import" : "export",
                                 isImport ? "make a class dictionary from JSON" : "write a class dictionary as JSON");
  AddFile(command, "in", options->From, isImport ? "JSON; \"-\" for standard input" : "class dictionary")->required();
  CLI::Option& out =
      *AddFile(command, "out", options->To, isImport ? "class dictionary" : "JSON; \"-\" for standard output");
  if (isImport || !common::CanHaveServer()) out.required();  // an export of a server has one name alone
  command.add_flag("--force", options->Force, "replace the file also when it is something else");
  if (!isImport && common::CanHaveServer()) AddServerToExport(command, *options);
  command.callback([&task, options, isImport] {
    CheckExport(*options);
    if (options->To.empty()) throw CLI::RequiredError("out");
    task = {[options, isImport] { return isImport ? Import(*options) : Export(*options); }, options->From,
            isImport || options->To != "-"};
  });
}

}  // namespace

void AddDictionary(CLI::App& program, Task& task) {
  CLI::App& dictionary =
      *program.add_subcommand("dictionary", "make a dictionary from JSON, or JSON from a dictionary");
  dictionary.require_subcommand(1);
  for (const bool isImport : {true, false}) AddTransfer(dictionary, task, isImport);
}

}  // namespace formwizard::apps::cli
