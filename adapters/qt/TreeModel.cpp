#include "adapters/qt/TreeModel.h"

#include "adapters/qt/Pictures.h"
#include "adapters/qt/Text.h"
#include "wizard/TreePictures.h"

#include <algorithm>
#include <utility>

namespace formwizard::adapters::qt {
namespace {

using ShownNode = std::function<void(const ui::Node&)>;

void ShowAll(const ui::Node& node, const ShownNode& shown) {
  shown(node);
  for (const ui::Node* child : node.Children()) ShowAll(*child, shown);
}

bool IsTickable(const ui::Node& node) {
  return node.Image == wizard::picture::Property || node.Image == wizard::picture::SelectedProperty;
}

}  // namespace

void TreeModel::NoteAdded(const ui::Node& node) {
  if (!node.Parent() || IsKnown(*node.Parent())) knownBelow_.try_emplace(node.Parent(), node.Position());
}

void TreeModel::NoteChanged(const ui::Node& node) {
  if (!IsKnown(node)) return;
  Range& range = changedBelow_.try_emplace(node.Parent(), Range{node.Position(), node.Position()}).first->second;
  range = {std::min(range.First, node.Position()), std::max(range.Last, node.Position())};
}

void TreeModel::NoteRemoved(const ui::Node& node) {
  knownBelow_.erase(&node);
  changedBelow_.erase(&node);
  if (!IsKnown(node)) return;
  beginRemoveRows(IndexOf(node.Parent()), node.Position(), KnownBelow(node.Parent()) - 1);
  knownBelow_[node.Parent()] = node.Position();
  endRemoveRows();
}

void TreeModel::NoteClear() {
  beginResetModel();
  knownBelow_ = {{nullptr, 0}};
  changedBelow_.clear();
  endResetModel();
}

void TreeModel::TellView(const ShownNode& shown) {
  std::erase_if(knownBelow_, [this](const auto& entry) { return entry.first && !IsKnown(*entry.first); });
  for (const auto& [parent, range] : std::exchange(changedBelow_, {})) TellChanges(parent, range, shown);
  while (!knownBelow_.empty()) TellNew(knownBelow_.begin()->first, shown);
}

void TreeModel::TellChanges(const ui::Node* parent, Range range, const ShownNode& shown) {
  if (parent && !IsKnown(*parent)) return;  // it comes back with its children
  const int end = std::min(range.Last + 1, KnownBelow(parent));
  if (range.First >= end) return;
  const std::vector<ui::Node*>& nodes = tree_.Nodes.Below(parent);
  const auto at = [&](int row) { return nodes[static_cast<std::size_t>(row)]; };
  emit dataChanged(IndexOf(at(range.First)), IndexOf(at(end - 1)));
  for (int row = range.First; row < end; ++row) shown(*at(row));
}

void TreeModel::TellNew(const ui::Node* parent, const ShownNode& shown) {
  const std::vector<ui::Node*>& nodes = tree_.Nodes.Below(parent);
  const int known = KnownBelow(parent), all = static_cast<int>(nodes.size());
  if (known < all) beginInsertRows(IndexOf(parent), known, all - 1);
  knownBelow_.erase(parent);
  if (known < all) endInsertRows();
  if (parent) shown(*parent);
  std::for_each(nodes.begin() + known, nodes.end(), [&](const ui::Node* node) { ShowAll(*node, shown); });
}

int TreeModel::KnownBelow(const ui::Node* parent) const {
  const auto found = knownBelow_.find(parent);
  return found == knownBelow_.end() ? static_cast<int>(tree_.Nodes.Below(parent).size()) : found->second;
}

bool TreeModel::IsKnown(const ui::Node& node) const {
  for (const ui::Node* at = &node; at; at = at->Parent()) {
    const auto found = knownBelow_.find(at->Parent());
    if (found != knownBelow_.end() && at->Position() >= found->second) return false;
  }
  return true;
}

QModelIndex TreeModel::index(int row, int column, const QModelIndex& parent) const {
  if (row < 0 || column != 0 || row >= rowCount(parent)) return {};
  return createIndex(row, 0, tree_.Nodes.Below(NodeOf(parent))[static_cast<std::size_t>(row)]);
}

QModelIndex TreeModel::parent(const QModelIndex& index) const {
  const ui::Node* node = NodeOf(index);
  return IndexOf(node ? node->Parent() : nullptr);
}

int TreeModel::rowCount(const QModelIndex& parent) const { return KnownBelow(NodeOf(parent)); }

QVariant TreeModel::data(const QModelIndex& index, int role) const {
  const ui::Node* node = NodeOf(index);
  if (!node) return {};
  if (role == Qt::DisplayRole) return Text(node->Text);
  if (role == Qt::CheckStateRole && IsTickable(*node)) {
    return node->Image == wizard::picture::SelectedProperty ? Qt::Checked : Qt::Unchecked;
  }
  if (role != Qt::DecorationRole) return {};
  const bool isSelected = tree_.SelectedItem == node && node->SelectedImage.Get().Value() != 0;
  return Icon((isSelected ? node->SelectedImage : node->Image).Get().Value());
}

Qt::ItemFlags TreeModel::flags(const QModelIndex& index) const {
  const ui::Node* node = NodeOf(index);
  const Qt::ItemFlags flags = QAbstractItemModel::flags(index);
  return node && IsTickable(*node) ? flags | Qt::ItemIsUserCheckable : flags;
}

const QIcon& TreeModel::Icon(int image) const {
  QIcon& icon = icons_[image];
  if (icon.isNull()) icon = IconOf(resources::TreePicture(image));
  return icon;
}

}  // namespace formwizard::adapters::qt
