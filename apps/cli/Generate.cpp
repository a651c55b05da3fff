#include "adapters/journal/Journal.h"
#include "adapters/vb6files/ProjectOnDisk.h"
#include "apps/cli/Commands.h"
#include "apps/cli/ConsoleDesktop.h"
#include "apps/cli/DescriptionFiles.h"
#include "apps/cli/Difference.h"
#include "apps/cli/Findings.h"
#include "apps/cli/JournalFile.h"
#include "apps/cli/Progress.h"
#include "apps/cli/ProjectOptions.h"
#include "apps/cli/Spool.h"
#include "apps/cli/Summary.h"
#include "apps/common/Endings.h"
#include "apps/common/Interruption.h"
#include "apps/common/Paths.h"
#include "apps/common/Platform.h"
#include "apps/forms/FormDescription.h"
#include "apps/forms/FormName.h"
#include "apps/forms/KeptDescription.h"
#include "apps/forms/KeptForms.h"
#include "apps/forms/Workshop.h"
#include "generator/Generation.h"
#include "support/Failures.h"
#include "support/Messages.h"
#include "system/FileSystem.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <iostream>
#include <iterator>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace formwizard::apps::cli {
namespace {

namespace vb6files = adapters::vb6files;
using common::Done;
using common::Incomplete;
using common::UsageError;
using forms::FormDescription;
using forms::SettingTexts;

struct GenerateOptions : ProjectOptions {
  std::string Class, System, Journal, DescriptionsFrom;
  std::vector<std::string> Fields, Settings, Descriptions;
  bool DryRun = false, Diff = false, Check = false, Json = false, Force = false, Keep = false;
  Verbosity Tells;
};

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

// One run: everything that the wizard is given, and the forms that it makes one after the other. What a run that saves
// has to report is printed when it has saved.
class Run {
 public:
  explicit Run(const GenerateOptions& options)
      : options_(options),
        writes_(!options.DryRun && !options.Check),
        settings_(SettingsFromOptions(options.Settings)),
        workshop_({options.Dictionary, options.Profile, true, options.Language, options.System}, desktop_),
        project_(system::RealFileSystem(), common::Resolved(options.Project), {options.CodePage, options.Toolbox}) {
    CheckToolbox(project_, options);
    project_.OnChange([this](vb6files::FileChange change) { Note(std::move(change)); }, !writes_);
    if (!options.Journal.empty()) {
      journal_.emplace(options.Journal, options.Force);
      journalled_ = adapters::journal::Journalled(project_, journal_->Out());
    }
    for (const std::string& warning : workshop_.CheckProfile()) Warn(warning);
    workshop_.WorkIn(journalled_ ? *journalled_ : static_cast<generator::ide::Vbe&>(project_));
  }

  void Make(const FormDescription& form) {
    CheckSurroundings(form);
    workshop_.Make(form, settings_, [&](const std::string& name, const std::string& caption) {
      if (options_.Check) project_.CompareNext(generator::FormStem(caption), generator::FirstLineOfCode(name));
      if (!options_.Check && !options_.AllowIncomplete) forms::CheckFormName(project_, form.Class, caption);
    });
    FinishForm(form, workshop_.State());
  }

  // The journal of a run that stops tells how far it came.
  void Stop() {
    try {
      KeepJournal();
    } catch (const support::SaveError& error) {
      Warn(error.what());
    }
  }

  int Save() {
    try {
      KeepJournal();
    } catch (const support::SaveError& error) {
      throw support::SaveError(std::string(error.what()) + "; nothing was written");
    }
    keepsTexts_ = true;
    project_.Save();
    return writes_ ? common::AfterSaving(options_.Project, [this] { return Finish(); }) : Finish();
  }

 private:
  void FinishForm(const FormDescription& form, const wizard::AddInState& state) {
    FormResult result;
    result.Failures = desktop_.TakeMessages();
    if (!state.NewComponent) {
      throw support::InputError(form.Source + ": no form was made; see the messages above");
    }
    result.Component = state.NewComponent->Name();
    if (!options_.Check && !options_.AllowIncomplete) {
      forms::CheckControlNames(project_, result.Component, form, state.Form);
    }
    if (!result.Failures.empty()) incomplete_ = true;
    if (const auto kept = project_.CodeKeptIn(result.Component)) {
      result.Notes.push_back(vb6files::NoteOn(result.Component, *kept));
    }
    const bool isReused = project_.IsReused(result.Component);
    const bool looks = !options_.Check && project_.IsWorthALook(result.Component);
    keepsTexts_ = looks;
    project_.FinishForms();
    if (looks) AddFindings(result.Notes);
    Tell(result.Notes);
    if (options_.Keep) Keep(form, result.Component, isReused);
    result.Files = ReportChanges();
    if (options_.Json) {
      summary_.Add(result, state.Form, state.Settings, workshop_.Measure());
    } else if (!options_.Diff && !options_.Tells.Quiet) {
      report_.Add(LineOf(result, state.Form));
      if (options_.Tells.Verbose) report_.Add(FieldLinesOf(state.Form));
    }
    if (!writes_) PrintReport();
  }

  // What a description says of all the run, it says to be made as it was. The command line wins.
  void CheckSurroundings(const FormDescription& form) {
    if (form.CodePage && form.CodePage->Value != options_.CodePage) {
      const std::string number = std::to_string(form.CodePage->Value);
      throw support::InputError(form.CodePage->Where.Text() + ": the form is described for code page " + number +
                                ", and this run is in " + std::to_string(options_.CodePage) + "; give --code-page " +
                                number + ", or take the member out");
    }
    if (!form.Language) return;
    const std::string& language = workshop_.Language();
    if (options_.Language.empty() && form.Language->Value != language) {
      throw support::InputError(form.Language->Where.Text() + ": the form is described for language " +
                                form.Language->Value + ", and this run is in " + language + "; give --language " +
                                form.Language->Value + ", or take the member out");
    }
  }

