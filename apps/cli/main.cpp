#include "apps/cli/Options.h"
#include "apps/common/Platform.h"
#include "support/Messages.h"
#include "system/Paths.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <functional>
#include <iostream>
#include <memory>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

using namespace formwizard;
using namespace formwizard::apps;
using namespace formwizard::apps::cli;

namespace {

// What shall be done, and the file that it is about.
struct Command {
  std::function<int()> Do;
  std::string Subject;
  bool Saves = false;  // files, and not only to standard output
};

// What the check returns is what is wrong; a path that no file can have ends in support::InputError.
std::string CheckedPath(const std::string& path) {
  system::CheckPath(path);
  return "";
}

CLI::Option* AddFile(CLI::App& app, const char* name, std::string& file, const char* about) {
  return app.add_option(name, file, about)->type_name("FILE")->check(CheckedPath);
}

void AddGenerate(CLI::App& app, GenerateOptions& options) {
  AddFile(app, "--project", options.Project, "the VB6 project file (.vbp)")->required();
  AddFile(app, "--dictionary", options.Dictionary, "the class dictionary")->required();
  app.add_option("--system", options.System, "the system (default: the remembered one, else the first)")
      ->type_name("NAME");
  app.add_option("--class", options.Class, "the persistent class of the form")->type_name("NAME");
  app.add_option("--fields", options.Fields, "its properties in order, separated by commas: Name,Home.City")
      ->delimiter(',')
      ->allow_extra_args(false)
      ->type_name("PROPERTIES");
  app.add_option("--set", options.Settings, "a setting for this run, such as Columns=2; may be repeated")
      ->allow_extra_args(false)
      ->type_name("KEY=VALUE");
  app.add_option("--code-page", options.CodePage, "the Windows code page of the project's files")
      ->capture_default_str()
      ->type_name("N");
  AddFile(app, "--toolbox", options.Toolbox, "control libraries that the project does not refer to yet");
  AddFile(app, "--profile", options.Profile,
          "the settings file (default: outility.ini beside the program, else in the user's configuration folder)");
  app.add_option("--language", options.Language, "three-letter language of the texts, such as DEU")->type_name("ABC");
  app.add_flag("--dry-run", options.DryRun, "write nothing, say what would be written");
  app.add_flag("--diff", options.Diff, "show the changes of every file as a unified diff");
  app.add_flag("--check", options.Check, "write nothing, exit with status 1 when something would be written");
  AddFile(app, "--journal", options.Journal, "write every change to the project as a line of JSON");
  app.add_flag("--force", options.Force, "let the journal replace a file that is no journal");
  app.add_flag("--json", options.Json, "show the summary as JSON");
  app.add_option("descriptions", options.Descriptions, "form descriptions in JSON, \"-\" for standard input")
      ->type_name("FORM.json")
      ->check(CheckedPath);
}

// Where a server can be installed it can take the place of the file.
void AddSource(CLI::App& app, CLI::Option& file, bool& server) {
  if (!common::CanHaveServer()) {
    file.required();
    return;
  }
  file.excludes(app.add_flag("--server", server, "ask the installed server instead"));
}

void AddBrowse(CLI::App& app, BrowseOptions& options, bool needsClass) {
  AddSource(app, *AddFile(app, "--dictionary", options.Dictionary, "the class dictionary"), options.Server);
  app.add_flag("--json", options.Json, "show the result as JSON");
  if (app.get_name() == "systems") return;
  app.add_option("--system", options.System, "the system (default: the first one)")->type_name("NAME");
  if (needsClass) app.add_option("--class", options.Class, "the class")->required()->type_name("NAME");
}

// With --server there is nothing to read: the only name is what to write.
void AddServerToExport(CLI::App& app, TransferOptions& options) {
  app.add_flag("--server", options.Server, "take it from the installed server: export --server OUT.json");
  app.add_option("--system", options.System, "with --server, the system (default: all)")->type_name("NAME");
}

void CheckExport(TransferOptions& options) {
  if (options.Server && !options.To.empty()) throw CLI::ExcludesError("--server", "in");
  if (options.Server) options.To = std::exchange(options.From, "");
}

int Say(const common::Failure& failure) {
  std::cout.flush();
  std::cerr << "ostrel-form-wizard: " << support::Shown(failure.Message) << '\n';
  return failure.Status;
}

// What the parser itself has to say: a help text, the version, or what is wrong.
int EndOfParsing(const CLI::App& app, const CLI::ParseError& end) {
  std::ostringstream out;
  std::ostringstream wrong;
  if (app.exit(end, out, wrong) != 0) {
    return Say({WrongUsage, std::string(end.what()) + "; see \"ostrel-form-wizard --help\""});
  }
  std::cout << out.str();
  common::FlushOutput();
  return Done;
}

int Run(int argc, char** argv, Command& command) {
  CLI::App app("Creates complete Visual Basic 6 forms for the persistent classes of an Ostrel system.",
               "ostrel-form-wizard");
  app.set_version_flag("--version", "ostrel-form-wizard " FORMWIZARD_VERSION);
  app.require_subcommand(1);
  app.footer(
      "Exit status: 0 done, 1 a form is incomplete, --check found something to write or what came after saving\n"
      "failed, 2 wrong usage, 3 an input is missing or invalid, 4 saving failed and nothing was changed.");

  GenerateOptions generate;
  BrowseOptions browse;
  TransferOptions transfer;

  CLI::App& generateApp = *app.add_subcommand("generate", "create forms in a project");
  AddGenerate(generateApp, generate);
  generateApp.callback([&] {
    const bool saves = (!generate.DryRun && !generate.Check) || !generate.Journal.empty();
    command = {[&] { return Generate(generate); }, generate.Project, saves};
  });

  const auto addBrowse = [&](const char* name, const char* about, bool needsClass, auto list) -> CLI::App& {
    CLI::App& sub = *app.add_subcommand(name, about);
    AddBrowse(sub, browse, needsClass);
    sub.callback([&, list] {
      if (browse.Dictionary.empty() && !browse.Server) throw CLI::RequiredError("--dictionary or --server");
      command = {[&, list] { return list(browse); }, browse.Dictionary};
    });
    return sub;
  };
  addBrowse("systems", "list the systems of a dictionary", false, ListSystems);
  addBrowse("classes", "list the classes that a form can be made for", false, ListClasses)
      .add_flag("--all", browse.All, "system and not persistent classes too");
  addBrowse("properties", "list the properties of a class", true, ListProperties);
  addBrowse("queries", "list the queries of a class", true, ListQueries);

  CLI::App& dictionary = *app.add_subcommand("dictionary", "make a dictionary from JSON, or JSON from a dictionary");
  dictionary.require_subcommand(1);
  for (const bool isImport : {true, false}) {
    CLI::App& sub =
        *dictionary.add_subcommand(isImport ? "import" : "export", isImport ? "IN.json OUT" : "IN OUT.json");
    AddFile(sub, "in", transfer.From, "what to read; \"-\" for standard input of an import")->required();
    AddFile(sub, "out", transfer.To, "what to write; \"-\" for standard output of an export");
    sub.add_flag("--force", transfer.Force, "replace the file also when it is something else");
    if (!isImport && common::CanHaveServer()) AddServerToExport(sub, transfer);
    sub.callback([&, isImport] {
      CheckExport(transfer);
      if (transfer.To.empty()) throw CLI::RequiredError("out");
      command = {[&, isImport] { return isImport ? Import(transfer) : Export(transfer); }, transfer.From,
                 isImport || transfer.To != "-"};
    });
  }

  try {
    std::vector<std::string> arguments = common::Arguments(argc, argv);
    std::ranges::reverse(arguments);  // as the parser wants them
    app.parse(std::move(arguments));
  } catch (const CLI::ParseError& end) {
    return EndOfParsing(app, end);
  }
  // A listing ends quietly with whoever reads it, as listings do; a command that saves says how it ended.
  if (command.Saves) common::SurviveFailedWrites();
  const int status = command.Do();
  common::FlushOutput();
  return status;
}

}  // namespace

// Without memory to say so, the program ends as the run-time library ends it.
int main(int argc, char** argv) {  // NOLINT(bugprone-exception-escape)
  const std::shared_ptr<void> streams = common::UseStandardStreams();
  std::ios::sync_with_stdio(false);
  Command command;
  try {
    return Run(argc, argv, command);
  } catch (...) {
    return Say(common::CurrentFailure(command.Subject));
  }
}
