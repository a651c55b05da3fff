// The project's components as a tree: chosen, opened, and what else can be done with each on its context menu.
#pragma once

#include "apps/desktop/window/ProjectModel.h"

#include <QMenu>
#include <QStackedWidget>
#include <QTreeView>

#include <functional>
#include <set>
#include <string>
#include <vector>

namespace formwizard::apps::desktop {

class EmptyState;

class ProjectTree : public QStackedWidget {
 public:
  // Without a project it says so, and offers `openProject`.
  ProjectTree(const Texts& texts, std::function<void()> openProject);

  // Shows the project; the component of that name is chosen, else the one that comes first. OnChosen hears of it.
  void Show(const adapters::vb6files::ProjectOnDisk& project, std::vector<ProjectModel::Component> components,
            const std::string& chosen);
  void Clear();

  // Null when none is chosen.
  const ProjectModel::Component* Chosen() const { return model_->At(tree_->currentIndex()); }
  // Of what is chosen, a related document too; empty when it has none.
  std::string ChosenFile() const { return model_->FileOf(tree_->currentIndex()); }
  bool Choose(const std::string& name);
  // Of a form that is kept and that the project lacks; empty for anything else.
  std::string ChosenMissing() const { return model_->MissingAt(tree_->currentIndex()); }
  // Whatever is chosen has: a component, or a form that the project lacks.
  std::string ChosenName() const;
  void SetState(const std::string& name, const KeptState& state) { model_->SetState(name, state); }
  // See ProjectModel::SetMissing; what is chosen stays chosen.
  void SetMissing(std::set<std::string> names);
  // The forms and others whose rows are seen, from the top.
  std::vector<std::string> SeenNames() const;

  QTreeView& View() { return *tree_; }
  // The user's choice has moved, or what is chosen has changed.
  std::function<void()> OnChosen = [] {};
  // Other rows are seen.
  std::function<void()> OnScrolled = [] {};
  // Double click or Enter on a component.
  std::function<void()> OnOpened = [] {};
  // The menu of a component; the entries are the window's actions.
  QList<QAction*> ContextActions;

 private:
  void ShowRows(const std::string& chosen);

  const Texts& texts_;
  QTreeView* tree_;
  ProjectModel* model_;
  bool isShowing_ = false;
};

}  // namespace formwizard::apps::desktop
