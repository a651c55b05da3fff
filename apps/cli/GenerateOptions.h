// What the command line says of a run that makes forms.
#pragma once

#include "apps/cli/Commands.h"
#include "apps/cli/ProjectOptions.h"
#include "apps/forms/FormDescription.h"

#include <string>
#include <vector>

namespace formwizard::apps::cli {

struct GenerateOptions : ProjectOptions {
  std::string Class, System, Journal, DescriptionsFrom;
  std::vector<std::string> Fields, Settings, Descriptions;
  bool DryRun = false, Diff = false, Check = false, Json = false, Force = false, Keep = false;
  Verbosity Tells;

  // Whether the project is saved.
  bool Writes() const { return !DryRun && !Check; }
};

void Declare(CLI::App& command, GenerateOptions& options);

// common::UsageError, with the remedy, for options that make no sense together.
void CheckUsage(const GenerateOptions& options);
// Those of --set. common::UsageError for what is no setting.
forms::SettingTexts SettingsFromOptions(const std::vector<std::string>& settings);
// The form of --class and --fields.
forms::FormDescription DescriptionFromOptions(const GenerateOptions& options);

}  // namespace formwizard::apps::cli
