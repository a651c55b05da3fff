// The main window: the project and its classes at the left, form and code of what is chosen in the middle, properties
// at the right.
#pragma once

#include "adapters/satellite/Satellites.h"
#include "apps/desktop/Environment.h"
#include "apps/desktop/basics/Texts.h"
#include "apps/desktop/change/ChangeCommand.h"
#include "apps/desktop/code/CodePane.h"
#include "apps/desktop/dictionary/DictionaryPane.h"
#include "apps/desktop/formview/FormView.h"
#include "apps/desktop/properties/PropertiesPanel.h"
#include "apps/desktop/window/Actions.h"
#include "apps/desktop/window/ComponentCommands.h"
#include "apps/desktop/window/ComponentPages.h"
#include "apps/desktop/window/EditCommands.h"
#include "apps/desktop/window/EntryProperties.h"
#include "apps/desktop/window/Files.h"
#include "apps/desktop/window/FormCommands.h"
#include "apps/desktop/window/FormPage.h"
#include "apps/desktop/window/HelpCommands.h"
#include "apps/desktop/window/KeptCommands.h"
#include "apps/desktop/window/Memory.h"
#include "apps/desktop/window/Panes.h"
#include "apps/desktop/window/ProjectTree.h"
#include "apps/desktop/window/StartPage.h"
#include "apps/desktop/window/StatusLine.h"

#include <QMainWindow>
#include <QStackedWidget>

#include <memory>
#include <string>

namespace formwizard::apps::desktop {

class MainWindow : public QMainWindow {
 public:
  explicit MainWindow(EnvironmentOptions options);
  ~MainWindow() override;

  // A failure is shown, and false returned.
  bool OpenProject(const QString& path) { return files_->OpenProject(path); }
  bool OpenDictionary(const QString& path) { return files_->OpenDictionary(path); }

  // Opens what is named, a project or by its ending something else. When all of it could be opened and `wizard` is set,
  // the wizard opens as soon as the program runs, as by its command: nothing is saved, the new form is shown, and asked
  // about when the window is closed.
  void Open(const QString& file, const QString& dictionary, bool wizard);

  // What was open when the program ended the last time.
  void OpenLast() { files_->OpenLast(); }

  ProjectTree& Tree() { return *tree_; }
  MessageBar& Notice() { return *notice_; }
  Actions& Commands() { return *actions_; }
  const KeptStates& Kept() const { return kept_->States(); }
  FormPage& Page() { return *formPage_; }
  FormView& Form() { return *form_; }
  CodePane& Code() { return *code_; }
  DictionaryPane& Dictionary() { return *dictionary_; }
  MessageBar& Missing() { return *missing_; }

 protected:
  void changeEvent(QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void MakePanes();
  void MakeStartPage();
  void CarryOut();
  void RestoreLayout();
  void KeepLayout();
  void ConnectAddIns(EnvironmentOptions options);
  // Shows what the project holds now, and chooses the component of that name.
  void ShowProject(const std::string& chosen);
  void ShowComponent();
  void ShowState();
  // When a project is opened.
  void TellOfMissing();
  void ShowTools();
  void ShowRecent();
  bool HasWhatTheWizardNeeds();
  void AfterAddIn();

  adapters::satellite::Satellites satellites_;
  Texts texts_;
  Memory memory_;
  std::unique_ptr<Actions> actions_;
  ProjectTree* tree_;
  FormView* form_;
  FormPage* formPage_;
  CodePane* code_;
  DictionaryPane* dictionary_;
  PropertiesPanel* properties_;
  Panes* panes_;
  StartPage* start_;
  QStackedWidget* pages_;
  MessageBar* missing_;  // of the project
  MessageBar* notice_;   // above the pages: what is to be known whatever is looked at
  std::unique_ptr<StatusLine> status_;
  std::unique_ptr<ComponentPages> component_;
  std::unique_ptr<FormCommands> formCommands_;
  std::unique_ptr<HelpCommands> help_;
  std::unique_ptr<Environment> environment_;
  std::unique_ptr<EntryProperties> entryProperties_;
  std::unique_ptr<Files> files_;
  std::unique_ptr<ChangeCommand> change_;
  std::unique_ptr<EditCommands> edit_;
  std::unique_ptr<ComponentCommands> componentCommands_;
  std::unique_ptr<KeptCommands> kept_;
  std::string lastNew_;
};

}  // namespace formwizard::apps::desktop
