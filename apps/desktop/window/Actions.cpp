#include "apps/desktop/window/Actions.h"

#include "apps/desktop/basics/Icons.h"

#include <QMenuBar>

#include <array>

namespace formwizard::apps::desktop {
namespace {

constexpr T None{};

struct MenuRow {
  MenuName Name;
  T Label;
};

constexpr std::array Menus{MenuRow{MenuName::File, T::MenuFile},     MenuRow{MenuName::Edit, T::MenuEdit},
                           MenuRow{MenuName::View, T::MenuView},     MenuRow{MenuName::Project, T::MenuProject},
                           MenuRow{MenuName::AddIns, T::MenuAddIns}, MenuRow{MenuName::Help, T::MenuHelp}};

// A command in the order of its menu. Keys are the same on every desktop, where the toolkit's own differ.
struct Row {
  Command Id;
  MenuName Menu;
  T Label;
  const char* Keys = "";  // "; " between several
  const char* Icon = "";
  bool StartsGroup = false;
  bool IsCheckable = false;
  T Tool = None;  // on the tool bar, and there in a narrow window
  T ShortTool = None;
};

using enum Command;
constexpr auto File = MenuName::File, Edit = MenuName::Edit, View = MenuName::View, Project = MenuName::Project,
               Help = MenuName::Help;
constexpr bool Group = true, Checkable = true;

constexpr std::array Table{
    Row{OpenProject, File, T::OpenProject, "Ctrl+O", "open", false, false, T::ToolOpen, T::ToolOpen},
    Row{OpenRecent, File, T::OpenRecent},
    Row{TrySample, File, T::TrySample},
    Row{OpenDictionary, File, T::OpenDictionary, "Ctrl+Shift+O", "dictionary"},
    Row{ChooseToolbox, File, T::ChooseToolbox, "Ctrl+T", "toolbox"},
    Row{ChooseCodePage, File, T::ChooseCodePage},
    Row{SaveProject, File, T::SaveProject, "Ctrl+S", "save", Group, false, T::ToolSave, T::ToolSave},
    Row{SavePicture, File, T::SavePicture, "Ctrl+Shift+S"},
    Row{CloseProject, File, T::CloseProject, "Ctrl+W", "", Group},
    Row{Quit, File, T::Quit, "Ctrl+Q"},
    Row{Copy, Edit, T::Copy, "Ctrl+C"},
    Row{SelectAll, Edit, T::SelectAll, "Ctrl+A"},
    Row{Find, Edit, T::Find, "Ctrl+F", "", Group},
    Row{FindNext, Edit, T::FindNext, "F3"},
    Row{FindPrevious, Edit, T::FindPrevious, "Shift+F3"},
    Row{GoToLine, Edit, T::GoToLine, "Ctrl+L"},
    Row{ShowForm, View, T::ShowForm, "Shift+F7", "form"},
    Row{ShowCode, View, T::ShowCode, "F7", "module"},
    Row{GoToHandler, View, T::GoToHandler},
    Row{ShowProject, View, T::ShowProject, "Ctrl+R", "project", Group},
    Row{ShowDictionary, View, T::ShowDictionary, "F2", "dictionary"},
    Row{ShowProperties, View, T::ShowProperties, "F4", "property"},
    Row{TabOrder, View, T::TabOrder, "", "", Group, Checkable},
    Row{InvisibleControls, View, T::InvisibleControls, "", "", false, Checkable},
    Row{OutlineLabels, View, T::OutlineLabels, "", "", false, Checkable},
    Row{WizardPreview, View, T::WizardPreview, "", "", false, Checkable},
    Row{ZoomIn, View, T::ZoomIn, "Ctrl++; Ctrl+=", "zoom-in", Group},
    Row{ZoomOut, View, T::ZoomOut, "Ctrl+-", "zoom-out"},
    Row{ActualSize, View, T::ActualSize, "Ctrl+0"},
    Row{FitForm, View, T::FitForm, "Ctrl+9"},
    Row{ChangeForm, Project, T::ChangeForm, "Ctrl+E", "form-change", false, false, T::ToolChangeForm, T::ToolChange},
    Row{UpdateForm, Project, T::UpdateForm, "Ctrl+U", "form-update", false, false, T::ToolUpdateForm, T::ToolUpdate},
    Row{UpdateAllForms, Project, T::UpdateAllForms, "Ctrl+Shift+U"},
    Row{UndoLastUpdate, Project, T::UndoLastUpdate},
    Row{CheckAgainstDictionary, Project, T::CheckAgainstDictionary, "F5", "", Group},
    Row{KeepNewForms, Project, T::KeepNewForms, "", "", false, Checkable},
    Row{StopKeeping, Project, T::StopKeeping},
    Row{AddFormAgain, Project, T::AddFormAgain},
    Row{ShowInFolder, Project, T::ShowInFolder, "", "folder", Group},
    Row{RemoveForm, Project, T::RemoveForm, "Del"},
    Row{Contents, Help, T::Contents, "F1", "info"},
    Row{Licences, Help, T::Licences},
    Row{AboutQt, Help, T::AboutQt, "", "", Group},
    Row{About, Help, T::About},
};

// "Open Project (Ctrl+O)".
QString ToolTipOf(const QAction& action) {
  QString text = action.text().remove('&');
  if (text.endsWith("...")) text.chop(3);
  const QString keys = action.shortcut().toString(QKeySequence::NativeText);
  return keys.isEmpty() ? text : text + " (" + keys + ")";
}

}  // namespace

Actions::Actions(QMainWindow& window, const Texts& texts) : texts_(texts), bar_(new QToolBar(texts(T::ToolBarName))) {
  constexpr int toolIcons = 20;
  for (const MenuRow& menu : Menus) menus_[menu.Name] = window.menuBar()->addMenu(texts(menu.Label));
  bar_->setObjectName("toolBar");
  bar_->setMovable(false);
  bar_->setContextMenuPolicy(Qt::PreventContextMenu);
  bar_->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
  bar_->setIconSize({toolIcons, toolIcons});
  window.addToolBar(bar_);
  for (std::size_t row = 0; row < Table.size(); ++row) {
    QAction* action = Made(window, row);
    if (Table[row].Tool != None) bar_->addAction(action);
    if (Table[row].Id == SaveProject) bar_->addSeparator();
  }
  SetNarrow(false);
}

QAction* Actions::Made(QMainWindow& window, std::size_t index) {
  const Row& row = Table.at(index);
  QMenu& menu = Menu(row.Menu);
  if (row.StartsGroup) menu.addSeparator();
  QAction* action = nullptr;
  if (row.Id == OpenRecent) {
    recent_ = menu.addMenu(texts_(row.Label));
    action = recent_->menuAction();
  } else {
    action = menu.addAction(IconNamed(row.Icon), texts_(row.Label));
    action->setShortcuts(QKeySequence::listFromString(row.Keys));
    if (row.Id == RemoveForm) action->setShortcutContext(Qt::WidgetShortcut);  // of the tree
  }
  action->setParent(&window);
  action->setMenuRole(row.Id == Quit      ? QAction::QuitRole
                      : row.Id == About   ? QAction::AboutRole
                      : row.Id == AboutQt ? QAction::AboutQtRole
                                          : QAction::NoRole);
  action->setIconVisibleInMenu(row.Tool == None || row.Icon[0] != 0);
  action->setCheckable(row.IsCheckable);
  action->setEnabled(false);
  action->setVisible(row.Id == OpenRecent);
  if (row.Tool != None) action->setToolTip(ToolTipOf(*action));
  return actions_[row.Id] = action;
}

void Actions::On(Command command, std::function<void()> action) {
  QAction& done = (*this)[command];
  QObject::connect(&done, &QAction::triggered, &done, [action = std::move(action)] { action(); });
  CarriedOut(command);
}

void Actions::On(Command command, std::function<void(bool)> action) {
  QAction& done = (*this)[command];
  QObject::connect(&done, &QAction::toggled, &done, std::move(action));
  CarriedOut(command);
}

void Actions::CarriedOut(Command command) {
  isCarriedOut_[command] = true;
  (*this)[command].setVisible(true);
  (*this)[command].setEnabled(true);
}

void Actions::Enable(Command command, bool enabled) {
  (*this)[command].setEnabled(enabled && (isCarriedOut_[command] || command == OpenRecent));
}

void Actions::PlaceWizardCommand(QAction& command) {
  wizardCommand_ = &command;
  command.setShortcut(QKeySequence("Ctrl+N"));
  command.setIcon(IconNamed("form-new"));
  command.setIconText(texts_(T::ToolNewForm));
  command.setToolTip(ToolTipOf(command));
  bar_->insertAction(&(*this)[ChangeForm], &command);
}

void Actions::SetNarrow(bool isNarrow) {
  for (const Row& row : Table) {
    if (row.Tool != None) (*this)[row.Id].setIconText(texts_(isNarrow ? row.ShortTool : row.Tool));
  }
  if (wizardCommand_) wizardCommand_->setIconText(texts_(isNarrow ? T::ToolNew : T::ToolNewForm));
}

}  // namespace formwizard::apps::desktop
