#include "adapters/vb6files/ProjectOnDisk.h"
#include "apps/cli/Commands.h"
#include "apps/cli/ProjectOptions.h"
#include "generator/ide/ActiveX.h"
#include "support/Failures.h"
#include "system/CodePage.h"
#include "system/Paths.h"

#include <CLI/CLI.hpp>

namespace formwizard::apps::cli {

CLI::Option* AddFile(CLI::App& command, const char* name, std::string& file, const char* about) {
  return AddStream(command, name, file, about)->check(NoStream);
}

CLI::Option* AddStream(CLI::App& command, const char* name, std::string& file, const char* about) {
  return command.add_option(name, file, about)->type_name("FILE")->check(CheckedPath);
}

std::string NoStream(const std::string& path) {
  if (path != "-") return "";
  return "this is a file that is read in any order or replaced as a whole, not standard input or output; name one, "
         "\"./-\" if it is called so";
}

std::string CheckedPath(const std::string& path) {
  system::CheckPath(path);
  return "";
}

void AddCodePage(CLI::App& command, int& codePage, const char* about) {
  command.add_option("--code-page", codePage, about)
      ->capture_default_str()
      ->type_name("N")
      ->check([](const std::string& text) -> std::string {
        int number = 0;
        if (!CLI::detail::lexical_cast(text, number)) return "";  // the parser says so
        try {
          system::CodePage{number};
        } catch (const support::InputError& error) {
          return error.what();
        }
        return "";
      });
}

CLI::Option* AddDryRun(CLI::App& command, bool& dryRun) {
  return command.add_flag("-n,--dry-run", dryRun, "write nothing, say what would be written");
}

CLI::Option* AddDiff(CLI::App& command, bool& diff) {
  return command.add_flag("--diff", diff, "show the changes of every file as a unified diff");
}

CLI::Option* AddJson(CLI::App& command, bool& json, const std::string& what) {
  return command.add_flag("--json", json, "show the " + what + " as JSON");
}

CLI::Option* AddQuiet(CLI::App& command, bool& quiet) {
  return command.add_flag("-q,--quiet", quiet, "say nothing but errors");
}

void AddVerbosity(CLI::App& command, Verbosity& verbosity, const char* aboutVerbose) {
  CLI::Option& quiet = *AddQuiet(command, verbosity.Quiet);
  command.add_flag("-v,--verbose", verbosity.Verbose, aboutVerbose)->excludes(&quiet);
}

void AddInputs(CLI::App& command, ProjectOptions& options) {
  AddFile(command, "--project", options.Project, "the VB6 project file (.vbp)")->required();
  AddFile(command, "--dictionary", options.Dictionary, "the class dictionary")->required();
}

void AddSurroundings(CLI::App& command, ProjectOptions& options) {
  AddCodePage(command, options.CodePage, "the Windows code page of the project's files");
  AddFile(command, "--toolbox", options.Toolbox,
          "a project (.vbp) that uses the query control, or a file of control libraries");
  AddFile(command, "--profile", options.Profile,
          "the settings file (default: outility.ini beside the program, else in the user's configuration folder)");
  command.add_option("--language", options.Language, "the language of the texts: DEU, de, de_DE or german")
      ->type_name("LANGUAGE");
}

void AddAllowIncomplete(CLI::App& command, ProjectOptions& options) {
  command.add_flag("--allow-incomplete", options.AllowIncomplete,
                   "make forms also without the query control or their name");
}

void CheckToolbox(const adapters::vb6files::ProjectOnDisk& project, const ProjectOptions& options) {
  if (options.AllowIncomplete) return;
  try {
    project.CheckToolboxKnows(generator::ide::Query.ProgId);
  } catch (const support::InputError& error) {
    throw support::InputError(std::string(error.what()) +
                              "; nothing was written (--allow-incomplete makes forms without it)");
  }
}

}  // namespace formwizard::apps::cli
