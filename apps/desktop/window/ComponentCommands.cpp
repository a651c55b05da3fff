#include "apps/desktop/window/ComponentCommands.h"

#include "adapters/qt/Text.h"
#include "apps/desktop/basics/Messages.h"

#include <QDesktopServices>
#include <QFileDialog>
#include <QFileInfo>
#include <QUrl>

namespace formwizard::apps::desktop {

using adapters::qt::Text;
using adapters::qt::Utf8;

ComponentCommands::ComponentCommands(QWidget& window, const Texts& texts, Actions& actions, Environment& environment,
                                     Files& files, ProjectTree& tree, FormView& form)
    : window_(window),
      texts_(texts),
      actions_(actions),
      environment_(environment),
      files_(files),
      tree_(tree),
      form_(form) {
  actions.On(Command::RemoveForm, [this] { Remove(); });
  actions.On(Command::SavePicture, [this] { SavePicture(); });
  actions.On(Command::ShowInFolder, [this] { ShowInFolder(); });
  tree.View().addAction(&actions[Command::RemoveForm]);
  for (const Command command :
       {Command::ChangeForm, Command::UpdateForm, Command::SavePicture, Command::ShowInFolder, Command::RemoveForm}) {
    tree.ContextActions << &actions[command];
  }
}

void ComponentCommands::ShowState() {
  const ProjectModel::Component* chosen = tree_.Chosen();
  actions_.Enable(Command::RemoveForm, chosen && chosen->IsChanged);
  actions_.Enable(Command::SavePicture, chosen && chosen->IsForm && !chosen->IsGone);
  actions_.Enable(Command::ShowInFolder, !tree_.ChosenFile().empty());
}

void ComponentCommands::SavePicture() {
  const std::string name = tree_.Chosen()->Name;
  const QString folder = QFileInfo(Text(environment_.Project()->Path())).absolutePath();
  const QString path = QFileDialog::getSaveFileName(&window_, texts_(T::TitleSavePicture),
                                                    folder + "/" + Text(name) + ".png", texts_(T::FilterPictures));
  if (path.isEmpty()) return;
  const bool saved =
      files_.Try(T::TitleSavePicture, texts_(T::PictureNotSaved), [&] { form_.SavePicture(Utf8(path)); });
  if (saved) files_.OnDone(texts_(T::PictureSaved, QFileInfo(path).fileName()));
}

void ComponentCommands::ShowInFolder() {
  const QString folder = QFileInfo(Text(tree_.ChosenFile())).absolutePath();
  if (QDesktopServices::openUrl(QUrl::fromLocalFile(folder))) return;
  Tell(window_, texts_, T::TitleShowInFolder, texts_(T::SomethingFailed), texts_(T::CannotShowFolder, folder));
}

void ComponentCommands::Remove() {
  const ProjectModel::Component chosen = *tree_.Chosen();
  const QString name = Text(chosen.Name);
  const bool isNew = chosen.File.empty();
  const QString what = isNew            ? texts_(T::NeverSaved, name)
                       : chosen.IsAdded ? texts_(T::LeavesProject, name)
                                        : texts_(T::WillBeAgain, name, QFileInfo(Text(chosen.File)).completeBaseName());
  const std::size_t answer = Ask(window_, texts_,
                                 {.Title = T::TitleRemoveForm,
                                  .What = what,
                                  .Buttons = {isNew || chosen.IsAdded ? T::ButtonRemove : T::ButtonTakeBack, T::Cancel},
                                  .Default = 1});
  if (answer != 0) return;
  files_.Try(T::TitleRemoveForm, texts_(T::SomethingFailed), [&] { OnTakenBack(environment_.TakeBack(chosen.Name)); });
}

}  // namespace formwizard::apps::desktop
