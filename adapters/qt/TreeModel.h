// The nodes of a tree as a view asks for them. An index holds its node; nothing is kept of a node.
#pragma once

#include "ui/TreeView.h"

#include <QAbstractItemModel>
#include <QIcon>

#include <functional>
#include <unordered_map>

namespace formwizard::adapters::qt {

class TreeModel final : public QAbstractItemModel {
 public:
  // `tree` must outlive the use of the model. The view knows no node before TellView.
  TreeModel(const ui::TreeView& tree, QObject* owner) : QAbstractItemModel(owner), tree_(tree) {}

  // What the tree has done, in the order of its reports. New and changed nodes are told to the view by TellView; one
  // that goes is taken out of the view at once, with the siblings that follow it, which come back then.
  void NoteAdded(const ui::Node& node);
  void NoteChanged(const ui::Node& node);
  void NoteRemoved(const ui::Node& node);
  void NoteClear();
  // As one change for each node whose children are other ones. `shown` is then called for every node that is new to the
  // view, has new children or may have changed.
  void TellView(const std::function<void(const ui::Node&)>& shown);

  // Invalid for null.
  QModelIndex IndexOf(const ui::Node* node) const {
    return node ? createIndex(node->Position(), 0, node) : QModelIndex();
  }
  // Null for an invalid index.
  static ui::Node* NodeOf(const QModelIndex& index) { return static_cast<ui::Node*>(index.internalPointer()); }

  QModelIndex index(int row, int column, const QModelIndex& parent) const override;
  QModelIndex parent(const QModelIndex& index) const override;
  int rowCount(const QModelIndex& parent) const override;
  int columnCount(const QModelIndex&) const override { return 1; }
  // What is ticked in its picture has a check state, too, for those who cannot see it.
  QVariant data(const QModelIndex& index, int role) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;

 private:
  struct Range {
    int First, Last;
  };

  // How many children of a node, or roots for null, the view knows.
  int KnownBelow(const ui::Node* parent) const;
  bool IsKnown(const ui::Node& node) const;
  void TellChanges(const ui::Node* parent, Range range, const std::function<void(const ui::Node&)>& shown);
  void TellNew(const ui::Node* parent, const std::function<void(const ui::Node&)>& shown);
  const QIcon& Icon(int image) const;

  const ui::TreeView& tree_;
  std::unordered_map<const ui::Node*, int> knownBelow_{{nullptr, 0}};  // where it is not all of them
  std::unordered_map<const ui::Node*, Range> changedBelow_;            // positions of known nodes
  mutable std::unordered_map<int, QIcon> icons_;
};

}  // namespace formwizard::adapters::qt
