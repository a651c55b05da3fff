// What the main window shows, and how it is left and found again.
#include "adapters/qt/Text.h"
#include "apps/desktop/window/MainWindow.h"
#include "support/Messages.h"
#include "support/Strings.h"

#include <QFileInfo>

namespace formwizard::apps::desktop {
namespace {

using adapters::qt::Text;
namespace vb6files = adapters::vb6files;

constexpr char GeometryKey[] = "window/geometry", PanesKey[] = "window/panes";

}  // namespace

void MainWindow::RestoreLayout() {
  restoreGeometry(memory_.Value(GeometryKey).toByteArray());
  panes_->restoreState(memory_.Value(PanesKey).toByteArray());
}

void MainWindow::KeepLayout() {
  memory_.Keep(GeometryKey, saveGeometry());
  if (!panes_->IsNarrow()) memory_.Keep(PanesKey, panes_->saveState());
  if (!environment_->Project()) return;
  const QString project = Text(environment_->Project()->Path());
  ProjectMemory memory = memory_.Of(project);
  memory.Zoom = formCommands_->Zoom();
  memory.Component = tree_->Chosen() ? Text(tree_->Chosen()->Name) : "";
  memory_.Keep(project, memory);
}

void MainWindow::ShowProject(const std::string& chosen) {
  if (const auto* project = environment_->Project()) {
    tree_->Show(*project, environment_->Summaries(), chosen);
  } else {
    lastNew_.clear();
    tree_->Clear();
    missing_->Clear();
  }
  entryProperties_->ReadProject();
  kept_->Check();
  ShowState();
}

void MainWindow::ShowComponent() {
  const ProjectModel::Component* chosen = tree_->Chosen();
  componentCommands_->ShowState();
  change_->SetComponent(chosen);
  component_->Show(environment_->Project(), chosen, chosen ? environment_->Updates().Find(chosen->Name) : nullptr);
  kept_->ShowChosen();
}

void MainWindow::ShowState() {
  const vb6files::ProjectOnDisk* project = environment_->Project();
  const bool isChanged = environment_->IsChanged();
  actions_->Enable(Command::SaveProject, isChanged);
  actions_->Enable(Command::ChooseCodePage, project != nullptr);
  actions_->Enable(Command::CloseProject, project != nullptr);
  setWindowModified(isChanged);
  QString name = project ? QFileInfo(Text(project->Path())).fileName() : "";
  name.replace("[*]", "[*][*]");  // which stands for the star
  setWindowTitle(name + (project ? "[*] - " : "[*]") + support::ProductName);
  formCommands_->ShowPlace();
  if (!project) status_->SetPlace(texts_(T::StatusNoProject));
  const bool isEmpty = !project && environment_->DictionaryPath().empty();
  pages_->setCurrentIndex(isEmpty ? 0 : 1);
  actions_->Bar().setVisible(!isEmpty);
}

void MainWindow::TellOfMissing() {
  const std::size_t count = environment_->Project()->MissingFiles().size();
  if (count == 0) return missing_->Clear();
  missing_->Say("missing", count == 1 ? texts_(T::OneMissing) : texts_(T::SeveralMissing, QString::number(count)));
}

void MainWindow::ShowTools() {
  const auto name = [](const std::string& path) { return QFileInfo(Text(path)).fileName(); };
  status_->SetDictionary(name(environment_->DictionaryPath()));
  status_->SetToolbox(name(environment_->ToolboxPath()));
  ShowRecent();
  ShowState();
}

void MainWindow::ShowRecent() {
  const std::vector<RecentFile> files = memory_.Recent();
  start_->Show(files);
  QMenu& menu = actions_->RecentMenu();
  menu.clear();
  for (const RecentFile& file : files) {
    QString text = file.Path;
    menu.addAction(text.replace('&', "&&"), this, [this, path = file.Path] { files_->OpenRecent(path); });
  }
  actions_->Enable(Command::OpenRecent, !files.empty());
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
    formPage_->Bar().Say("info", Text(support::Shortened(vb6files::NoteOn(made, *kept))).toHtmlEscaped(),
                         texts_(T::ButtonShowCode), [this] { panes_->Show(Pane::Code); });
  }
}

}  // namespace formwizard::apps::desktop
