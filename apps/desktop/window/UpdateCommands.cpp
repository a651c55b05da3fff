#include "apps/desktop/window/UpdateCommands.h"

#include "adapters/qt/Text.h"
#include "adapters/vb6files/SavePlace.h"
#include "adapters/vb6files/Undo.h"
#include "apps/desktop/basics/Days.h"
#include "apps/desktop/basics/Messages.h"
#include "apps/desktop/update/UpdateView.h"
#include "apps/forms/Offers.h"
#include "support/Failures.h"
#include "support/Messages.h"

#include <QApplication>
#include <QFileInfo>
#include <QLocale>

#include <utility>

namespace formwizard::apps::desktop {
namespace {

using adapters::qt::Text;
namespace vb6files = adapters::vb6files;

QString NameOf(const std::string& path) { return QFileInfo(Text(path)).fileName(); }

class WaitCursor {
 public:
  WaitCursor() { QApplication::setOverrideCursor(Qt::WaitCursor); }
  ~WaitCursor() { QApplication::restoreOverrideCursor(); }
  WaitCursor(const WaitCursor&) = delete;
  WaitCursor& operator=(const WaitCursor&) = delete;
};

QString KeptFolderOf(const std::string& project) {
  return Text(vb6files::SavePlace(system::RealFileSystem(), project).KeptFolder);
}

QString TitleOf(QString command) {
  command.remove('&');
  return command.endsWith("...") ? command.chopped(3) : command;
}

}  // namespace

UpdateCommands::UpdateCommands(const Parts& parts) : parts_(parts), texts_(parts.Words) {
  parts_.Commands.On(Command::UpdateForm, [this] { UpdateChosen(); });
  parts_.Commands.On(Command::UpdateAllForms, [this] { UpdateAll(); });
  parts_.Commands.On(Command::UndoLastUpdate, [this] { UndoLast(); });
}

void UpdateCommands::Enable() {
  const auto* project = parts_.Project.Project();
  const ProjectModel::Component* chosen = project ? parts_.Tree.Chosen() : nullptr;
  parts_.Commands.Enable(Command::UpdateForm, chosen && chosen->IsForm && parts_.States.IsKept(chosen->Name));
  parts_.Commands.Enable(Command::UpdateAllForms, project && parts_.States.KeptCount() > 0);
  parts_.Commands.Enable(Command::UndoLastUpdate, project && (!parts_.Project.Updates().IsEmpty() ||
                                                              QFileInfo::exists(KeptFolderOf(project->Path()))));
}

bool UpdateCommands::HasDictionary() {
  return !parts_.Project.DictionaryPath().empty() || parts_.Opened.AskForDictionary();
}

// What has an update that is not saved yet, which the dictionary would give again, needs none.
bool UpdateCommands::IsWanted(const forms::KeptForm& form) const {
  const auto* updated = parts_.Project.Updates().Find(form.Name);
  if (updated && updated->Form.Sides.Theirs == form.Sides.Theirs) return false;
  return form.Next && (form.State.IsOutdated() || form.State.HasOtherSettings || !form.State.Output.empty());
}

QString UpdateCommands::ProblemOf(const forms::KeptForm& form) const {
  if (form.State.IsForeign) return texts_(T::KeptForeignMeans, Text(form.Name));
  return Text(support::Shortened(form.State.Problem));
}

std::optional<bool> UpdateCommands::OfferDictionary(const forms::KeptForm& form) {
  const forms::KeptFolder& folder = parts_.Project.KeptForms().Folder();
  const forms::FormDescription description = folder.DescriptionIn(folder.Read(form.Name), form.Name);
  const std::string system = description.System ? description.System->Value : "", &name = description.Class.Value;
  if (!forms::Offers(parts_.Project.Factories()).Of(system, name).empty()) return std::nullopt;
  const std::size_t answer = Ask(parts_.Window, texts_,
                                 {.Title = T::TitleUpdateForm,
                                  .What = texts_(T::HasNoClass, NameOf(parts_.Project.DictionaryPath()), Text(name)),
                                  .Why = texts_(T::UpdateNoClassWhy, Text(form.Name)),
                                  .Buttons = {T::ButtonChooseDictionary, T::ButtonClose}});
  return answer == 0 && parts_.Opened.AskForDictionary();
}

std::vector<UpdateChoices> UpdateCommands::ChoicesFor(const std::string& name) {
  for (;;) {
    forms::KeptForm form = parts_.Project.Updates().Look(parts_.Project.KeptForms(), name);
    if (const QString problem = ProblemOf(form); !problem.isEmpty()) {
      const std::optional<bool> isOther = form.State.IsForeign ? std::nullopt : OfferDictionary(form);
      if (!isOther) throw support::InputError(adapters::qt::Utf8(problem));
      if (!*isOther) return {};
      continue;
    }
    if (IsWanted(form)) return {ChoicesOf(std::move(form))};
    parts_.Status.Say(texts_(T::UpdateUpToDate, Text(form.Name)));
    return {};
  }
}

UpdateChoices UpdateCommands::ChoicesOf(forms::KeptForm form) {
  UpdateChoices::Decisions decided = parts_.Project.Updates().DecisionsOn(form);
  return {parts_.Project.KeptForms(), std::move(form), std::move(decided)};
}

void UpdateCommands::UpdateChosen() {
  if (!parts_.Tree.Chosen() || !HasDictionary()) return;
  const std::string name = parts_.Tree.Chosen()->Name;
  std::vector<UpdateChoices> forms;
  parts_.Opened.Try(T::TitleUpdateForm, texts_(T::UpdateImpossible, Text(name)), [&] { forms = ChoicesFor(name); });
  if (!forms.empty()) LetDecide(std::move(forms), Command::UpdateForm);
}

// What cannot be updated is told, and left as it is.
void UpdateCommands::UpdateAll() {
  if (!HasDictionary()) return;
  std::vector<UpdateChoices> forms;
  QStringList left, why;
  const bool isLooked = parts_.Opened.Try(T::UpdateAllForms, texts_(T::SomethingFailed), [&] {
    const WaitCursor waiting;
    forms::KeptForms& kept = parts_.Project.KeptForms();
    for (const std::string& name : kept.Meant({})) {
      try {
        forms::KeptForm form = parts_.Project.Updates().Look(kept, name);
        if (form.State.IsMissing) continue;
        if (const QString problem = ProblemOf(form); !problem.isEmpty())
          throw support::InputError(adapters::qt::Utf8(problem));
        if (IsWanted(form)) forms.push_back(ChoicesOf(std::move(form)));
      } catch (const support::InputError& error) {
        left << Text(name);
        why << Text(error.what());
      }
    }
  });
  if (!isLooked) return;
  if (!left.isEmpty())
    Tell(parts_.Window, texts_, T::UpdateAllForms, texts_(T::UpdateImpossible, left.join(", ")), why.join('\n'));
  if (!forms.empty()) return LetDecide(std::move(forms), Command::UpdateAllForms);
  if (left.isEmpty()) parts_.Status.Say(texts_(T::UpdateAllUpToDate));
}

void UpdateCommands::LetDecide(std::vector<UpdateChoices> forms, Command command) {
  UpdateView view(&parts_.Window, texts_, TitleOf(parts_.Commands[command].text()),
                  parts_.Project.Project()->ProjectCodePage(), std::move(forms));
  const bool isTaken = view.exec() == QDialog::Accepted;
  parts_.Project.Updates().RememberDecisions(view.Forms());
  if (!isTaken) return;
  parts_.Project.Updates().Take(view.Forms());
  parts_.Opened.OnProject("");
  const std::size_t count = view.Forms().size();
  parts_.Status.Say(count == 1 ? texts_(T::Updated, Text(view.Forms().front().Form().Name))
                               : texts_(T::UpdatedSeveral, QString::number(count)));
}

void UpdateCommands::UndoLast() {
  if (!parts_.Project.Updates().IsEmpty()) return UndoUnsaved();
  if (parts_.Project.IsChanged()) {  // which reading the project anew would lose
    return Tell(parts_.Window, texts_, T::TitleUndoUpdate, texts_(T::UndoImpossible),
                texts_(T::UndoSaveFirst, NameOf(parts_.Project.Project()->Path())));
  }
  parts_.Opened.Try(T::TitleUndoUpdate, texts_(T::UndoImpossible), [this] { UndoSaved(); });
}

bool UpdateCommands::IsUndoWanted(const QStringList& forms, const QDateTime& when, const QString& why) {
  const QString day = DayText(texts_, when.date()), time = QLocale().toString(when.time(), QLocale::ShortFormat);
  const QString what = forms.size() == 1 ? texts_(T::UndoBecomes, forms.front(), day, time)
                                         : texts_(T::UndoSeveralBecome, QString::number(forms.size()), day, time);
  return Ask(parts_.Window, texts_,
             {.Title = T::TitleUndoUpdate,
              .What = what,
              .Why = why,
              .Buttons = {T::ButtonUndo, T::Cancel},
              .Default = 1,
              .Icon = QMessageBox::Question}) == 0;
}

void UpdateCommands::UndoUnsaved() {
  UnsavedUpdates& updates = parts_.Project.Updates();
  QStringList forms;
  for (const std::string& form : updates.LastForms()) forms << Text(form);
  if (!IsUndoWanted(forms, updates.LastTime(), texts_(T::UndoNotSaved))) return;
  updates.TakeBackLast();
  parts_.Opened.OnProject("");
  parts_.Status.Say(texts_(T::Undone));
}

// The project is read anew, as it then stands on the disk.
void UpdateCommands::UndoSaved() {
  system::FileSystem& files = system::RealFileSystem();
  const std::string project = parts_.Project.Project()->Path();
  const std::string kept = parts_.Project.KeptForms().Folder().Path() + "/";
  QStringList forms, changed;
  vb6files::Undo(files, project, true, [&](const vb6files::FileChange& change) {
    const QFileInfo file(Text(change.Path));
    changed << file.fileName();
    if (file.suffix() == "frm" && !change.Path.starts_with(kept)) forms << file.completeBaseName();
  });
  const QDateTime when = QFileInfo(KeptFolderOf(project) + vb6files::CommittedName).lastModified();
  changed.removeDuplicates();
  if (!IsUndoWanted(forms.isEmpty() ? QStringList{NameOf(project)} : forms, when,
                    texts_(T::UndoFiles, changed.join(", "))))
    return;
  vb6files::Undo(files, project, false, [](const vb6files::FileChange&) {});
  parts_.Project.OpenProjectAgain();
  parts_.Opened.OnProject("");
  parts_.Status.Say(texts_(T::Undone));
}

}  // namespace formwizard::apps::desktop