  // What was announced last are the files of the form.
  void Keep(const FormDescription& form, const std::string& name, bool isReused) {
    kept::FormTexts made;
    for (const vb6files::FileChange& change : changes_) {
      (change.Path.ends_with('m') ? made.Frm : made.Frx) = change.New.value_or("");
    }
    FormDescription description =
        forms::KeptDescription(form, made, workshop_, {FORMWIZARD_VERSION, options_.CodePage, isReused});
    if (isReused) {
      forms::Remake again(system::RealFileSystem(), options_.Dictionary, FORMWIZARD_VERSION);
      description.Made->IsReused =
          !again.IsLikeNew(description, {changes_.front().Path, made, true, project_.ObjectLines(), options_.CodePage});
    }
    forms::PutKeptTexts(project_, kept_, name, description, made, kept_.Read(name));
  }

  // In what changed since the last report.
  void AddFindings(std::vector<std::string>& notes) const {
    std::ranges::move(FindingsIn(changes_, project_), std::back_inserter(notes));
  }

  void Tell(const std::vector<std::string>& notes) const {
    if (options_.Tells.Quiet) return;
    for (const std::string& note : notes) std::cerr << "ostrel-form-wizard: note: " << support::Shown(note) << '\n';
  }

  // Texts are kept to be looked at only.
  void Note(vb6files::FileChange change) {
    for (std::optional<std::string>* text : {&change.Old, &change.New}) {
      if (!options_.Diff && !options_.Check && !options_.Keep && !keepsTexts_ && *text) *text = std::string();
    }
    changes_.push_back(std::move(change));
  }

  // What becomes of each file that changed since the last call; their names.
  std::vector<std::string> ReportChanges() {
    std::vector<std::string> files;
    for (const vb6files::FileChange& change : std::exchange(changes_, {})) {
      files.push_back(change.Path);
      if (options_.Diff) {
        report_.Add(DiffOf(change));
      } else if (options_.Check) {
        ReportDifference(FirstDifference(change, project_.ProjectCodePage()));
      } else if (!options_.Json && !options_.Tells.Quiet) {
        report_.Add(LineOf(change, writes_));
      }
    }
    if (!files.empty()) changesFiles_ = true;
    if (options_.Json) summary_.AddFiles(files);
    return files;
  }

  void ReportDifference(const Difference& difference) {
    if (options_.Json) {
      summary_.Add(difference);
    } else if (!options_.Tells.Quiet) {
      report_.Add(LineOf(difference));
    }
  }

  void PrintReport() { report_.PrintTo(std::cout); }

  int Finish() {
    std::vector<std::string> notes = project_.MissingFiles();
    if (!options_.Check) AddFindings(notes);
    Tell(notes);
    ReportChanges();
    if (writes_ && !workshop_.StoreProfile()) {
      Warn(workshop_.ProfileFile() +
           ": the settings cannot be written, so that the system is not remembered; the project is saved");
    }
    PrintReport();
    if (options_.Json) summary_.PrintTo(std::cout, warnings_, notes, options_.Project);
    common::FlushOutput();
    if (incomplete_) return Incomplete;
    return options_.Check && changesFiles_ ? common::Differs : Done;
  }

  void KeepJournal() {
    if (journal_) journal_->Keep();
  }

  void Warn(const std::string& message) {
    if (!options_.Tells.Quiet) std::cerr << "ostrel-form-wizard: warning: " << support::Shown(message) << '\n';
    warnings_.push_back(message);
  }

  const GenerateOptions& options_;
  bool writes_;
  SettingTexts settings_;  // of the command line, which wins
  ConsoleDesktop desktop_;
  forms::Workshop workshop_;
  vb6files::ProjectOnDisk project_;
  forms::KeptFolder kept_{system::RealFileSystem(), project_.Path()};
  std::optional<JournalFile> journal_;
  std::unique_ptr<generator::ide::Vbe> journalled_;
  std::vector<vb6files::FileChange> changes_;  // that are not reported yet
  Spool report_;                               // that is not printed yet
  Summary summary_;
  std::vector<std::string> warnings_;
  bool changesFiles_ = false;
  bool incomplete_ = false;
  bool keepsTexts_ = false;
};

// The name of a description is not needed any longer than the description itself.
void MakeAll(Run& run, GenerateOptions& options) {
  if (options.Descriptions.empty()) run.Make(DescriptionFromOptions(options));
  const bool prints = options.DryRun || options.Check;
  Progress progress(std::cerr, "making forms", ShowsProgress(options.Tells.Quiet, prints));
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
  Run run(options);
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

}  // namespace

void AddGenerate(CLI::App& command, Task& task) {
  const auto options = std::make_shared<GenerateOptions>();
  Declare(command, *options);
  command.callback([&task, options] {
    const bool saves = (!options->DryRun && !options->Check) || !options->Journal.empty();
    const auto generate = [options] {
      options->Descriptions =
          DescriptionFiles(common::FilesMeant(std::move(options->Descriptions)), options->DescriptionsFrom);
      return Generate(*options);
    };
    task = {generate, options->Project, saves, true};
  });
}

}  // namespace formwizard::apps::cli
