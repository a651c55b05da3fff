#include "apps/desktop/window/MainWindow.h"

#include "adapters/qt/Text.h"
#include "apps/common/Paths.h"
#include "apps/desktop/window/Drops.h"
#include "apps/desktop/window/NeedsDialog.h"

#include <QApplication>
#include <QCloseEvent>
#include <QShortcut>
#include <QTimer>
#include <QVBoxLayout>

namespace formwizard::apps::desktop {
namespace {

using adapters::qt::Text;
using adapters::qt::Utf8;

constexpr QSize Opens(1200, 740), Smallest(800, 600);
constexpr int NarrowBelow = 960;
constexpr char PreviewKey[] = "window/preview";

QWidget* Below(MessageBar* bar, QWidget* widget) {
  auto* both = new QWidget;
  auto* column = new QVBoxLayout(both);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  column->addWidget(bar);
  column->addWidget(widget, 1);
  return both;
}

}  // namespace

MainWindow::MainWindow(EnvironmentOptions options)
    : texts_(satellites_, common::ProgramFolder(), options.Language),
      memory_(Text(options.Memory)),
      actions_(std::make_unique<Actions>(*this, texts_)) {
  MakePanes();
  MakeStartPage();
  status_ = std::make_unique<StatusLine>(*statusBar(), texts_, (*actions_)[Command::OpenDictionary],
                                         (*actions_)[Command::ChooseToolbox]);
  formCommands_ =
      std::make_unique<FormCommands>(texts_, *actions_, *form_, *code_, *status_, [this] { panes_->Show(Pane::Code); });
  formCommands_->OnSelect = [this] { properties_->ShowSelection(); };
  properties_->OnProcedureWanted = [this](const std::string& procedure) { formCommands_->ShowProcedure(procedure); };
  setMinimumSize(Smallest);
  resize(Opens);
  ConnectAddIns(std::move(options));
  entryProperties_ = std::make_unique<EntryProperties>(texts_, *dictionary_, *properties_, *environment_, *panes_);
  properties_->OnFormWanted = [this](const std::string& form) {
    if (tree_->Choose(form)) panes_->Show(Pane::Form);
  };
  files_ = std::make_unique<Files>(*this, texts_, *environment_, memory_);
  files_->OnProject = [this](const std::string& component) {
    const std::string shown = tree_->ChosenName();  // the tree forgets it
    ShowProject(component.empty() ? shown : component);
  };
  files_->OnOpened = [this](const ProjectMemory& memory) {
    formCommands_->SetZoom(memory.Zoom);
    TellOfMissing();
  };
  files_->OnLeave = [this] { KeepLayout(); };
  files_->OnTools = [this] { ShowTools(); };
  files_->OnDone = [this](const QString& text) { status_->Say(text); };
  change_ = std::make_unique<ChangeCommand>(*this, texts_, *actions_, *environment_, *files_);
  change_->OnChanged = [this](const std::string& form) { ShowProject(form); };
  edit_ = std::make_unique<EditCommands>(*actions_, *panes_, *code_, *form_, *properties_, *dictionary_);
  componentCommands_ =
      std::make_unique<ComponentCommands>(*this, texts_, *actions_, *environment_, *files_, *tree_, *form_);
  componentCommands_->OnTakenBack = [this](const std::string& component) { ShowProject(component); };
  kept_ = std::make_unique<KeptCommands>(KeptParts{*this, texts_, *actions_, *environment_, *files_, memory_, *tree_,
                                                   *formPage_, *notice_, *form_, *code_, *panes_, *status_});
  CarryOut();
  help_ = std::make_unique<HelpCommands>(*this, texts_, *actions_);
  TakeDrops(*this, [this](const QStringList& files) {  // a dictionary that comes with a project is opened behind it
    for (const QString& file : files) files_->Open(file);
  });
  ShowProject("");
  ShowTools();
  RestoreLayout();
}

// What is shown hears nothing any more while the rest goes, and is not seen to go.
MainWindow::~MainWindow() {
  hide();
  tree_->OnChosen = [] {};
  entryProperties_.reset();
  dictionary_->OnChosen = [] {};
  code_->OnPlace = [](const QString&) {};
  dictionary_->Show(nullptr);
}

void MainWindow::MakePanes() {
  tree_ = new ProjectTree(texts_, [this] { files_->AskForProject(); });
  form_ = new FormView(texts_);
  formPage_ = new FormPage(texts_, form_);
  code_ = new CodePane(texts_);
  properties_ = new PropertiesPanel(*form_, texts_);
  dictionary_ = new DictionaryPane(texts_, [this] { files_->AskForDictionary(); });
  dictionary_->OnNewForm = [this](const DictionaryModel::ClassName& name) {
    environment_->OpenWizardFor(Utf8(name.System), Utf8(name.Class));
  };
  panes_ = new Panes(
      texts_,
      {.Project = tree_, .Dictionary = dictionary_, .Form = formPage_, .Code = code_, .Properties = properties_});
  code_->OnPlace = [this](const QString& place) {
    if (place.isEmpty()) return formCommands_->ShowPlace();
    status_->SetPlace(place);
  };
  component_ = std::make_unique<ComponentPages>(texts_, *formPage_, *form_, *code_, *panes_);
  tree_->OnChosen = [this] { ShowComponent(); };
  tree_->OnOpened = [this] { panes_->Show(tree_->Chosen()->IsForm ? Pane::Form : Pane::Code); };
  for (const auto& [key, backwards] : {std::pair{"F6", false}, std::pair{"Shift+F6", true}}) {
    auto* next = new QShortcut(QKeySequence(key), this);
    connect(next, &QShortcut::activated, this, [this, isBackwards = backwards] { panes_->FocusNext(isBackwards); });
  }
}

void MainWindow::MakeStartPage() {
  start_ = new StartPage(texts_,
                         {.OpenProject = [this] { files_->AskForProject(); },
                          .OpenDictionary = [this] { files_->AskForDictionary(); },
                          .TrySample = [this] { files_->TrySample(); },
                          .Help = [this] { help_->Show(); }},
                         [this](const QString& path) { files_->OpenRecent(path); });
  pages_ = new QStackedWidget;
  pages_->addWidget(start_);
  missing_ = new MessageBar(texts_);
  notice_ = new MessageBar(texts_);
  pages_->addWidget(Below(missing_, panes_));
  setCentralWidget(Below(notice_, pages_));
  memory_.OnNotWritten = [this](const QString& file) {
    notice_->Say("missing", texts_(T::SettingsNotWritten, file).toHtmlEscaped());
  };
}

void MainWindow::ConnectAddIns(EnvironmentOptions options) {
  environment_ = std::make_unique<Environment>(*this, actions_->Menu(MenuName::AddIns), std::move(options));
  environment_->RunAddIn = [this](const std::function<void()>& command) {
    files_->Try(T::NeedsTitle, texts_(T::SomethingFailed), command);
  };
  environment_->MayRunAddIn = [this] { return HasWhatTheWizardNeeds(); };
  environment_->OnAddInDone = [this] { AfterAddIn(); };
  WizardPreview& preview = environment_->Preview();
  QAction& previewed = (*actions_)[Command::WizardPreview];
  preview.SetTexts(texts_);
  preview.OnClosed = [&previewed] { previewed.setChecked(false); };
  actions_->On(Command::WizardPreview, [this, &preview](bool wanted) {
    preview.SetWanted(wanted);
    memory_.Keep(PreviewKey, wanted);
  });
  const QVariant kept = memory_.Value(PreviewKey);
  previewed.setChecked(!kept.isValid() || kept.toBool());
  preview.SetWanted(previewed.isChecked());
  environment_->OnDictionary = [this] {
    dictionary_->Show(&environment_->Factories());
    kept_->Check();
  };
  if (QAction* wizard = environment_->WizardCommand()) actions_->PlaceWizardCommand(*wizard);
}

void MainWindow::CarryOut() {
  const auto on = [this](Command command, std::function<void()> action) { actions_->On(command, std::move(action)); };
  on(Command::OpenProject, [this] { files_->AskForProject(); });
  on(Command::OpenDictionary, [this] { files_->AskForDictionary(); });
  on(Command::ChooseToolbox, [this] { files_->AskForToolbox(); });
  on(Command::ChooseCodePage, [this] { files_->ChooseCodePage(); });
  on(Command::SaveProject, [this] { files_->Save(); });
  on(Command::CloseProject, [this] { files_->CloseProject(); });
  on(Command::Quit, [this] { close(); });
  for (const auto& [command, pane] :
       {std::pair{Command::ShowForm, Pane::Form}, std::pair{Command::ShowCode, Pane::Code},
        std::pair{Command::ShowProject, Pane::Project}, std::pair{Command::ShowDictionary, Pane::Dictionary},
        std::pair{Command::ShowProperties, Pane::Properties}}) {
    on(command, [this, shown = pane] { panes_->Show(shown); });
  }
  on(Command::TrySample, [this] { files_->TrySample(); });
}

bool MainWindow::HasWhatTheWizardNeeds() {
  files_->RefreshDictionary();
  return !NeedsDialog::IsAnythingMissing(*environment_) ||
         NeedsDialog(*this, texts_, *environment_, *files_).exec() == QDialog::Accepted;
}

void MainWindow::Open(const QString& file, const QString& dictionary, bool wizard) {
  const bool opened = file.isEmpty() || files_->Open(file);
  if (!dictionary.isEmpty() && !OpenDictionary(dictionary)) return;
  if (!wizard || !opened) return;
  auto* start = new QTimer(this);
  start->setSingleShot(true);
  connect(start, &QTimer::timeout, this, [this] { environment_->OpenWizard(); });
  start->start();
}

void MainWindow::resizeEvent(QResizeEvent* event) {
  QMainWindow::resizeEvent(event);
  const bool isNarrow = width() < NarrowBelow;
  panes_->SetNarrow(isNarrow);
  actions_->SetNarrow(isNarrow);
}

// Whoever comes back may have made the dictionary anew, or brought another state of the project from version control.
void MainWindow::changeEvent(QEvent* event) {
  QMainWindow::changeEvent(event);
  const bool isUsed = event->type() == QEvent::ActivationChange && isActiveWindow();
  if (!isUsed || !files_ || QApplication::activeModalWidget()) return;
  files_->RefreshProject();
  files_->RefreshDictionary();
}

void MainWindow::closeEvent(QCloseEvent* event) {
  event->setAccepted(files_->MayGiveUp());
  if (event->isAccepted()) KeepLayout();
}

}  // namespace formwizard::apps::desktop
