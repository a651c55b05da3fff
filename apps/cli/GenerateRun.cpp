#include "apps/cli/GenerateRun.h"

#include "adapters/journal/Journal.h"
#include "apps/common/Endings.h"
#include "apps/common/Paths.h"
#include "apps/forms/FormName.h"
#include "apps/forms/KeptDescription.h"
#include "apps/forms/KeptForms.h"
#include "apps/forms/Remake.h"
#include "generator/Generation.h"
#include "support/Failures.h"
#include "system/FileSystem.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace formwizard::apps::cli {

namespace vb6files = adapters::vb6files;
using forms::FormDescription;

GenerateRun::GenerateRun(const GenerateOptions& options)
    : options_(options),
      settings_(SettingsFromOptions(options.Settings)),
      workshop_({options.Dictionary, options.Profile, true, options.Language, options.System}, desktop_),
      project_(system::RealFileSystem(), common::Resolved(options.Project), {options.CodePage, options.Toolbox}) {
  CheckToolbox(project_, options);
  project_.OnChange([this](vb6files::FileChange change) { report_.Note(std::move(change)); }, !options.Writes());
  if (!options.Journal.empty()) {
    journal_.emplace(options.Journal, options.Force);
    journalled_ = adapters::journal::Journalled(project_, journal_->Out());
  }
  for (const std::string& warning : workshop_.CheckProfile()) report_.Warn(warning);
  workshop_.WorkIn(journalled_ ? *journalled_ : static_cast<generator::ide::Vbe&>(project_));
}

void GenerateRun::Make(const FormDescription& form) {
  CheckSurroundings(form);
  workshop_.Make(form, settings_, [&](const std::string& name, const std::string& caption) {
    if (options_.Check) project_.CompareNext(generator::FormStem(caption), generator::FirstLineOfCode(name));
    if (!options_.Check && !options_.AllowIncomplete) forms::CheckFormName(project_, form.Class, caption);
  });
  FinishForm(form, workshop_.State());
}

void GenerateRun::Stop() {
  try {
    KeepJournal();
  } catch (const support::SaveError& error) {
    report_.Warn(error.what());
  }
}

int GenerateRun::Save() {
  try {
    KeepJournal();
  } catch (const support::SaveError& error) {
    throw support::SaveError(std::string(error.what()) + "; nothing was written");
  }
  report_.KeepTexts(true);
  project_.Save();
  return options_.Writes() ? common::AfterSaving(options_.Project, [this] { return Finish(); }) : Finish();
}

void GenerateRun::FinishForm(const FormDescription& form, const wizard::AddInState& state) {
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
  report_.KeepTexts(looks);
  project_.FinishForms();
  if (looks) std::ranges::move(report_.Findings(), std::back_inserter(result.Notes));
  report_.Tell(result.Notes);
  if (options_.Keep) Keep(form, result.Component, isReused);
  report_.Add(std::move(result), state.Form, state.Settings, workshop_.Measure());
}

// What a description says of all the run, it says to be made as it was. The command line wins.
void GenerateRun::CheckSurroundings(const forms::FormDescription& form) {
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
void GenerateRun::Keep(const forms::FormDescription& form, const std::string& name, bool isReused) {
  kept::FormTexts made;
  for (const vb6files::FileChange& change : report_.Changes()) {
    (change.Path.ends_with('m') ? made.Frm : made.Frx) = change.New.value_or("");
  }
  FormDescription description =
      forms::KeptDescription(form, made, workshop_, {FORMWIZARD_VERSION, options_.CodePage, isReused});
  if (isReused) {
    forms::Remake again(system::RealFileSystem(), options_.Dictionary, FORMWIZARD_VERSION);
    description.Made->IsReused = !again.IsLikeNew(
        description, {report_.Changes().front().Path, made, true, project_.ObjectLines(), options_.CodePage});
  }
  forms::PutKeptTexts(project_, kept_, name, description, made, kept_.Read(name));
}

void GenerateRun::KeepJournal() {
  if (journal_) journal_->Keep();
}

int GenerateRun::Finish() {
  report_.AddProject();
  if (options_.Writes() && !workshop_.StoreProfile()) {
    report_.Warn(workshop_.ProfileFile() +
                 ": the settings cannot be written, so that the system is not remembered; the project is saved");
  }
  report_.Print();
  common::FlushOutput();
  if (incomplete_) return common::Incomplete;
  return options_.Check && report_.ChangesFiles() ? common::Differs : common::Done;
}

}  // namespace formwizard::apps::cli
