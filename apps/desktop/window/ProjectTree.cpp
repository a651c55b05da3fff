#include "apps/desktop/window/ProjectTree.h"

#include "adapters/qt/Text.h"
#include "apps/desktop/basics/EmptyState.h"
#include "apps/desktop/basics/Icons.h"

#include <QFileInfo>
#include <QHeaderView>
#include <QPainter>
#include <QScrollBar>
#include <QStyledItemDelegate>

namespace formwizard::apps::desktop {
namespace {

using adapters::qt::Text;

constexpr int StateWidth = 44, RowHeight = 22, IconSide = 16;
enum Page : int { Tree, Nothing };

// All rows have one height, so that none is measured. The icons of a state stand at the right.
class RowDelegate final : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex&) const override {
    return {StateWidth, std::max(RowHeight, option.fontMetrics.height() + 4)};
  }

  void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    QStyledItemDelegate::paint(painter, option, index);
    const QStringList icons = index.data(ProjectModel::IconsRole).toStringList();
    const QIcon::Mode mode = option.state.testFlag(QStyle::State_Selected) ? QIcon::Selected : QIcon::Normal;
    QRect place(option.rect.right() - IconSide - 4, option.rect.center().y() - IconSide / 2 + 1, IconSide, IconSide);
    for (auto icon = icons.crbegin(); icon != icons.crend(); ++icon, place.translate(-IconSide - 2, 0)) {
      IconNamed(*icon).paint(painter, place, Qt::AlignCenter, mode);
    }
  }
};

}  // namespace

ProjectTree::ProjectTree(const Texts& texts, std::function<void()> openProject)
    : texts_(texts), tree_(new QTreeView), model_(new ProjectModel(texts, this)) {
  tree_->setModel(model_);
  tree_->setItemDelegate(new RowDelegate(tree_));
  tree_->setAccessibleName(texts(T::TabProject));
  tree_->setHeaderHidden(true);
  tree_->setUniformRowHeights(true);
  tree_->setFrameShape(QFrame::NoFrame);
  tree_->setIconSize({IconSide, IconSide});
  tree_->setExpandsOnDoubleClick(false);
  tree_->header()->setStretchLastSection(false);
  tree_->header()->setMinimumSectionSize(StateWidth);
  tree_->header()->setSectionResizeMode(ProjectModel::NameColumn, QHeaderView::Stretch);
  tree_->header()->setSectionResizeMode(ProjectModel::StateColumn, QHeaderView::Fixed);
  tree_->header()->resizeSection(ProjectModel::StateColumn, StateWidth);
  tree_->setContextMenuPolicy(Qt::CustomContextMenu);
  addWidget(tree_);
  addWidget(new EmptyState(texts(T::NoProject), texts(T::ButtonOpenProject), std::move(openProject)));
  setCurrentIndex(Nothing);
  setFocusProxy(tree_);

  connect(tree_->selectionModel(), &QItemSelectionModel::currentChanged, this, [this] {
    if (!isShowing_) OnChosen();
  });
  connect(tree_->verticalScrollBar(), &QScrollBar::valueChanged, this, [this] { OnScrolled(); });
  connect(tree_, &QTreeView::activated, this, [this](const QModelIndex& index) {
    if (model_->At(index)) {
      OnOpened();
    } else {
      tree_->setExpanded(index, !tree_->isExpanded(index));
    }
  });
  connect(tree_, &QWidget::customContextMenuRequested, this, [this](const QPoint& at) {
    if (model_->FileOf(tree_->currentIndex()).empty() && ChosenName().empty()) return;
    QMenu menu;
    menu.addActions(ContextActions);
    menu.exec(tree_->viewport()->mapToGlobal(at));
  });
}

void ProjectTree::Show(const adapters::vb6files::ProjectOnDisk& project,
                       std::vector<ProjectModel::Component> components, const std::string& chosen) {
  const QFileInfo file(Text(project.Path()));
  isShowing_ = true;
  model_->Show(file.completeBaseName() + " (" + file.fileName() + ")", std::move(components),
               project.RelatedDocuments());
  ShowRows(chosen);
  isShowing_ = false;
  setCurrentIndex(Tree);
  OnChosen();
}

void ProjectTree::ShowRows(const std::string& chosen) {
  tree_->expandToDepth(1);
  const QModelIndex root = model_->index(0, ProjectModel::NameColumn);
  tree_->setFirstColumnSpanned(0, {}, true);  // only components have a state
  for (int group = 0; group < model_->rowCount(root); ++group) tree_->setFirstColumnSpanned(group, root, true);
  if (!Choose(chosen)) tree_->setCurrentIndex(model_->First());
}

void ProjectTree::SetMissing(std::set<std::string> names) {
  const std::string chosen = ChosenName();
  isShowing_ = true;
  if (model_->SetMissing(std::move(names))) ShowRows(chosen);
  isShowing_ = false;
  if (ChosenName() != chosen) OnChosen();
}

std::string ProjectTree::ChosenName() const { return Chosen() ? Chosen()->Name : ChosenMissing(); }

std::vector<std::string> ProjectTree::SeenNames() const {
  std::vector<std::string> names;
  const QRect seen = tree_->viewport()->rect();
  for (QModelIndex index = tree_->indexAt(seen.topLeft()); index.isValid() && tree_->visualRect(index).intersects(seen);
       index = tree_->indexBelow(index)) {
    const ProjectModel::Component* component = model_->At(index);
    names.push_back(component ? component->Name : model_->MissingAt(index));
  }
  return names;
}

void ProjectTree::Clear() {
  isShowing_ = true;
  model_->Clear();
  isShowing_ = false;
  setCurrentIndex(Nothing);
  OnChosen();
}

bool ProjectTree::Choose(const std::string& name) {
  const QModelIndex index = model_->Find(name);
  if (!index.isValid()) return false;
  tree_->setCurrentIndex(index);
  return true;
}

}  // namespace formwizard::apps::desktop
