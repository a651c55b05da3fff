#include "apps/desktop/kept/NewForms.h"

#include "apps/desktop/preview/ScratchFiles.h"
#include "apps/forms/KeptForms.h"
#include "support/Failures.h"
#include "wizard/frmWizard.h"

#include <utility>

namespace formwizard::apps::desktop {
namespace {

namespace vb6files = adapters::vb6files;
using vb6files::FileChange;

struct Finished {
  std::string File;
  kept::FormTexts Texts;
};

// The forms by their names. The .frx comes behind its form.
std::map<std::string, Finished> FormsIn(const std::vector<FileChange>& changes, const system::CodePage& codePage) {
  std::map<std::string, Finished> forms;
  Finished* last = nullptr;
  for (const FileChange& change : changes) {
    if (change.Path.ends_with(".frm") && change.New) {
      last = &forms[codePage.Decode(vb6files::NameInForm(*change.New))];
      *last = {change.Path, {*change.New, ""}};
    } else if (last && change.Path.ends_with(".frx")) {
      last->Texts.Frx = change.New.value_or("");
    }
  }
  return forms;
}

// Made as a new form or as one that the project had before, whichever is nearer to what it is. A second form of one run
// of the program has another tab order than a first one; what differs counts as edited.
forms::Remade MadeAgain(const forms::FormDescription& choices, const Finished& form,
                        const vb6files::ProjectOnDisk& project, const NewForms::Maker& maker) {
  const ScratchFiles frm(system::RealFileSystem(), form.File, form.Texts.Frm);
  ScratchFiles files(frm, form.File.substr(0, form.File.size() - 1) + "x", form.Texts.Frx);
  forms::Remake remake(files, maker.Dictionary, maker.Program);
  const auto made = [&](bool isReused) {
    return remake.Make(choices,
                       {form.File, form.Texts, isReused, project.ObjectLines(), project.ProjectCodePage().Number()});
  };
  const auto differences = [&](const forms::Remade& remade) {
    return kept::DifferencesOf(remade.Form, form.Texts).size();
  };
  forms::Remade anew = made(false);
  if (differences(anew) == 0) return anew;
  forms::Remade again = made(true);
  return differences(again) < differences(anew) ? std::move(again) : std::move(anew);
}

}  // namespace

std::vector<NewForms::NotKept> NewForms::PutInto(vb6files::ProjectOnDisk& project,
                                                 const std::vector<FileChange>& finished, const Maker& maker) const {
  std::vector<NotKept> notKept;
  if (choices_.empty()) return notKept;
  const forms::KeptFolder folder(system::RealFileSystem(), project.Path());
  for (const auto& [name, form] : FormsIn(finished, project.ProjectCodePage())) {
    const auto choices = choices_.find(name);
    if (choices == choices_.end()) continue;
    try {
      const forms::Remade remade = MadeAgain(choices->second, form, project, maker);
      forms::PutKeptTexts(project, folder, name, remade.Description.value(), remade.Form, folder.Read(name));
    } catch (const support::InputError& error) {
      notKept.push_back({name, error.what()});
    }
  }
  return notKept;
}

void SystemWatcher::Closed(ui::Form& form) {
  if (auto* dialog = dynamic_cast<wizard::frmWizard*>(&form)) {
    const ui::Node* chosen = dialog->tvwConnection.SelectedItem.Get();
    system_ = chosen ? chosen->Text.Get() : "";
  }
  next_.Closed(form);
}

}  // namespace formwizard::apps::desktop
