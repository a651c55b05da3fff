#include "ui/TreeView.h"

#include <iterator>

namespace formwizard::ui {

Node& Nodes::Add(Node* parent, std::string_view key, std::string_view text) {
  if (!key.empty() && byKey_.contains(key)) runtime::Raise(runtime::KeyNotUnique);
  Node& node = all_.emplace_back();
  node.self_ = std::prev(all_.end());
  node.key_ = key;
  node.Text = text;
  node.parent_ = parent;
  std::list<Node*>& siblings = parent ? parent->children_ : roots_;
  node.amongSiblings_ = siblings.insert(siblings.end(), &node);
  if (!key.empty()) byKey_.emplace(node.key_, &node);
  return node;
}

void Nodes::Remove(Node& node) {
  while (Node* child = node.Child()) Remove(*child);
  (node.parent_ ? node.parent_->children_ : roots_).erase(node.amongSiblings_);
  if (!node.key_.empty()) byKey_.erase(node.key_);
  all_.erase(node.self_);
}

void Nodes::Clear() {
  byKey_.clear();
  roots_.clear();
  all_.clear();
}

Node& Nodes::Item(int index) {
  if (index < 1 || index > Count()) runtime::Raise(runtime::ElementNotFound);
  return *std::next(all_.begin(), index - 1);
}

Node& Nodes::Item(std::string_view key) {
  const auto found = byKey_.find(key);
  if (found == byKey_.end()) runtime::Raise(runtime::ElementNotFound);
  return *found->second;
}

void TreeView::Clear() {
  SelectedItem = nullptr;
  Nodes.Clear();
}

void TreeView::ClickNode(Node& node) {
  if (!TakesInput()) return;
  SelectedItem = &node;
  NodeClick(node);
}

void TreeView::DoubleClickNode(Node& node) {
  if (!TakesInput()) return;
  ClickNode(node);
  DblClick();
}

void TreeView::ExpandNode(Node& node) {
  if (!TakesInput() || node.Expanded || !node.Child()) return;
  node.Expanded = true;
  Expand(node);
}

}  // namespace formwizard::ui
