// Plays the development environment: the open project, its menus, the wizard as its add-in.
#pragma once

#include "adapters/qt/QtDesktop.h"
#include "adapters/satellite/Satellites.h"
#include "adapters/textmeasure/BuiltInTextMeasure.h"
#include "adapters/vb6files/ProjectOnDisk.h"
#include "addin/Wizard.h"
#include "apps/desktop/dictionary/WizardOpening.h"
#include "apps/desktop/kept/NewForms.h"
#include "apps/desktop/kept/UnsavedUpdates.h"
#include "apps/desktop/preview/WizardPreview.h"
#include "apps/forms/KeptForms.h"
#include "settings/ProfileStore.h"

#include <QMenu>
#include <QWidget>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace formwizard::apps::desktop {

struct EnvironmentOptions {
  std::string Profile, Language, Toolbox;
  std::optional<int> CodePage = {};  // of all projects; nothing: each has its own
  std::string Memory = "";           // the file of what the program remembers; empty: nothing
  std::string Cache = "";  // the folder of dictionaries that are imported from JSON; empty: the system's for the moment
};

class Environment : public generator::ide::Application {
 public:
  // Connects the wizard, whose command then stands on `addInsMenu`; the window and the menu must outlive this object.
  Environment(QWidget& window, QMenu& addInsMenu, EnvironmentOptions options);
  ~Environment() override;

  static constexpr int UsualCodePage = 1252;

  // Each raises support::InputError and leaves what was open. The open project is given up unsaved.
  void OpenProject(const std::string& path, int codePage);
  // As it stands on the disk.
  void OpenProjectAgain() { OpenProject(project_->Path(), project_->ProjectCodePage().Number()); }
  // Also in JSON.
  void OpenDictionary(const std::string& path);
  // Whether its file is another one by now; false when it is gone.
  bool IsDictionaryChanged() const;
  // Whether the project's file is another one than when it was opened or saved; false when it is gone.
  bool IsProjectChanged() const;
  // For this project and those that are opened later.
  void UseToolbox(const std::string& path);
  void CloseProject();
  // See ProjectOnDisk::AddFormFile.
  void AddFormFile(const std::string& projectPath);
  // Takes back what was made of a component and not saved; the name that it has now, empty when it is gone.
  std::string TakeBack(const std::string& component);

  // Empty for none.
  const std::string& DictionaryPath() const { return dictionaryPath_; }
  const std::string& ToolboxPath() const { return options_.Toolbox; }
  // With which the project was opened, or one would be.
  adapters::vb6files::ProjectOptions ProjectOptions() const;
  // Of the options; nothing once another one was chosen for a project.
  const std::optional<int>& CodePageGiven() const { return options_.CodePage; }
  void ForgetCodePageGiven() { options_.CodePage.reset(); }
  // The ProgIDs that the toolbox knows; none when it cannot be read any more.
  std::vector<std::string> ToolboxControls() const;
  // Whether a form that is made can have the query control.
  bool KnowsQueryControl() const;

  // As a click on the wizard's command does; returns when the wizard is closed.
  void OpenWizard();
  // The same, with a class of a system chosen.
  void OpenWizardFor(const std::string& system, const std::string& className);
  // For dialogs of the wizard that are not the add-in's.
  wizard::WizardPorts Ports();
  // Shows one, brought on its way, beside a preview of the form of that name; returns when it is closed.
  void ShowWizard(wizard::frmWizard& dialog, const std::string& form, WizardOpening::Played played);
  // The wizard's command on the Add-Ins menu; null when there is none.
  QAction* WizardCommand() const;

  // Beside the wizard while it is open.
  WizardPreview& Preview() { return preview_; }

  // Runs an add-in's command; no exception may pass through the toolkit, so this is where they are caught.
  std::function<void(const std::function<void()>&)> RunAddIn = [](const auto& command) { command(); };
  // Asked before an add-in's command runs; false keeps it from running.
  std::function<bool()> MayRunAddIn = [] { return true; };
  // Called when an add-in has done what its command was clicked for.
  std::function<void()> OnAddInDone;

  // Of the dictionary that is open.
  wizard::factory::FactoryCreator& Factories() { return server_; }
  // Called when another dictionary is open.
  std::function<void()> OnDictionary = [] {};

  // Null when no project is open.
  adapters::vb6files::ProjectOnDisk* Project() const { return project_.get(); }
  // Updates of its kept forms, which the project itself hears of when it is saved.
  UnsavedUpdates& Updates() { return updates_; }
  // Of the open project as it stands on the disk, by the open dictionary; made anew when either is another one.
  // support::InputError for what cannot be read.
  forms::KeptForms& KeptForms();

  // Whether forms that the wizard makes from now on are kept when they are saved.
  void KeepNewForms(bool isWanted) { keepsNewForms_ = isWanted; }

  // Of the project with these updates: whether saving would write something; saving, as ProjectOnDisk::Save, with the
  // new forms that could not be kept; and its components as they stand once it is saved.
  bool IsChanged() const { return project_ && (project_->IsChanged() || !updates_.IsEmpty()); }
  std::vector<NewForms::NotKept> Save();
  std::vector<adapters::vb6files::ComponentSummary> Summaries() const;
  // The component that the wizard made last in this project; empty before.
  std::string NewComponentName() const;

  generator::ide::VBProject& ActiveVBProject() override;
  std::string Version() const override { return "6.00"; }
  std::shared_ptr<generator::ide::CommandBarControls> CommandBar(runtime::Int32 index) override;
  std::unique_ptr<generator::ide::CommandBarEvents> ConnectEvents(
      const std::shared_ptr<generator::ide::CommandBarControl>& control,
      generator::ide::CommandBarEvents::Click onClick) override;

 private:
  // The factory of the dictionary that is open.
  class Server : public wizard::factory::FactoryCreator {
   public:
    std::unique_ptr<wizard::factory::ObjectFactory> Create() override;
    std::unique_ptr<wizard::factory::FactoryCreator> Dictionary;
  };

  void RunCommand(const std::function<void()>& command);
  void RememberChoices();
  void ForgetProject();

  QMenu& addInsMenu_;
  EnvironmentOptions options_;
  std::string profile_;  // empty for none
  std::unique_ptr<settings::ProfileStore> profiles_;
  adapters::qt::QtDesktop desktop_;
  adapters::textmeasure::BuiltInTextMeasure measure_;
  adapters::satellite::Satellites satellites_;
  Server server_;
  std::string dictionaryStamp_, projectStamp_;   // of their files, see IsDictionaryChanged
  std::string dictionaryPath_, dictionaryFile_;  // as it was chosen; what is read, which for JSON was made of it
  std::unique_ptr<adapters::vb6files::ProjectOnDisk> project_;
  UnsavedUpdates updates_;
  NewForms newForms_;
  bool keepsNewForms_ = true;
  std::unique_ptr<forms::KeptForms> keptForms_;
  std::string previewed_;  // the name of the form that is made; empty for a free one
  WizardPreview preview_;
  SystemWatcher system_{preview_};
  WizardOpening opening_{system_};
  addin::Wizard wizard_;
};

}  // namespace formwizard::apps::desktop
