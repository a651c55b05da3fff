#include "adapters/journal/Journal.h"
#include "adapters/sqlite/Dictionary.h"
#include "adapters/textmeasure/BuiltInTextMeasure.h"
#include "adapters/vb6files/ProjectOnDisk.h"
#include "apps/cli/ConsoleDesktop.h"
#include "apps/cli/Options.h"
#include "apps/cli/RunProfile.h"
#include "apps/cli/Summary.h"
#include "apps/cli/UnifiedDiff.h"
#include "apps/cli/WizardUser.h"
#include "apps/common/Paths.h"
#include "apps/common/Platform.h"
#include "settings/Profile.h"
#include "support/Failures.h"

#include <nlohmann/json.hpp>

#include <fstream>
#include <iostream>
#include <memory>
#include <utility>

namespace formwizard::apps::cli {
namespace {

namespace vb6files = adapters::vb6files;
using Json = nlohmann::ordered_json;

SettingTexts SettingsFromOptions(const std::vector<std::string>& settings) {
  SettingTexts texts;
  for (const std::string& setting : settings) {
    const std::size_t equals = setting.find('=');
    if (equals == std::string::npos) throw UsageError("--set " + setting + ": expected KEY=VALUE");
    const std::string key = setting.substr(0, equals);
    texts[key] = setting.substr(equals + 1);
    try {
      CheckSetting("--set " + setting, key, texts[key]);
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
    throw UsageError("give --class and --fields, or one or more form descriptions");
  }
  if (byOptions && (options.Class.empty() || options.Fields.empty())) {
    throw UsageError("--class and --fields belong together");
  }
}

FormDescription DescriptionFromOptions(const GenerateOptions& options) {
  FormDescription form;
  form.Source = "--class " + options.Class;
  form.Class = options.Class;
  for (const std::string& property : options.Fields) form.Fields.push_back({property, {}, {}, {}, {}, {}});
  return form;
}

// Says what becomes of each file, and keeps the names for the summary.
class FileReport {
 public:
  explicit FileReport(const GenerateOptions& options) : options_(options) {}

  void operator()(const vb6files::FileChange& change) {
    ++Count;
    Files.push_back(change.Path);
    if (options_.Diff) {
      std::cout << UnifiedDiff(change.Old ? change.Path : "/dev/null", change.Old.value_or(""), change.Path,
                               change.New);
    } else if (!options_.Json) {
      const bool writes = !options_.DryRun && !options_.Check;
      std::cout << (writes ? "writing " : "would write ") << change.Path << '\n';
    }
  }

  std::vector<std::string> Files;  // since the last form
  int Count = 0;

 private:
  const GenerateOptions& options_;
};

// One run: everything that the wizard is given, and the forms that it makes one after the other.
class Run {
 public:
  explicit Run(const GenerateOptions& options)
      : options_(options),
        files_(options),
        writes_(!options.DryRun && !options.Check),
        settings_(SettingsFromOptions(options.Settings)),
        profileFile_(options.Profile.empty() ? common::DefaultProfile() : options.Profile),
        profile_(*profiles_, !writes_),
        server_(adapters::sqlite::OpenDictionary(options.Dictionary)),
        project_(vb6files::RealFileSystem(), common::Resolved(options.Project), {options.CodePage, options.Toolbox}) {
    project_.OnChange([this](const vb6files::FileChange& change) { files_(change); }, !writes_);
    if (!options.Journal.empty()) OpenJournal();
    CheckProfile();
  }

  void Make(const FormDescription& form) {
    SettingTexts settings = form.Settings;
    for (const auto& [key, value] : settings_) settings[key] = value;  // the command line wins
    profile_.Override(settings);
    {
      // As by a freshly loaded add-in: a form comes out the same alone and in a batch.
      wizard::WizardServices services({.Desktop = desktop_,
                                       .Measure = measure_,
                                       .Profiles = profile_,
                                       .Factories = *server_,
                                       .Libraries = *satellites_,
                                       .ProfileFile = profileFile_,
                                       .ProgramFolder = common::ProgramFolder(),
                                       .Language = options_.Language});
      wizard::frmWizard dialog(services, Environment());
      WalkThrough(dialog, options_.System, form);
      dialog.Unload();
      FinishForm(form, services.State);
    }
    if (options_.Journal.empty()) return;
    if (!journal_.flush()) throw support::SaveError(options_.Journal + ": writing the journal failed");
  }

  int Save() {
    project_.Save();
    if (options_.Json) {
      summary_["project"] = options_.Project;
      allFiles_.insert(allFiles_.end(), files_.Files.begin(), files_.Files.end());
      summary_["files"] = allFiles_;
      std::cout << summary_.dump(2, ' ', false, Json::error_handler_t::replace) << '\n';
    }
    if (incomplete_) return Incomplete;
    return options_.Check && files_.Count > 0 ? Incomplete : Done;
  }

 private:
  generator::ide::Vbe& Environment() {
    return journalled_ ? *journalled_ : static_cast<generator::ide::Vbe&>(project_);
  }

  void OpenJournal() {
    journal_.open(common::NativePath(options_.Journal), std::ios::binary | std::ios::trunc);
    if (!journal_) throw support::SaveError(options_.Journal + ": the journal cannot be created");
    journalled_ = adapters::journal::Journalled(project_, journal_);
  }

  // A profile that the wizard would stumble over is an input like any other.
  void CheckProfile() {
    for (const settings::SettingKey& key : settings::SettingKeys()) {
      std::string standard(key.Default);
      std::size_t size = 0;
      const std::string value =
          settings::ReadProfile(profile_, settings::ProfileSection, key.Key, standard, profileFile_, size);
      CheckSetting(profileFile_ + ": [" + std::string(settings::ProfileSection) + "]", std::string(key.Key), value);
    }
  }

  void FinishForm(const FormDescription& form, const wizard::AddInState& state) {
    FormResult result;
    result.Failures = desktop_.TakeMessages();
    if (!state.NewComponent) {
      throw support::InputError(form.Source + ": no form was made; see the messages above");
    }
    result.Component = state.NewComponent->Name();
    if (!result.Failures.empty()) incomplete_ = true;
    project_.FinishForms();
    result.Files = std::exchange(files_.Files, {});
    if (options_.Json) {
      summary_["forms"].push_back(Described(result, state.Form, state.Settings, measure_));
      allFiles_.insert(allFiles_.end(), result.Files.begin(), result.Files.end());
    } else if (!options_.Diff) {
      std::cout << result.Component << ": " << state.Form.SelectedFields.UpperBound().Value() << " fields of "
                << form.Class << (result.Failures.empty() ? "" : ", incomplete") << '\n';
    }
  }

  const GenerateOptions& options_;
  FileReport files_;
  bool writes_;
  SettingTexts settings_;
  std::string profileFile_;
  std::unique_ptr<settings::ProfileStore> profiles_ = common::PlatformProfile();
  RunProfile profile_;
  std::unique_ptr<support::ResourceLibraries> satellites_ = common::PlatformLibraries();
  adapters::textmeasure::BuiltInTextMeasure measure_;
  ConsoleDesktop desktop_;
  std::unique_ptr<wizard::factory::FactoryCreator> server_;
  vb6files::ProjectOnDisk project_;
  std::ofstream journal_;
  std::unique_ptr<generator::ide::Vbe> journalled_;
  Json summary_{{"forms", Json::array()}};
  std::vector<std::string> allFiles_;
  bool incomplete_ = false;
};

}  // namespace

int Generate(const GenerateOptions& options) {
  CheckUsage(options);
  Run run(options);
  if (options.Descriptions.empty()) run.Make(DescriptionFromOptions(options));
  for (const std::string& file : options.Descriptions) run.Make(ReadFormDescription(file));
  return run.Save();
}

}  // namespace formwizard::apps::cli
