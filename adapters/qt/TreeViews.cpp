#include "adapters/qt/FormWindow.h"
#include "adapters/qt/ItemWidget.h"
#include "adapters/qt/ObservingView.h"
#include "adapters/qt/TreeModel.h"
#include "adapters/qt/View.h"
#include "ui/MakeFirst.h"

#include <QSignalBlocker>
#include <QStyledItemDelegate>
#include <QTreeView>

namespace formwizard::adapters::qt {
namespace {

// A tick is in the picture already.
class WithoutCheckBoxes final : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

 protected:
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
    QStyledItemDelegate::initStyleOption(option, index);
    option->features &= ~QStyleOptionViewItem::HasCheckIndicator;
  }
};

class TreeViewView final : public ObservingView<ui::TreeView, ItemWidget<QTreeView>, ui::TreeObserver> {
 public:
  TreeViewView(FormWindow& window, ui::TreeView& control)
      : ObservingView(window, control, new ItemWidget<QTreeView>(&window)), model_(*new TreeModel(control, &widget_)) {
    widget_.setModel(&model_);
    widget_.setItemDelegate(new WithoutCheckBoxes(&widget_));
    widget_.setHeaderHidden(true);
    widget_.setUniformRowHeights(true);
    widget_.OnPress = [this](QPointF at) {
      clicked_ = nullptr;
      Act([this, at] { control_.PressMouse(static_cast<float>(at.x()), static_cast<float>(at.y())); });
    };
    widget_.OnDoubleClick = [this] { Act([this] { control_.DoubleClick(); }); };
    widget_.OnCurrent = [this](const QModelIndex& index) {
      clicked_ = TreeModel::NodeOf(index);
      ActOn(index, &ui::TreeView::ClickNode);
    };
    QObject::connect(&widget_, &QTreeView::clicked, &widget_, [this](const QModelIndex& index) {
      if (clicked_ != TreeModel::NodeOf(index)) ActOn(index, &ui::TreeView::ClickNode);
    });
    QObject::connect(&widget_, &QTreeView::expanded, &widget_,
                     [this](const QModelIndex& index) { ActOn(index, &ui::TreeView::ExpandNode); });
    QObject::connect(&widget_, &QTreeView::collapsed, &widget_,
                     [this](const QModelIndex& index) { ActOn(index, &ui::TreeView::CollapseNode); });
  }

  void NodeAdded(ui::Node& node) override {
    model_.NoteAdded(node);
    NoteChange();
  }
  void NodeChanged(ui::Node& node) override {
    model_.NoteChanged(node);
    NoteChange();
  }
  void NodeRemoved(ui::Node& node) override {
    const QSignalBlocker quiet(&widget_);
    if (shownSelection_ == &node) shownSelection_ = nullptr;
    model_.NoteRemoved(node);
    NoteChange();
  }
  void Cleared() override {
    const QSignalBlocker quiet(&widget_);
    shownSelection_ = nullptr;
    model_.NoteClear();
    NoteChange();
  }
  ui::Node* NodeAt(float x, float y) const override {
    return TreeModel::NodeOf(widget_.indexAt(QPointF(x, y).toPoint()));
  }

 private:
  // What the user has done to a node, which the tree may refuse.
  void ActOn(const QModelIndex& index, void (ui::TreeView::*action)(ui::Node&)) {
    ui::Node* node = TreeModel::NodeOf(index);
    if (!node) return;
    NodeChanged(*node);
    Act([&tree = control_, node, action] { (tree.*action)(*node); });
  }

  void Show() override {
    const QSignalBlocker quiet(&widget_);
    const ui::Node* selected = control_.SelectedItem;
    if (selected != shownSelection_) {  // the picture of a selected node may be another one
      for (const ui::Node* node : {selected, shownSelection_}) {
        if (node) model_.NoteChanged(*node);
      }
    }
    shownSelection_ = selected;
    model_.TellView([this](const ui::Node& node) { ShowExpanded(node); });
    widget_.ShowCurrent(model_.IndexOf(selected));
  }

  void ShowExpanded(const ui::Node& node) {
    if (node.Children().empty()) return;
    const QModelIndex index = model_.IndexOf(&node);
    if (widget_.isExpanded(index) != node.Expanded) widget_.setExpanded(index, node.Expanded);
  }

  TreeModel& model_;
  const ui::Node* shownSelection_ = nullptr;
  const ui::Node* clicked_ = nullptr;  // the node that the last press has selected; only compared
};

}  // namespace

std::unique_ptr<View> MakeTreeView(FormWindow& window, ui::Control& control) {
  return ui::MakeIfShown<View, TreeViewView>(window, control);
}

}  // namespace formwizard::adapters::qt
