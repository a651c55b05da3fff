#include "apps/desktop/change/ChangeCommand.h"

#include "adapters/qt/Text.h"
#include "apps/desktop/basics/Messages.h"
#include "apps/desktop/change/ChangeWizard.h"
#include "apps/desktop/kept/KeptWords.h"
#include "apps/desktop/update/UpdateView.h"
#include "apps/forms/KeptFolder.h"
#include "apps/forms/Offers.h"
#include "runtime/Conversions.h"

#include <QFileInfo>
#include <QStringList>

#include <algorithm>

namespace formwizard::apps::desktop {
namespace {

using adapters::qt::Text;

constexpr qsizetype MostNames = 8;

QString NameOf(const std::string& path) { return QFileInfo(Text(path)).fileName(); }

QStringList NamesIn(const std::vector<std::string>& texts) {
  QStringList names;
  for (const std::string& text : texts) names << Text(text);
  return names;
}

}  // namespace

ChangeCommand::ChangeCommand(QWidget& window, const Texts& texts, Actions& actions, Environment& environment,
                             Files& files)
    : window_(window), texts_(texts), actions_(actions), environment_(environment), files_(files) {
  actions.On(Command::ChangeForm, [this] { Change(); });
  SetComponent(nullptr);
}

void ChangeCommand::SetComponent(const adapters::vb6files::ComponentSummary* component) {
  form_ = component && component->IsForm ? component->Name : "";
  bool isKept = false;
  if (!form_.empty()) {
    const system::FileSystem& files = system::RealFileSystem();
    const forms::KeptFolder folder(files, environment_.Project()->Path());
    isKept = files.KindOf(folder.FileOf(form_, ".json")) == system::FileKind::File &&
             !environment_.Updates().IsReleased(form_);
  }
  actions_.Enable(Command::ChangeForm, isKept);
}

QString ChangeCommand::Name() const { return Text(form_); }

void ChangeCommand::Change() {
  if (!environment_.MayRunAddIn() || !MayChange()) return;
  files_.Try(T::ChangeForm, texts_(T::FormNotChanged, Name()), [this] { ChangeByWizard(); });
}

// What the wizard has put into it and nobody has saved is on no disk to be merged with.
bool ChangeCommand::MayChange() {
  const auto summaries = environment_.Project()->Summaries();
  const bool isChanged = std::ranges::any_of(
      summaries, [this](const auto& each) { return each.IsChanged && runtime::EqualIgnoringCase(each.Name, form_); });
  if (!isChanged) return true;
  const std::size_t answer = Ask(window_, texts_,
                                 {.Title = T::ChangeForm,
                                  .What = texts_(T::HasUnsavedChanges, Name()),
                                  .Why = texts_(T::ChangeNeedsSaved),
                                  .Buttons = {T::ButtonSave, T::Cancel}});
  return answer == 0 && files_.Save();
}

void ChangeCommand::ChangeByWizard() {
  const std::optional<forms::FormDescription> before = ChoicesKept();
  if (!before || !HasClass(*before)) return;
  const LeftOutListener tellLeftOut = [&](const std::vector<std::string>& leftOut) {
    desktop::Tell(window_, texts_, T::ChangeForm, texts_(T::ClassOffersLess, Text(before->Class.Value), Name()),
                  texts_(T::LeftOut, Listed(NamesIn(leftOut), MostNames, texts_)));
  };
  std::optional<forms::FormDescription> choices = before;
  do {
    choices = ChooseAnew(environment_, form_, *choices, tellLeftOut);
  } while (choices && Take(*before, *choices) == Answer::ChooseAgain);
}

// Of the form as it stands in the window; nothing, and it is said why, where they are not known.
std::optional<forms::FormDescription> ChangeCommand::ChoicesKept() {
  if (const UnsavedUpdates::Updated* updated = environment_.Updates().Find(form_)) return updated->Form.Next;
  const forms::KeptFolder& folder = environment_.KeptForms().Folder();
  const forms::KeptTexts texts = folder.Read(form_);
  if (!texts.Json) {
    desktop::Tell(window_, texts_, T::ChangeForm, texts_(T::FormNotKept, Name()),
                  texts_(T::KeepIt) + "\n" + CommandToKeep());
    return {};
  }
  forms::FormDescription description = folder.DescriptionIn(texts, form_);
  if (!forms::IsAsMade(texts, *description.Made)) {
    desktop::Tell(window_, texts_, T::ChangeForm, texts_(T::BaseNotOurs, Text(folder.FileOf(form_, ".frm"))),
                  texts_(T::RestoreOrKeep) + "\n" + CommandToKeep());
    return {};
  }
  return description;
}

QString ChangeCommand::CommandToKeep() const {
  return "ostrel-form-wizard keep --project " + Text(environment_.Project()->Path()) + " --dictionary " +
         Text(environment_.DictionaryPath()) + " FORM.json " + Name();
}

// Another dictionary can be chosen.
bool ChangeCommand::HasClass(const forms::FormDescription& choices) {
  const std::string system = choices.System ? choices.System->Value : "";
  for (;;) {
    if (!forms::Offers(environment_.Factories()).Of(system, choices.Class.Value).empty()) return true;
    const std::size_t answer =
        Ask(window_, texts_,
            {.Title = T::ChangeForm,
             .What = texts_(T::HasNoClass, NameOf(environment_.DictionaryPath()), Text(choices.Class.Value)),
             .Why = texts_(T::MadeForClassOf, Name(), Text(system)),
             .Buttons = {T::ButtonChooseDictionary, T::ButtonClose}});
    if (answer != 0 || !files_.AskForDictionary()) return false;
  }
}

ChangeCommand::Answer ChangeCommand::Take(const forms::FormDescription& before, const forms::FormDescription& choices) {
  if (choices.Class.Value != before.Class.Value) {
    return AskAgain(texts_(T::MadeForClass, Name(), Text(before.Class.Value)),
                    texts_(T::OtherClass, Text(choices.Class.Value)));
  }
  forms::KeptForms& forms = environment_.KeptForms();
  forms::KeptForm form = forms.Look(form_, true, &choices);
  UpdateChoices::Decisions decided = environment_.Updates().DecisionsOn(form);
  const UpdateChoices update(forms, std::move(form), std::move(decided));
  const std::string& problem = update.Form().State.Problem;
  if (!problem.empty()) return AskAgain(texts_(T::FormNotChanged, Name()), Text(problem));
  if (!update.Form().Next) {  // as it stands on the disk
    const bool isTakenBack = environment_.Updates().TakeBack(form_);
    if (isTakenBack) OnChanged(form_);
    files_.OnDone(texts_(isTakenBack ? T::FormChanged : T::NothingChanges, Name()));
    return Answer::Done;
  }
  return LetDecide(update);
}

ChangeCommand::Answer ChangeCommand::LetDecide(const UpdateChoices& update) {
  UpdateView view(&window_, texts_, texts_(T::ToolChangeForm), environment_.Project()->ProjectCodePage(), {update},
                  UpdateView::Cause::Choices);
  const int result = view.exec();
  environment_.Updates().RememberDecisions(view.Forms());
  if (result == UpdateView::ChooseAgain) return Answer::ChooseAgain;
  if (result != QDialog::Accepted) return Answer::Done;
  environment_.Updates().Take(view.Forms());
  OnChanged(form_);
  files_.OnDone(texts_(T::FormChanged, Name()));
  return Answer::Done;
}

ChangeCommand::Answer ChangeCommand::AskAgain(const QString& what, const QString& why) {
  const std::size_t answer =
      Ask(window_, texts_,
          {.Title = T::ChangeForm, .What = what, .Why = why, .Buttons = {T::ButtonChooseAgain, T::Cancel}});
  return answer == 0 ? Answer::ChooseAgain : Answer::Done;
}

}  // namespace formwizard::apps::desktop
