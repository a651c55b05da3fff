#include "apps/desktop/window/Files.h"

#include "adapters/qt/Text.h"
#include "apps/common/Endings.h"
#include "apps/desktop/basics/Messages.h"
#include "apps/desktop/window/CodePages.h"
#include "apps/desktop/window/Sample.h"
#include "support/Failures.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QStandardPaths>

#include <algorithm>

namespace formwizard::apps::desktop {
namespace {

using adapters::qt::Text;
using adapters::qt::Utf8;

constexpr char LastProject[] = "open/project", LastDictionary[] = "open/dictionary";

QString NameOf(const QString& path) { return QFileInfo(path).fileName(); }

QString Absolute(const std::string& path) { return path.empty() ? "" : QFileInfo(Text(path)).absoluteFilePath(); }

}  // namespace

bool Files::Try(T title, const QString& what, const std::function<void()>& action) {
  try {
    action();
    return true;
  } catch (...) {
    Tell(window_, texts_, title, what, Text(common::CurrentFailure("").Message));
    return false;
  }
}

bool Files::OpenProject(const QString& path) {
  if (!MayGiveUp()) return false;
  OnLeave();
  try {
    environment_.OpenProject(Utf8(path), CodePageFor(memory_.Of(path)));
  } catch (...) {
    const QString why = Text(common::CurrentFailure("").Message);
    const std::size_t answer = Ask(window_, texts_,
                                   {.Title = T::TitleOpenProject,
                                    .What = texts_(T::CannotBeOpened, NameOf(path)),
                                    .Why = why,
                                    .Buttons = {T::ButtonChooseAnother, T::ButtonClose}});
    return answer == 0 && AskForProject();
  }
  memory_.AddRecent(path);
  const ProjectMemory memory = memory_.Of(path);
  OpenRemembered(memory);
  Remember();
  OnProject(Utf8(memory.Component));
  OnOpened(memory);
  OnTools();
  OnDone(texts_(T::Opened, NameOf(path)));
  return true;
}

// One that is not known any more is none.
int Files::CodePageFor(const ProjectMemory& memory) const {
  const int remembered = memory.CodePage.toInt();
  const bool isKnown = std::ranges::count(CodePages(), remembered) > 0;
  return environment_.CodePageGiven().value_or(isKnown ? remembered : Environment::UsualCodePage);
}

// Where nothing is open yet, what the project was used with; a file that is gone is no failure.
void Files::OpenRemembered(const ProjectMemory& memory) {
  const auto tryQuietly = [](const QString& path, const std::function<void(const std::string&)>& open) {
    if (path.isEmpty() || !QFileInfo::exists(path)) return;
    try {
      open(Utf8(path));
    } catch (const std::runtime_error&) {
      return;  // it is asked for when it is needed
    }
  };
  if (environment_.DictionaryPath().empty()) {
    tryQuietly(memory.Dictionary, [this](const std::string& path) { environment_.OpenDictionary(path); });
  }
  if (environment_.ToolboxPath().empty()) {
    tryQuietly(memory.Toolbox, [this](const std::string& path) { environment_.UseToolbox(path); });
  }
}

bool Files::OpenDictionary(const QString& path) {
  const bool opened = Try(T::TitleOpenDictionary, texts_(T::CannotBeOpened, NameOf(path)),
                          [&] { environment_.OpenDictionary(Utf8(path)); });
  if (!opened) return false;
  memory_.AddRecent(path);
  Remember();
  OnTools();
  OnDone(texts_(T::Opened, NameOf(path)));
  return true;
}

void Files::RefreshDictionary() {
  if (environment_.DictionaryPath().empty() || !environment_.IsDictionaryChanged()) return;
  const QString name = NameOf(Text(environment_.DictionaryPath()));
  try {
    environment_.OpenDictionary(environment_.DictionaryPath());
    OnDone(texts_(T::Opened, name));
  } catch (const std::exception&) {  // which opening it tells
    OnDone(texts_(T::CannotBeOpened, name));
  }
}

void Files::RefreshProject() {
  if (environment_.IsChanged() || !environment_.IsProjectChanged()) return;
  const QString name = NameOf(Text(environment_.Project()->Path()));
  try {
    environment_.OpenProjectAgain();
    OnProject("");
    OnDone(texts_(T::Opened, name));
  } catch (const std::exception&) {  // which opening it tells
    OnDone(texts_(T::CannotBeOpened, name));
  }
}

bool Files::UseToolbox(const QString& path) {
  const bool used =
      Try(T::TitleToolbox, texts_(T::CannotBeOpened, NameOf(path)), [&] { environment_.UseToolbox(Utf8(path)); });
  if (!used) return false;
  Remember();
  OnTools();
  return true;
}

void Files::Remember() {
  memory_.Keep(LastDictionary, Absolute(environment_.DictionaryPath()));
  memory_.Keep(LastProject, environment_.Project() ? Absolute(environment_.Project()->Path()) : "");
  if (!environment_.Project()) return;
  const QString project = Text(environment_.Project()->Path());
  ProjectMemory memory = memory_.Of(project);
  memory.Dictionary = Absolute(environment_.DictionaryPath());
  memory.Toolbox = Absolute(environment_.ToolboxPath());
  const int codePage = environment_.Project()->ProjectCodePage().Number();
  memory.CodePage = codePage == Environment::UsualCodePage ? "" : QString::number(codePage);
  memory_.Keep(project, memory);
}

bool Files::Open(const QString& path) {
  const QString suffix = QFileInfo(path).suffix().toLower();
  if (suffix == "ini") return UseToolbox(path);
  return QStringList{"sqlite", "db", "json"}.contains(suffix) ? OpenDictionary(path) : OpenProject(path);
}

bool Files::OpenRecent(const QString& path) {
  if (QFileInfo::exists(path)) return Open(path);
  const std::size_t answer = Ask(window_, texts_,
                                 {.Title = T::TitleOpenRecent,
                                  .What = texts_(T::NoLongerThere, NameOf(path)),
                                  .Why = texts_(T::WhereItWas, QFileInfo(path).absolutePath()),
                                  .Buttons = {T::ButtonRemoveFromList, T::Cancel},
                                  .Default = 1});
  if (answer != 0) return false;
  memory_.RemoveRecent(path);
  OnTools();
  return false;
}

QString Files::AskForFile(T title, std::initializer_list<T> filters) {
  QStringList shown;
  for (const T filter : filters) shown << texts_(filter);
  const auto* project = environment_.Project();
  const QString folder = project ? QFileInfo(Text(project->Path())).absolutePath() : "";
  return QFileDialog::getOpenFileName(&window_, texts_(title), folder, shown.join(";;"));
}

bool Files::AskForProject() {
  const QString path = AskForFile(T::TitleOpenProject, {T::FilterProjects, T::FilterAll});
  return !path.isEmpty() && OpenProject(path);
}

bool Files::AskForDictionary() {
  const QString path = AskForFile(T::TitleOpenDictionary, {T::FilterDictionaries, T::FilterAll});
  return !path.isEmpty() && OpenDictionary(path);
}

bool Files::AskForToolbox() {
  const QString path = AskForFile(T::TitleToolbox, {T::FilterToolboxes, T::FilterAll});
  return !path.isEmpty() && UseToolbox(path);
}

bool Files::ChooseCodePage() {
  const std::string path = environment_.Project()->Path();
  const int current = environment_.Project()->ProjectCodePage().Number();
  const std::optional<int> chosen = AskForCodePage(window_, texts_, NameOf(Text(path)), current);
  if (!chosen || *chosen == current || !MayGiveUp()) return false;
  const bool isOpen = Try(T::ChooseCodePage, texts_(T::CannotBeOpened, NameOf(Text(path))),
                          [&] { environment_.OpenProject(path, *chosen); });
  if (!isOpen) return false;
  environment_.ForgetCodePageGiven();
  Remember();
  OnProject("");
  OnDone(texts_(T::Opened, NameOf(Text(path))));
  return true;
}

void Files::CloseProject() {
  if (!MayGiveUp()) return;
  OnLeave();
  environment_.CloseProject();
  Remember();
  OnProject("");
}

bool Files::TrySample() {
  const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
  const QString folder =
      QFileDialog::getSaveFileName(&window_, texts_(T::TitleTrySample), documents + "/" + texts_(T::SampleFolder), "",
                                   nullptr, QFileDialog::DontConfirmOverwrite);
  if (folder.isEmpty()) return false;
  if (!QDir(folder).isEmpty() || QFileInfo(folder).isFile()) {
    Tell(window_, texts_, T::TitleTrySample, texts_(T::SampleNotCopied), texts_(T::SampleIsThere, folder));
    return TrySample();
  }
  Sample sample;
  return Try(T::TitleTrySample, texts_(T::SampleNotCopied), [&] { sample = CopySample(folder); }) &&
         OpenProject(sample.Project) && UseToolbox(sample.Toolbox) && OpenDictionary(sample.Dictionary);
}

void Files::OpenLast() {
  const QString project = memory_.Value(LastProject).toString(), dictionary = memory_.Value(LastDictionary).toString();
  if (QFileInfo::exists(project)) OpenProject(project);
  if (QFileInfo::exists(dictionary) && environment_.DictionaryPath().empty()) OpenDictionary(dictionary);
}

bool Files::Save() {
  const QString name = NameOf(Text(environment_.Project()->Path()));
  std::vector<NewForms::NotKept> notKept;
  const bool saved = Try(T::TitleSaveProject, texts_(T::NotSaved, name),
                         [&] {
                           try {
                             notKept = environment_.Save();
                           } catch (const support::ChangedMeanwhile& changed) {
                             OfferReload(name, changed.what());
                           }
                         }) &&
                     !environment_.IsChanged();
  OnProject("");
  if (saved) OnDone(texts_(T::Saved, name));
  for (const auto& [form, why] : notKept)
    Tell(window_, texts_, T::TitleSaveProject, texts_(T::KeptNot, Text(form)), Text(why));
  return saved;
}

void Files::OfferReload(const QString& name, const std::string& why) {
  const std::size_t answer = Ask(window_, texts_,
                                 {.Title = T::TitleSaveProject,
                                  .What = texts_(T::ChangedByAnother, name),
                                  .Why = Text(why) + "\n" + texts_(T::ReloadLoses),
                                  .Buttons = {T::ButtonReload, T::Cancel},
                                  .Default = 1});
  if (answer == 0) environment_.OpenProjectAgain();
}

bool Files::MayGiveUp() {
  if (!environment_.IsChanged()) return true;
  const std::size_t answer = Ask(window_, texts_,
                                 {.Title = T::TitleSaveProject,
                                  .What = texts_(T::HasUnsavedChanges, NameOf(Text(environment_.Project()->Path()))),
                                  .Why = texts_(T::UnsavedAreLost),
                                  .Buttons = {T::ButtonSave, T::ButtonDiscard, T::Cancel}});
  return answer == 0 ? Save() : answer == 1;
}

}  // namespace formwizard::apps::desktop
