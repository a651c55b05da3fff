#include "apps/cli/GenerateOptions.h"

#include "apps/cli/JournalFile.h"
#include "apps/common/Endings.h"
#include "apps/forms/Workshop.h"
#include "support/Failures.h"

#include <CLI/CLI.hpp>

#include <memory>

namespace formwizard::apps::cli {

using common::UsageError;
using forms::FormDescription;
using forms::SettingTexts;

SettingTexts SettingsFromOptions(const std::vector<std::string>& settings) {
  SettingTexts texts;
  for (const std::string& setting : settings) {
    const std::size_t equals = setting.find('=');
    if (equals == std::string::npos) throw UsageError("--set " + setting + ": expected KEY=VALUE, such as Columns=2");
    const std::string key = setting.substr(0, equals);
    texts[key] = setting.substr(equals + 1);
    try {
      forms::CheckSetting("--set " + setting, key, texts[key]);
    } catch (const support::InputError& error) {
      throw UsageError(error.what());
    }
  }
  return texts;
}

void CheckUsage(const GenerateOptions& options) {
  const bool byOptions = !options.Class.empty() || !options.Fields.empty();
  if (byOptions && !options.Descriptions.empty()) {
    throw UsageError("give either --class and --fields or form descriptions, not both");
  }
  if (!byOptions && options.Descriptions.empty()) {
    throw UsageError(
        "no form is described; give --class NAME and --fields PROPERTIES, a form description (FORM.json) or "
        "--descriptions-from LIST");
  }
  if (byOptions && options.Class.empty()) {
    throw UsageError("--class is missing; give --class NAME, the class that the properties of --fields belong to");
  }
  if (byOptions && options.Fields.empty()) {
    throw UsageError(
        "--fields is missing; give --fields PROPERTIES, which \"ostrel-form-wizard properties\" lists for the class");
  }
  if (options.Json && options.Diff) throw UsageError("give --json or --diff, not both: a summary is one JSON document");
  if (options.Journal.empty()) return;
  std::vector<std::string> inputs = options.Descriptions;
  inputs.insert(inputs.end(),
                {options.Project, options.Dictionary, options.Toolbox, options.Profile, options.DescriptionsFrom});
  CheckJournal(options.Journal, inputs);
}

FormDescription DescriptionFromOptions(const GenerateOptions& options) {
  FormDescription form;
  form.Source = "--class " + options.Class;
  form.Class = {options.Class, {std::make_shared<const std::string>(form.Source)}};
  for (const std::string& property : options.Fields) {
    form.Fields.push_back(
        {{property, {std::make_shared<const std::string>("--fields " + property)}}, {}, {}, {}, {}, {}});
  }
  return form;
}

void Declare(CLI::App& command, GenerateOptions& options) {
  AddInputs(command, options);
  command.add_option("--system", options.System, "the system (default: the remembered one, else the first)")
      ->type_name("NAME");
  command.add_option("--class", options.Class, "the persistent class of the form")->type_name("NAME");
  command.add_option("--fields", options.Fields, "its properties in order, separated by commas: Name,Home.City")
      ->delimiter(',')
      ->allow_extra_args(false)
      ->type_name("PROPERTIES");
  command.add_option("--set", options.Settings, "a setting for this run, such as Columns=2; may be repeated")
      ->allow_extra_args(false)
      ->type_name("KEY=VALUE");
  AddSurroundings(command, options);
  AddDryRun(command, options.DryRun);
  AddDiff(command, options.Diff);
  command.add_flag("--check", options.Check,
                   "write nothing, exit with status 1 when the project differs from what would be made");
  command.add_flag("--keep", options.Keep, "keep descriptions and forms in PROJECT.forms, to update them later")
      ->excludes("--check");
  AddAllowIncomplete(command, options);
  AddFile(command, "--journal", options.Journal, "write every change to the project as a line of JSON");
  command.add_flag("--force", options.Force, "let the journal replace a file that is no journal");
  AddJson(command, options.Json, "summary");
  AddVerbosity(command, options.Tells, "show the fields of each form, too");
  AddStream(command, "--descriptions-from", options.DescriptionsFrom,
            "a list of form descriptions, one path a line, \"-\" for standard input");
  command
      .add_option("descriptions", options.Descriptions,
                  "form descriptions in JSON or folders of them, \"-\" for standard input")
      ->type_name("FORM.json")
      ->check(CheckedPath);
}

}  // namespace formwizard::apps::cli
