// The main window: the components of a project, the picture and the code of the chosen one, and the Add-Ins menu.
#pragma once

#include "apps/desktop/CodeView.h"
#include "apps/desktop/ComponentModel.h"
#include "apps/desktop/Environment.h"
#include "apps/desktop/formview/FormView.h"

#include <QListView>
#include <QMainWindow>
#include <QTabWidget>

#include <string>

namespace formwizard::apps::desktop {

class MainWindow : public QMainWindow {
 public:
  explicit MainWindow(EnvironmentOptions options);

  // A failure is shown, and false returned.
  bool OpenProject(const QString& path);
  bool OpenDictionary(const QString& path);

  // Opens what is named. When all of it could be opened and `wizard` is set, the wizard opens as soon as the program
  // runs, as by its command: nothing is saved, the new form is shown, and asked about when the window is closed.
  void Open(const QString& project, const QString& dictionary, bool wizard);

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  void AddMenus();
  void AskForProject();
  void AskForDictionary();
  bool Save();
  // False when the user wants to go on with what is open.
  bool MayGiveUp();
  // Runs what may fail on its input or output and shows the failure.
  bool Try(const std::function<void()>& action);
  // Shows what the project holds now, and chooses the component of that name.
  void ShowProject(const std::string& chosen);
  void ShowComponent();
  void ShowState();
  void AfterAddIn();

  QMenu* addInsMenu_ = nullptr;
  QAction* save_ = nullptr;
  QListView* components_;
  ComponentModel* model_;  // of the list
  QTabWidget* pages_;
  FormView* form_;
  CodeView* code_;
  std::unique_ptr<Environment> environment_;
  std::string lastNew_;
};

}  // namespace formwizard::apps::desktop
