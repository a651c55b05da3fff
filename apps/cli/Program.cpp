#include "apps/cli/Program.h"

#include "apps/cli/Commands.h"
#include "apps/cli/HeldOutput.h"
#include "apps/cli/UsageErrors.h"
#include "apps/common/Endings.h"
#include "apps/common/Interruption.h"
#include "apps/common/Platform.h"
#include "support/Messages.h"

#include <CLI/CLI.hpp>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <array>
#include <cctype>
#include <iostream>
#include <memory>
#include <optional>
#include <sstream>
#include <utility>

namespace formwizard::apps::cli {
namespace {

struct Command {
  const char* Name;
  const char* About;
  AddOptions* Add;
};

// In the order of the help text.
constexpr std::array<Command, 16> Commands{{
    {"generate", "create forms in a project", AddGenerate},
    {"keep", "take up a form, so that it can be updated when its class changes", AddKeep},
    {"status", "say which kept forms were edited and which their classes have left behind", AddStatus},
    {"update", "bring kept forms up to their classes, with what was edited", AddUpdate},
    {"undo", "take back what the last run replaced in a project", AddUndo},
    {"wizard", "open the wizard's dialogs over a project", AddWizard},
    {"systems", "list the systems of a dictionary", AddSystems},
    {"classes", "list the classes that a form can be made for", AddClasses},
    {"properties", "list the properties of a class that forms can show", AddProperties},
    {"queries", "list the queries of a class", AddQueries},
    {"dictionary", "make a dictionary from JSON or JSON from a dictionary, compare two", AddDictionary},
    {"compare", "say what differs between two files as Visual Basic sees them", AddCompare},
    {"merge", "merge what two sides made of one file", AddMerge},
    {"lint", "say what Visual Basic would refuse, lose or mangle in files or a project", AddLint},
    {"render", "draw a form into a picture (needs the desktop program)", AddRender},
    {"doctor", "look at the installation and say what mends it", AddDoctor},
}};

// Its options are made when the command line names it: those of all commands are a tenth of a short run.
void AddCommand(CLI::App& program, const Command& command, Task& task) {
  CLI::App& named = *program.add_subcommand(command.Name, command.About);
  named.preparse_callback([&named, &task, add = command.Add](std::size_t) { add(named, task); });
}

// The help of a command begins with what the list of commands says about it, as a sentence.
class HelpFormatter : public CLI::Formatter {
 public:
  HelpFormatter() {
    label("SUBCOMMAND", "COMMAND");
    label("Positionals", "Arguments");
  }

  std::string make_description(const CLI::App* command) const override {
    std::string text = command->get_description();
    text.front() = static_cast<char>(std::toupper(static_cast<unsigned char>(text.front())));
    return text + (text.ends_with('.') ? "\n" : ".\n");
  }
};

bool WantsJson(const std::vector<std::string>& arguments) {
  return std::find(arguments.begin(), std::ranges::find(arguments, "--"), "--json") !=
         std::ranges::find(arguments, "--");
}

// For people, and for a program that expects JSON.
int Say(const common::Failure& failure, bool isJson) {
  std::cout.flush();
  std::cerr << "ostrel-form-wizard: " << support::Shown(failure.Message) << '\n';
  if (isJson) {
    const nlohmann::ordered_json error{
        {"error", {{"status", static_cast<int>(failure.Status)}, {"message", failure.Message}}}};
    std::cout << error.dump(2, ' ', false, nlohmann::json::error_handler_t::replace) << '\n' << std::flush;
  }
  return failure.Status;
}

// What the parser itself has to say: a help text, the version, or what is wrong.
int EndOfParsing(const CLI::App& app, const CLI::ParseError& end, bool isJson) {
  std::ostringstream out;
  std::ostringstream wrong;
  if (app.exit(end, out, wrong) != 0) {
    return Say({common::WrongUsage, Explained(app, end)}, isJson);
  }
  std::cout << out.str();
  common::FlushOutput();
  return common::Done;
}

// Sets the task; the exit status when there is none.
std::optional<int> Parse(std::vector<std::string> arguments, Task& task) {
  CLI::App app("Creates complete Visual Basic 6 forms for the persistent classes of an Ostrel system.",
               "ostrel-form-wizard");
  app.set_help_flag("-h,--help", "show this help");
  app.set_version_flag("--version", "ostrel-form-wizard " FORMWIZARD_VERSION, "show the version");
  app.formatter(std::make_shared<HelpFormatter>());
  app.group("Commands");
  app.require_subcommand(1);
  app.footer(
      "Exit status: 0 done, 1 something differs, is outdated, in conflict or at fault, 2 wrong usage, 3 an input is "
      "missing\n"
      "or invalid, 4 saving failed and nothing was changed, 5 a form is incomplete, the wizard was cancelled or what\n"
      "came after saving failed.");
  for (const Command& command : Commands) AddCommand(app, command, task);
  const bool isJson = WantsJson(arguments);
  try {
    std::ranges::reverse(arguments);  // as the parser wants them
    app.parse(std::move(arguments));
  } catch (const CLI::ParseError& end) {
    return EndOfParsing(app, end, isJson);
  }
  return std::nullopt;
}

// One document of JSON is printed when it is whole. What a command that saves prints, it prints when it has saved.
int Do(const Task& task, bool isJson) {
  if (!isJson || task.Saves) return task.Do();
  HeldOutput held;
  const int status = task.Do();
  held.Release();
  return status;
}

int Run(std::vector<std::string> arguments, Task& task, bool isJson) {
  // The parser, which keeps a copy of every argument, is gone before the work begins.
  if (const std::optional<int> ended = Parse(std::move(arguments), task)) return *ended;
  // A listing ends quietly with whoever reads it, as listings do; a command that saves says how it ended.
  if (task.Saves) common::SurviveFailedWrites();
  if (task.Stops) common::KeepInterruptions();
  const int status = Do(task, isJson);
  common::FlushOutput();
  common::CheckInterrupted();  // it came too late to stop the work, and ends the program nevertheless
  return status;
}

}  // namespace

int RunProgram(const std::function<std::vector<std::string>()>& arguments) {
  Task task;
  bool isJson = false;
  try {
    std::vector<std::string> given = arguments();
    isJson = WantsJson(given);
    return Run(std::move(given), task, isJson);
  } catch (const common::Interrupted& interrupted) {
    std::cout.flush();
    return common::EndInterrupted(interrupted);
  } catch (...) {
    return Say(common::CurrentFailure(task.Subject), isJson);
  }
}

}  // namespace formwizard::apps::cli
