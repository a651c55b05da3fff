#include "apps/desktop/MainWindow.h"

#include "adapters/qt/Text.h"
#include "apps/common/Endings.h"
#include "support/Messages.h"

#include <QCloseEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QMenuBar>
#include <QMessageBox>
#include <QSplitter>
#include <QStatusBar>
#include <QTimer>

namespace formwizard::apps::desktop {
namespace {

using adapters::qt::Text;
using adapters::qt::Utf8;
namespace vb6files = adapters::vb6files;

// The bytes of a module or class, without the environment's own lines at its start.
std::string CodeOfModule(const system::CodePage& codePage, const std::string& bytes) {
  const std::string text = codePage.Decode(bytes);
  std::size_t start = 0;
  for (std::size_t line = 0; line < text.size(); line = std::min(text.find('\n', line), text.size() - 1) + 1) {
    if (text.compare(line, 10, "Attribute ") == 0)
      start = std::min(text.find('\n', line), text.size() - 1) + 1;
    else if (start != 0)
      break;
  }
  return text.substr(start);
}

}  // namespace

MainWindow::MainWindow(EnvironmentOptions options)
    : components_(new QListView),
      model_(new ComponentModel(components_)),
      pages_(new QTabWidget),
      form_(new FormView),
      code_(new CodeView) {
  components_->setAccessibleName("Components");
  components_->setModel(model_);
  components_->setItemDelegate(new ComponentDelegate(*model_, components_));
  components_->setUniformItemSizes(true);
  pages_->addTab(form_, "&Form");
  pages_->addTab(code_, "&Code");
  auto* splitter = new QSplitter;
  splitter->addWidget(components_);
  splitter->addWidget(pages_);
  splitter->setStretchFactor(1, 1);
  splitter->setSizes({220, 780});
  setCentralWidget(splitter);
  resize(1000, 700);
  connect(components_->selectionModel(), &QItemSelectionModel::currentChanged, this,
          [this] { Try([this] { ShowComponent(); }); });

  AddMenus();
  environment_ = std::make_unique<Environment>(*this, *addInsMenu_, std::move(options));
  environment_->RunAddIn = [this](const std::function<void()>& command) { Try(command); };
  environment_->OnAddInDone = [this] { AfterAddIn(); };
  ShowState();
}

void MainWindow::AddMenus() {
  QMenu* file = menuBar()->addMenu("&File");
  file->addAction("&Open Project...", QKeySequence::Open, this, [this] { AskForProject(); });
  file->addAction("Open &Dictionary...", this, [this] { AskForDictionary(); });
  file->addSeparator();
  save_ = file->addAction("&Save Project", QKeySequence::Save, this, [this] { Save(); });
  file->addSeparator();
  file->addAction("&Quit", QKeySequence::Quit, this, [this] { close(); });
  QMenu* view = menuBar()->addMenu("&View");
  QAction* tabOrder = view->addAction("&Tab Order");
  tabOrder->setCheckable(true);
  connect(tabOrder, &QAction::toggled, this, [this](bool shown) { form_->SetTabOrderShown(shown); });
  addInsMenu_ = menuBar()->addMenu("&Add-Ins");
}

bool MainWindow::Try(const std::function<void()>& action) {
  try {
    action();
    return true;
  } catch (...) {
    const QString message = Text(support::Shortened(common::CurrentFailure("").Message));
    QMessageBox::critical(this, support::ProductName, message);
    return false;
  }
}

bool MainWindow::OpenProject(const QString& path) {
  const bool opened = Try([&] { environment_->OpenProject(Utf8(path)); });
  if (opened) {
    lastNew_.clear();
    ShowProject("");
  }
  return opened;
}

bool MainWindow::OpenDictionary(const QString& path) {
  const bool opened = Try([&] { environment_->OpenDictionary(Utf8(path)); });
  if (opened) statusBar()->showMessage("Class dictionary: " + QFileInfo(path).fileName());
  return opened;
}

void MainWindow::Open(const QString& project, const QString& dictionary, bool wizard) {
  const bool opened = project.isEmpty() || OpenProject(project);
  if (!dictionary.isEmpty() && !OpenDictionary(dictionary)) return;
  if (!wizard || !opened) return;
  auto* start = new QTimer(this);
  start->setSingleShot(true);
  connect(start, &QTimer::timeout, this, [this] { environment_->OpenWizard(); });
  start->start();
}

void MainWindow::AskForProject() {
  if (!MayGiveUp()) return;
  const QString path =
      QFileDialog::getOpenFileName(this, "Open Project", "", "Visual Basic projects (*.vbp *.VBP);;All files (*)");
  if (!path.isEmpty()) OpenProject(path);
}

void MainWindow::AskForDictionary() {
  const QString path =
      QFileDialog::getOpenFileName(this, "Open Dictionary", "", "Class dictionaries (*.sqlite *.db);;All files (*)");
  if (!path.isEmpty()) OpenDictionary(path);
}

bool MainWindow::Save() {
  const bool saved = Try([this] { environment_->Project()->Save(); });
  if (saved) statusBar()->showMessage("Saved");
  ShowState();
  return saved;
}

bool MainWindow::MayGiveUp() {
  const vb6files::ProjectOnDisk* project = environment_->Project();
  if (!project || !project->IsChanged()) return true;
  const QString name = QFileInfo(Text(project->Path())).fileName();
  const auto answer = QMessageBox::warning(this, support::ProductName,
                                           "The project " + name + " has changes that are not saved. Save them?",
                                           QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel);
  if (answer == QMessageBox::Save) return Save();
  return answer == QMessageBox::Discard;
}

void MainWindow::ShowProject(const std::string& chosen) {
  model_->Show(environment_->Project()->Summaries());
  const QModelIndex row = model_->Find(chosen);
  components_->setCurrentIndex(row);                     // which shows the component
  if (!row.isValid()) Try([this] { ShowComponent(); });  // that there is none
  ShowState();
}

void MainWindow::ShowComponent() {
  form_->SetForm(std::nullopt);
  code_->clear();
  const QModelIndex current = components_->currentIndex();
  if (!current.isValid()) return;
  vb6files::ProjectOnDisk& project = *environment_->Project();
  const auto& [name, file, isForm] = model_->At(current);
  const vb6files::FormFiles texts = project.TextsOf(name);
  pages_->setTabEnabled(0, isForm);
  if (!isForm) {
    code_->ShowCode(Text(CodeOfModule(project.ProjectCodePage(), texts.Frm)));
    return;
  }
  vb6files::FormTree tree = vb6files::ReadFormTree(name, texts.Frm, texts.Frx, project.ProjectCodePage());
  code_->ShowCode(Text(tree.Code));
  form_->SetForm(std::move(tree));
}

void MainWindow::ShowState() {
  const vb6files::ProjectOnDisk* project = environment_->Project();
  save_->setEnabled(project && project->IsChanged());
  setWindowModified(project && project->IsChanged());
  const QString name = project ? QFileInfo(Text(project->Path())).fileName() + "[*] - " : "[*]";
  setWindowTitle(name + support::ProductName);
}

// Shows the form that the wizard has made, complete or not.
void MainWindow::AfterAddIn() {
  if (!environment_->Project()) return;
  const std::string made = environment_->NewComponentName();
  if (made.empty() || made == lastNew_) {
    ShowState();
    return;
  }
  lastNew_ = made;
  ShowProject(made);
  if (const auto kept = environment_->Project()->CodeKeptIn(made)) {
    QMessageBox::information(this, "Ostrel Form Wizard", Text(support::Shortened(vb6files::NoteOn(made, *kept))));
  }
}

void MainWindow::closeEvent(QCloseEvent* event) { event->setAccepted(MayGiveUp()); }

}  // namespace formwizard::apps::desktop
