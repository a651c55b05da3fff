#include "apps/desktop/Environment.h"

#include "adapters/qt/Text.h"
#include "apps/common/Dictionaries.h"
#include "apps/common/Paths.h"
#include "apps/common/Platform.h"
#include "apps/desktop/DictionaryCache.h"
#include "apps/desktop/MenuBars.h"
#include "apps/forms/Choices.h"
#include "apps/forms/Offers.h"
#include "apps/forms/WizardUser.h"
#include "generator/ide/ActiveX.h"
#include "support/Failures.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>

#include <utility>

namespace formwizard::apps::desktop {

using namespace generator::ide;

namespace {

// Time and size of a file; empty when there is none.
std::string StampOf(const std::string& path) {
  const QFileInfo file(adapters::qt::Text(path));
  if (!file.exists()) return "";
  return std::to_string(file.lastModified().toMSecsSinceEpoch()) + " " + std::to_string(file.size());
}

}  // namespace

Environment::Environment(QWidget& window, QMenu& addInsMenu, EnvironmentOptions options)
    : addInsMenu_(addInsMenu),
      options_(std::move(options)),
      profile_(options_.Profile.empty() ? common::DefaultProfile() : options_.Profile),
      profiles_(common::PlatformProfile(profile_)),
      desktop_(&window),
      preview_([this] {
        PreviewProject project = ScratchFor(project_.get(), ProjectOptions());
        project.Name = previewed_;
        return project;
      }),
      wizard_(Ports(), desktop_) {
  desktop_.Watch(&opening_);
  wizard_.IDTExtensibility_OnConnection(*this, addin::ConnectMode::Startup);
}

Environment::~Environment() { wizard_.IDTExtensibility_OnDisconnection(); }

adapters::vb6files::ProjectOptions Environment::ProjectOptions() const {
  const int usual = options_.CodePage.value_or(UsualCodePage);
  return {project_ ? project_->ProjectCodePage().Number() : usual, options_.Toolbox};
}

void Environment::OpenProject(const std::string& path, int codePage) {
  const std::string stamp = StampOf(path);  // of before it is read
  auto project = std::make_unique<adapters::vb6files::ProjectOnDisk>(
      system::RealFileSystem(), common::Resolved(path), adapters::vb6files::ProjectOptions{codePage, options_.Toolbox});
  static_cast<void>(project->Summaries());  // a component that cannot be read is found now
  ForgetProject();
  project_ = std::move(project);
  projectStamp_ = stamp;
}

bool Environment::IsProjectChanged() const {
  const std::string stamp = project_ ? StampOf(project_->Path()) : "";
  return !stamp.empty() && stamp != projectStamp_;
}

void Environment::ForgetProject() {
  wizard_.State().NewComponent.reset();
  updates_.Clear();
  newForms_.Clear();
  keptForms_.reset();
  project_.reset();
}

void Environment::OpenDictionary(const std::string& path) {
  const std::string stamp = StampOf(path);  // of before it is read
  const std::string cache = options_.Cache.empty() ? adapters::qt::Utf8(QDir::tempPath()) : options_.Cache;
  const std::string file = DictionaryToOpen(path, cache);
  server_.Dictionary = common::OpenDictionary(file);
  dictionaryPath_ = path;
  dictionaryStamp_ = stamp;
  dictionaryFile_ = file;
  keptForms_.reset();
  updates_.ForgetDecisions();
  OnDictionary();
}

bool Environment::IsDictionaryChanged() const {
  const std::string stamp = StampOf(dictionaryPath_);
  return !stamp.empty() && stamp != dictionaryStamp_;
}

void Environment::UseToolbox(const std::string& path) {
  if (project_) {
    project_->UseToolbox(path);
  } else {
    adapters::vb6files::Toolbox(system::RealFileSystem(), path);  // for what is wrong with it
  }
  options_.Toolbox = path;
}

void Environment::CloseProject() { ForgetProject(); }

forms::KeptForms& Environment::KeptForms() {
  if (!keptForms_) {
    keptForms_ =
        std::make_unique<forms::KeptForms>(system::RealFileSystem(), *project_, dictionaryFile_, FORMWIZARD_VERSION);
  }
  return *keptForms_;
}

std::vector<NewForms::NotKept> Environment::Save() {
  std::vector<NewForms::NotKept> notKept;
  std::vector<adapters::vb6files::FileChange> finished;
  const std::shared_ptr<void> whileSaving(nullptr, [this](void*) {
    project_->OnChange({}, false);
    project_->OnSave({});
  });
  project_->OnChange([&](const adapters::vb6files::FileChange& change) { finished.push_back(change); }, false);
  project_->OnSave([&] {
    project_->OnChange({}, false);  // what is put now is no form that was finished
    try {
      notKept = newForms_.PutInto(*project_, finished, {dictionaryFile_, FORMWIZARD_VERSION});
      if (!updates_.IsEmpty()) updates_.PutInto(KeptForms());
    } catch (const support::InputError& error) {
      throw support::SaveError(error.what());
    }
  });
  project_->Save();
  projectStamp_ = StampOf(project_->Path());
  updates_.Clear();
  newForms_.Clear();
  keptForms_.reset();
  return notKept;
}

std::vector<adapters::vb6files::ComponentSummary> Environment::Summaries() const {
  std::vector<adapters::vb6files::ComponentSummary> summaries = project_->Summaries();
  for (adapters::vb6files::ComponentSummary& each : summaries) {
    each.IsChanged = each.IsChanged || updates_.Find(each.Name) || updates_.IsReleased(each.Name);
  }
  return summaries;
}

void Environment::AddFormFile(const std::string& projectPath) {
  project_->AddFormFile(projectPath);
  keptForms_.reset();  // which know the components
}

std::string Environment::TakeBack(const std::string& component) {
  if (updates_.TakeBack(component)) return component;
  keptForms_.reset();
  wizard_.State().NewComponent.reset();
  return project_->TakeBack(component).value_or("");
}

std::vector<std::string> Environment::ToolboxControls() const {
  try {
    return adapters::vb6files::Toolbox(system::RealFileSystem(), options_.Toolbox).ProgIds();
  } catch (const support::InputError&) {
    return {};
  }
}

bool Environment::KnowsQueryControl() const {
  try {
    project_->CheckToolboxKnows(generator::ide::Query.ProgId);
    return true;
  } catch (const support::InputError&) {
    return false;
  }
}

QAction* Environment::WizardCommand() const {
  const QList<QAction*> commands = addInsMenu_.actions();
  return commands.isEmpty() ? nullptr : commands.back();
}

std::string Environment::NewComponentName() const {
  const auto& component = wizard_.State().NewComponent;
  return component ? component->Name() : "";
}

VBProject& Environment::ActiveVBProject() {
  if (!project_) {
    runtime::Raise(runtime::ObjectVariableNotSet, "No project is open; open one with File, Open Project");
  }
  return project_->ActiveVBProject();
}

std::shared_ptr<CommandBarControls> Environment::CommandBar(Int32 index) {
  if (index != Int32(1)) runtime::Raise(runtime::SubscriptOutOfRange);
  return MenuBarWith(addInsMenu_);
}

std::unique_ptr<CommandBarEvents> Environment::ConnectEvents(const std::shared_ptr<CommandBarControl>& control,
                                                             CommandBarEvents::Click onClick) {
  return ConnectClicks(
      control, [this, onClick = std::move(onClick)](auto&... answers) { RunCommand([&] { onClick(answers...); }); });
}

void Environment::OpenWizard() {
  RunCommand([this] { wizard_.MenuHandler_Click(); });
}

void Environment::OpenWizardFor(const std::string& system, const std::string& className) {
  opening_.PlayNext({[=](wizard::frmWizard& dialog) { forms::GoToProperties(dialog, system, className); }, {}});
  OpenWizard();
  opening_.PlayNext({});  // also where no wizard has opened
}

void Environment::RunCommand(const std::function<void()>& command) {
  if (!MayRunAddIn()) return;
  const auto before = wizard_.State().NewComponent;
  RunAddIn([&] {
    command();
    if (wizard_.State().NewComponent && wizard_.State().NewComponent != before) RememberChoices();
  });
  keptForms_.reset();  // which know the components
  if (OnAddInDone) OnAddInDone();
}

// Of the form that the wizard has just made.
void Environment::RememberChoices() {
  if (!keepsNewForms_) return;
  const wizard::AddInState& state = wizard_.State();
  forms::Offers offers(server_);
  forms::FormDescription choices =
      forms::ChoicesIn(state, system_.System(), offers.Of(system_.System(), state.Form.ClassName));
  choices.Source = NewComponentName();
  if (!options_.Language.empty()) choices.Language = {options_.Language, {}};
  newForms_.Add(NewComponentName(), std::move(choices));
  if (updates_.IsReleased(NewComponentName())) updates_.TakeBack(NewComponentName());
}

wizard::WizardPorts Environment::Ports() {
  return {.Desktop = desktop_,
          .Measure = measure_,
          .Profiles = *profiles_,
          .Factories = server_,
          .Libraries = satellites_,
          .ProfileFile = profile_,
          .ProgramFolder = common::ProgramFolder(),
          .Language = options_.Language};
}

void Environment::ShowWizard(wizard::frmWizard& dialog, const std::string& form, WizardOpening::Played played) {
  const std::shared_ptr<void> afterwards(nullptr, [this](void*) {
    opening_.PlayNext({});
    previewed_.clear();
  });
  previewed_ = form;
  opening_.PlayNext(std::move(played));
  desktop_.ShowModal(dialog, nullptr);
}

std::unique_ptr<wizard::factory::ObjectFactory> Environment::Server::Create() {
  if (!Dictionary) {
    runtime::Raise(runtime::CannotCreateObject, "No class dictionary is open; open one with File, Open Dictionary");
  }
  return Dictionary->Create();
}

}  // namespace formwizard::apps::desktop
