// The commands of the main window: one table makes the menus and the tool bar.
#pragma once

#include "apps/desktop/basics/Texts.h"

#include <QAction>
#include <QMainWindow>
#include <QMenu>
#include <QToolBar>

#include <cstdint>
#include <functional>
#include <map>

namespace formwizard::apps::desktop {

enum class Command : std::uint8_t {
  OpenProject,
  OpenRecent,
  TrySample,
  OpenDictionary,
  ChooseToolbox,
  ChooseCodePage,
  SaveProject,
  SavePicture,
  CloseProject,
  Quit,
  Copy,
  SelectAll,
  Find,
  FindNext,
  FindPrevious,
  GoToLine,
  ShowForm,
  ShowCode,
  GoToHandler,
  ShowProject,
  ShowDictionary,
  ShowProperties,
  TabOrder,
  InvisibleControls,
  OutlineLabels,
  WizardPreview,
  ZoomIn,
  ZoomOut,
  ActualSize,
  FitForm,
  ChangeForm,
  UpdateForm,
  UpdateAllForms,
  UndoLastUpdate,
  CheckAgainstDictionary,
  KeepNewForms,
  StopKeeping,
  AddFormAgain,
  ShowInFolder,
  RemoveForm,
  Contents,
  Licences,
  AboutQt,
  About,
};

enum class MenuName : std::uint8_t { File, Edit, View, Project, AddIns, Help };

class Actions {
 public:
  // Puts them on the window's menu bar and on a tool bar. A command is not shown until somebody carries it out.
  Actions(QMainWindow& window, const Texts& texts);

  QAction& operator[](Command command) { return *actions_.at(command); }
  QMenu& Menu(MenuName name) { return *menus_.at(name); }
  QMenu& RecentMenu() { return *recent_; }
  QToolBar& Bar() { return *bar_; }

  // What a command does; of one that can be checked, whenever that changes.
  void On(Command command, std::function<void()> action);
  void On(Command command, std::function<void(bool checked)> action);
  void Enable(Command command, bool enabled);

  // The add-in's own command gets its key and its place on the tool bar.
  void PlaceWizardCommand(QAction& command);
  // Short texts on the tool bar, for a narrow window.
  void SetNarrow(bool isNarrow);

 private:
  QAction* Made(QMainWindow& window, std::size_t row);
  void CarriedOut(Command command);

  const Texts& texts_;
  std::map<Command, QAction*> actions_;
  std::map<Command, bool> isCarriedOut_;
  std::map<MenuName, QMenu*> menus_;
  QMenu* recent_ = nullptr;
  QToolBar* bar_;
  QAction* wizardCommand_ = nullptr;
};

}  // namespace formwizard::apps::desktop
