// Shows the dialogs as native windows over the project's files.
#include "adapters/journal/Journal.h"
#include "adapters/textmeasure/BuiltInTextMeasure.h"
#include "adapters/vb6files/ProjectOnDisk.h"
#include "adapters/win32/Win32Desktop.h"
#include "apps/cli/Commands.h"
#include "apps/cli/JournalFile.h"
#include "apps/cli/Summary.h"
#include "apps/cli/WizardProgram.h"
#include "apps/common/Dictionaries.h"
#include "apps/common/Endings.h"
#include "apps/common/Languages.h"
#include "apps/common/Paths.h"
#include "apps/common/Platform.h"
#include "apps/forms/FormName.h"
#include "apps/forms/RunProfile.h"
#include "support/Failures.h"
#include "support/Messages.h"
#include "wizard/frmWizard.h"

#include <CLI/CLI.hpp>

#include <iostream>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

namespace formwizard::apps::cli {
namespace {

namespace vb6files = adapters::vb6files;

// Keeps what its message boxes have said.
class Desktop : public adapters::win32::Win32Desktop {
 public:
  Desktop() : Win32Desktop(nullptr) {}
  ui::MessageAnswer ShowMessage(std::string_view text, int style, std::string_view title) override {
    messages_.emplace_back(text);
    return Win32Desktop::ShowMessage(text, style, title);
  }
  void ShowNote(const std::string& text) { ShowMessage(text, ui::OkOnly + ui::Information, support::ProductName); }
  void ShowProblem(const std::string& text) {
    ShowMessage(support::Shortened(text), ui::OkOnly + ui::Exclamation, support::ProductName);
  }
  // Since the last call.
  std::vector<std::string> TakeMessages() { return std::exchange(messages_, {}); }

 private:
  std::vector<std::string> messages_;
};

void Warn(const std::string& kind, const std::string& message) {
  std::cerr << "ostrel-form-wizard: " << kind << support::Shown(message) << '\n';
}

// The wizard, opened once over a project, and what comes of it.
class Run {
 public:
  Run(const WizardOptions& options, Desktop& desktop)
      : options_(options),
        desktop_(desktop),
        profileFile_(options.Profile.empty() ? common::DefaultProfile() : options.Profile),
        dictionary_(common::OpenDictionary(options.Dictionary)),
        project_(system::RealFileSystem(), common::Resolved(options.Project), {options.CodePage, options.Toolbox}) {
    CheckToolbox(project_, options);
    for (const std::string& warning : forms::WarningsOn(profileFile_, !options.Profile.empty()))
      Warn("warning: ", warning);
    for (const std::string& note : project_.MissingFiles()) Warn("note: ", note);
    const auto report = [this](const vb6files::FileChange& change) { report_ += LineOf(change, !options_.DryRun); };
    project_.OnChange(report, options.DryRun);
    if (options.Journal.empty()) return;
    journal_.emplace(options.Journal, options.Force);
    journalled_ = adapters::journal::Journalled(project_, journal_->Out());
  }

  int Show() {
    wizard::WizardServices services({.Desktop = desktop_,
                                     .Measure = measure_,
                                     .Profiles = profile_,
                                     .Factories = *dictionary_,
                                     .Libraries = *satellites_,
                                     .ProfileFile = profileFile_,
                                     .ProgramFolder = common::ProgramFolder(),
                                     .Language = common::LanguageMeant(options_.Language)});
    wizard::frmWizard dialog(services, journalled_ ? *journalled_ : static_cast<generator::ide::Vbe&>(project_));
    const bool isFinished = ShowUntilFinished(dialog);
    if (journal_) journal_->Keep();  // also one that tells how far a form came
    if (isFinished) return Save(services.State);
    StoreSettings();
    Warn("", options_.Project + ": no form was made; the project is as it was");
    return common::Incomplete;
  }

 private:
  // Whether the dialog was closed by a generation that came to its end, and not by the user. The messages since then
  // are what it has failed in.
  bool ShowUntilFinished(wizard::frmWizard& dialog) {
    bool isFinished = false;
    dialog.cmdFinish.OnClick = [&, finish = dialog.cmdFinish.OnClick] {
      if (!MayFinish(dialog)) return;
      desktop_.TakeMessages();
      finish();
      isFinished = dialog.IsUnloaded();
    };
    desktop_.ShowModal(dialog, nullptr);
    return isFinished;
  }

  // A form that cannot be called what it should is not made: the dialog stays, for another class.
  bool MayFinish(const wizard::frmWizard& dialog) {
    const ui::Node* const chosen = dialog.tvwClasses.SelectedItem.Get();
    if (options_.AllowIncomplete || !chosen) return true;
    const std::string problem = forms::ProblemOfFormName(project_, chosen->Tag, chosen->Text.Get());
    if (!problem.empty()) desktop_.ShowProblem(problem);
    return problem.empty();
  }

  int Save(const wizard::AddInState& state) {
    const FormResult result{state.NewComponent->Name(), {}, desktop_.TakeMessages(), {}};
    for (const std::string& failure : result.Failures) Warn("", failure);
    const auto kept = project_.CodeKeptIn(result.Component);
    project_.FinishForms();
    report_ += LineOf(result, state.Form);
    project_.Save();
    const auto tell = [&] {
      std::cout << report_;
      common::FlushOutput();
      StoreSettings();
      if (kept) TellOfKeptCode(vb6files::NoteOn(result.Component, *kept));
      return result.Failures.empty() ? common::Done : common::Incomplete;
    };
    return options_.DryRun ? tell() : common::AfterSaving(options_.Project, tell);
  }

  void TellOfKeptCode(const std::string& note) {
    Warn("note: ", note);
    desktop_.ShowNote(support::Shortened(note));
  }

  // What was set in the dialogs stays set, however they were closed.
  void StoreSettings() {
    if (options_.DryRun || profile_.Store()) return;
    Warn("warning: ", profileFile_ + ": the settings cannot be written, so that they are not remembered");
  }

  const WizardOptions& options_;
  Desktop& desktop_;
  std::string profileFile_;  // empty for none
  std::unique_ptr<settings::ProfileStore> profiles_ = common::PlatformProfile(profileFile_);
  forms::RunProfile profile_{*profiles_, profileFile_};
  std::unique_ptr<support::ResourceLibraries> satellites_ = common::PlatformLibraries();
  adapters::textmeasure::BuiltInTextMeasure measure_;
  std::unique_ptr<wizard::factory::FactoryCreator> dictionary_;
  vb6files::ProjectOnDisk project_;
  std::optional<JournalFile> journal_;
  std::unique_ptr<generator::ide::Vbe> journalled_;
  std::string report_;
};

}  // namespace

void AddDialogOptions(CLI::App& command, WizardOptions& options) {
  AddDryRun(command, options.DryRun);
  AddAllowIncomplete(command, options);
  AddFile(command, "--journal", options.Journal, "write every change to the project as a line of JSON");
  command.add_flag("--force", options.Force, "let the journal replace a file that is no journal");
}

int ShowWizard(const WizardOptions& options) {
  CheckJournal(options.Journal, {options.Project, options.Dictionary, options.Toolbox, options.Profile});
  Desktop desktop;
  try {
    return Run(options, desktop).Show();
  } catch (...) {
    // Whoever started the program by an icon sees no console afterwards.
    desktop.ShowProblem(common::CurrentFailure(options.Project).Message);
    throw;
  }
}

}  // namespace formwizard::apps::cli
