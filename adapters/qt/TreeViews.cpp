#include "adapters/qt/FormWindow.h"
#include "adapters/qt/ItemWidget.h"
#include "adapters/qt/ObservingView.h"
#include "adapters/qt/Pictures.h"
#include "adapters/qt/Text.h"
#include "adapters/qt/View.h"
#include "ui/MakeFirst.h"

#include <QSignalBlocker>
#include <QTreeWidget>

#include <unordered_map>
#include <unordered_set>
#include <utility>

namespace formwizard::adapters::qt {
namespace {

class NodeItem : public QTreeWidgetItem {
 public:
  explicit NodeItem(ui::Node& node) : Shown(node) {}
  ui::Node& Shown;  // NOLINT(misc-non-private-member-variables-in-classes)
};

class TreeViewView final : public ObservingView<ui::TreeView, ItemWidget<QTreeWidget>, ui::TreeObserver> {
 public:
  TreeViewView(FormWindow& window, ui::TreeView& control)
      : ObservingView(window, control, new ItemWidget<QTreeWidget>(&window)) {
    widget_.setHeaderHidden(true);
    widget_.setUniformRowHeights(true);
    for (ui::Node& node : control.Nodes.All()) NodeAdded(node);
    widget_.OnPress = [this](QPointF at) {
      clicked_ = nullptr;
      Act([this, at] { control_.PressMouse(static_cast<float>(at.x()), static_cast<float>(at.y())); });
    };
    widget_.OnDoubleClick = [this] { Act([this] { control_.DoubleClick(); }); };
    QObject::connect(&widget_, &QTreeWidget::currentItemChanged, &widget_, [this](QTreeWidgetItem* item) {
      clicked_ = item;
      if (item) Act([this, item] { control_.ClickNode(NodeOf(item)); });
    });
    QObject::connect(&widget_, &QTreeWidget::itemClicked, &widget_, [this](QTreeWidgetItem* item) {
      if (clicked_ != item) Act([this, item] { control_.ClickNode(NodeOf(item)); });
    });
    QObject::connect(&widget_, &QTreeWidget::itemExpanded, &widget_, [this](QTreeWidgetItem* item) {
      NoteChange();
      Act([this, item] { control_.ExpandNode(NodeOf(item)); });
    });
    QObject::connect(&widget_, &QTreeWidget::itemCollapsed, &widget_, [this](QTreeWidgetItem* item) {
      NoteChange();
      Act([this, item] { control_.CollapseNode(NodeOf(item)); });
    });
  }

  void NodeAdded(ui::Node& node) override {
    const QSignalBlocker quiet(&widget_);
    auto* item = new NodeItem(node);
    items_.emplace(&node, item);
    if (node.Parent()) {
      items_.at(node.Parent())->addChild(item);
    } else {
      widget_.addTopLevelItem(item);
    }
    NodeChanged(node);
  }
  void NodeChanged(ui::Node& node) override {
    changed_.insert(&node);
    NoteChange();
  }
  void NodeRemoved(ui::Node& node) override {
    const QSignalBlocker quiet(&widget_);
    changed_.erase(&node);
    if (shownSelection_ == &node) shownSelection_ = nullptr;
    delete items_.extract(&node).mapped();
    NoteChange();
  }
  void Cleared() override {
    const QSignalBlocker quiet(&widget_);
    changed_.clear();
    items_.clear();
    shownSelection_ = nullptr;
    widget_.clear();
    NoteChange();
  }
  ui::Node* NodeAt(float x, float y) const override {
    QTreeWidgetItem* item = widget_.itemAt(QPointF(x, y).toPoint());
    return item ? &NodeOf(item) : nullptr;
  }

 private:
  static ui::Node& NodeOf(QTreeWidgetItem* item) { return static_cast<NodeItem*>(item)->Shown; }

  void Show() override {
    const QSignalBlocker quiet(&widget_);
    const ui::Node* selected = control_.SelectedItem;
    if (selected != shownSelection_) {  // the picture of a selected node may be another one
      for (const ui::Node* node : {selected, shownSelection_}) {
        if (node) changed_.insert(node);
      }
    }
    for (const ui::Node* node : std::exchange(changed_, {})) ShowNode(*node, *items_.at(node));
    if (std::exchange(shownSelection_, selected) == selected) return;
    NodeItem* item = selected ? items_.at(selected) : nullptr;
    widget_.setCurrentItem(item);
    if (item) widget_.scrollToItem(item);
  }

  void ShowNode(const ui::Node& node, QTreeWidgetItem& item) {
    const bool isSelected = control_.SelectedItem == &node && node.SelectedImage.Get().Value() != 0;
    item.setText(0, Text(node.Text));
    item.setIcon(0, Icon((isSelected ? node.SelectedImage : node.Image).Get().Value()));
    if (item.isExpanded() != node.Expanded) item.setExpanded(node.Expanded);
  }

  const QIcon& Icon(int image) {
    QIcon& icon = icons_[image];
    if (icon.isNull()) icon = IconOf(resources::TreePicture(image));
    return icon;
  }

  std::unordered_map<const ui::Node*, NodeItem*> items_;
  std::unordered_set<const ui::Node*> changed_;
  const ui::Node* shownSelection_ = nullptr;
  const QTreeWidgetItem* clicked_ = nullptr;  // the node that the last press has selected; only compared
  std::unordered_map<int, QIcon> icons_;
};

}  // namespace

std::unique_ptr<View> MakeTreeView(FormWindow& window, ui::Control& control) {
  return ui::MakeIfShown<View, TreeViewView>(window, control);
}

}  // namespace formwizard::adapters::qt
