#include "apps/desktop/preview/PreviewRun.h"

#include "apps/desktop/preview/ScratchFiles.h"
#include "generator/Generation.h"
#include "generator/ide/ActiveX.h"
#include "support/Failures.h"
#include "wizard/TreePictures.h"

#include <algorithm>
#include <stdexcept>

namespace formwizard::apps::desktop {
namespace {

using adapters::vb6files::ProjectOnDisk;
using wizard::frmWizard;

// What would be shown to the user is gathered.
class Listener : public ui::Desktop {
 public:
  std::vector<std::string> Messages;

  void SetMousePointer(ui::MousePointer) override {}
  ui::MessageAnswer ShowMessage(std::string_view text, int, std::string_view) override {
    if (std::ranges::find(Messages, text) == Messages.end()) Messages.emplace_back(text);
    return ui::MessageAnswer::Ok;
  }
  void ProcessMessages() override {}
  void ShowModal(ui::Form&, ui::Form*) override { throw std::logic_error("a generation shows no dialog"); }
};

// A project without components that refers to the same control libraries.
std::string WithoutComponents(const std::string& project) {
  std::string text = "Type=Exe\r\n";
  for (std::size_t start = 0; start < project.size();) {
    const std::size_t end = std::min(project.find('\n', start), project.size() - 1) + 1;
    if (project.compare(start, 7, "Object=") == 0) text += project.substr(start, end - start);
    start = end;
  }
  return text;
}

bool KnowsQueryControl(const PreviewProject& project) {
  ScratchFiles files(system::RealFileSystem(), project.Path, project.Text);
  try {
    ProjectOnDisk(files, project.Path, {project.Options.CodePageNumber, ""})
        .CheckToolboxKnows(generator::ide::Query.ProgId);
    return true;
  } catch (const support::InputError&) {
    return false;  // the run itself says so
  }
}

// Of the class itself: what an object has inside is optional with it.
std::vector<std::string> MissingIn(const frmWizard& dialog) {
  std::vector<std::string> missing;
  for (const ui::Node* node : dialog.tvwAttributes.Nodes.Roots()) {
    const std::string& text = node->Text.Get();
    if (text.starts_with('*') && node->Image == wizard::picture::Property) missing.push_back(text.substr(1));
  }
  return missing;
}

bool IsSameList(const ui::ListBox& a, const ui::ListBox& b) {
  if (a.ListCount() != b.ListCount()) return false;
  for (int i = 0; i < a.ListCount(); ++i) {
    if (a.ItemData(i) != b.ItemData(i)) return false;
  }
  return true;
}

std::string ChosenControl(const frmWizard& dialog, const model::FormModel& form) {
  constexpr runtime::Int16 attributes(5);
  const ui::ListBox& list = dialog.CurrentStep() < attributes ? dialog.lstSelected : dialog.lstFields;
  if (list.ListIndex() < 0) return {};
  return form.Fields[runtime::Int16(list.ItemData(list.ListIndex()))].ControlName;
}

}  // namespace

PreviewProject ScratchFor(ProjectOnDisk* open, const adapters::vb6files::ProjectOptions& options) {
  PreviewProject project{.Options = options, .Open = open};
  if (!open) return project;
  project.Path = open->Path();
  project.Text = WithoutComponents(system::RealFileSystem().Read(project.Path).value_or(""));
  if (!options.ToolboxFile.empty() && !KnowsQueryControl(project)) project.QueryControlFrom = options.ToolboxFile;
  return project;
}

PreviewedForm MakePreview(const frmWizard& dialog, const PreviewProject& project) {
  ScratchFiles files(system::RealFileSystem(), project.Path, project.Text);
  ProjectOnDisk scratch(files, project.Path, project.Options);
  Listener listener;
  const wizard::AddInState state = dialog.Rehearse(scratch, listener);
  if (!state.NewComponent) throw std::runtime_error(listener.Messages.empty() ? "" : listener.Messages.front());
  generator::ide::VBComponent& made = *state.NewComponent;
  if (!project.Name.empty()) {
    made.SetName(project.Name);
  } else if (project.Open) {
    const std::string stem = generator::FormStem(state.Form.ClassCaption);
    made.SetName(generator::UniqueComponentName(stem, project.Open->ActiveVBProject()));
  }
  const adapters::vb6files::FormFiles texts = scratch.TextsOf(made.Name());
  return {.Tree = adapters::vb6files::ReadFormTree(made.Name(), texts.Frm, texts.Frx, scratch.ProjectCodePage()),
          .Fields = static_cast<std::size_t>(state.Form.SelectedFields.UpperBound().Value()),
          .ChosenControl = ChosenControl(dialog, state.Form),
          .Missing = MissingIn(dialog),
          .Failures = std::move(listener.Messages),
          .IsAheadOfFinish = dialog.lstFields.ListIndex() >= 0 && !IsSameList(dialog.lstSelected, dialog.lstFields),
          .QueryControlFrom = project.QueryControlFrom};
}

}  // namespace formwizard::apps::desktop
