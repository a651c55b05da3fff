// What is opened and saved: the project, its dictionary and its toolbox, with all that is asked and told about it.
#pragma once

#include "apps/desktop/Environment.h"
#include "apps/desktop/basics/Texts.h"
#include "apps/desktop/window/Memory.h"

#include <QWidget>

#include <functional>
#include <string>

namespace formwizard::apps::desktop {

class Files {
 public:
  // All must outlive this object; messages stand over the window.
  Files(QWidget& window, const Texts& texts, Environment& environment, Memory& memory)
      : window_(window), texts_(texts), environment_(environment), memory_(memory) {}

  // What is open is given up, unless the user wants to keep it. With the project opens what it was used with the last
  // time, where something is missing. A failure is told, and false returned; what was open stays.
  bool OpenProject(const QString& path);
  bool OpenDictionary(const QString& path);
  // Once more, when its file has changed since. What cannot be read then leaves what was open, and is told.
  void RefreshDictionary();
  // The same for the project, where nothing of it is unsaved: what is, its next save tells.
  void RefreshProject();
  bool UseToolbox(const QString& path);
  // By what the file is.
  bool Open(const QString& path);
  bool OpenRecent(const QString& path);

  // Asks for a file and opens it.
  bool AskForProject();
  bool AskForDictionary();
  bool AskForToolbox();
  // Asks for the code page of the project, and opens it once more in that one.
  bool ChooseCodePage();
  void CloseProject();
  // Asks for a folder, and opens a copy of the sample there.
  bool TrySample();
  // What was open when the program ended.
  void OpenLast();

  bool Save();
  // False when the user wants to go on with what is open.
  bool MayGiveUp();
  // Runs what may fail on its input or output, and tells the failure as that of a command.
  bool Try(T title, const QString& what, const std::function<void()>& action);

  // The project is another one, or none, or its content has changed. What is to be looked at; empty: what was.
  std::function<void(const std::string& component)> OnProject = [](const std::string&) {};
  // A project was opened, with what is remembered of it.
  std::function<void(const ProjectMemory&)> OnOpened = [](const ProjectMemory&) {};
  // The project is about to be given up.
  std::function<void()> OnLeave = [] {};
  // The dictionary or the toolbox is another one now, or the list of recent files.
  std::function<void()> OnTools = [] {};
  // Something succeeded.
  std::function<void(const QString&)> OnDone = [](const QString&) {};

 private:
  QString AskForFile(T title, std::initializer_list<T> filters);
  int CodePageFor(const ProjectMemory& memory) const;
  void OpenRemembered(const ProjectMemory& memory);
  void Remember();
  // Of a save that another program was in the way of.
  void OfferReload(const QString& name, const std::string& why);

  QWidget& window_;
  const Texts& texts_;
  Environment& environment_;
  Memory& memory_;
};

}  // namespace formwizard::apps::desktop
