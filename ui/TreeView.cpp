#include "ui/TreeView.h"

#include "runtime/RuntimeError.h"

#include <iterator>

namespace formwizard::ui {

bool Node::IsBelow(const Node& other) const {
  for (const Node* node = parent_; node; node = node->parent_) {
    if (node == &other) return true;
  }
  return false;
}

void Node::Changed() {
  if (tree_.observer_) tree_.observer_->NodeChanged(*this);
}

Node& Nodes::Add(Node* parent, std::string_view key, std::string_view text) {
  if (!key.empty() && byKey_.contains(key)) runtime::Raise(runtime::KeyNotUnique);
  Node& node = all_.emplace_back(tree_, text);
  node.self_ = std::prev(all_.end());
  node.key_ = key;
  node.parent_ = parent;
  std::vector<Node*>& siblings = parent ? parent->children_ : roots_;
  node.position_ = static_cast<int>(siblings.size());
  siblings.push_back(&node);
  if (!key.empty()) byKey_.emplace(node.key_, &node);
  if (tree_.observer_) tree_.observer_->NodeAdded(node);
  return node;
}

void Nodes::Remove(Node& node) {
  while (!node.children_.empty()) Remove(*node.children_.back());
  if (tree_.SelectedItem == &node) tree_.SelectedItem = nullptr;
  if (tree_.observer_) tree_.observer_->NodeRemoved(node);
  std::vector<Node*>& siblings = node.parent_ ? node.parent_->children_ : roots_;
  for (auto next = siblings.erase(siblings.begin() + node.position_); next != siblings.end(); ++next) {
    --(*next)->position_;
  }
  if (!node.key_.empty()) byKey_.erase(node.key_);
  all_.erase(node.self_);
}

void Nodes::Clear() {
  tree_.SelectedItem = nullptr;
  if (tree_.observer_) tree_.observer_->Cleared();
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

void TreeView::ClickNode(Node& node) {
  if (!TakesInput()) return;
  SelectedItem = &node;
  NodeClick(node);
  OnClick();
}

void TreeView::Click() {
  if (TakesInput()) OnClick();
}

void TreeView::PressMouse(float x, float y) {
  if (TakesInput()) MouseDown(x, y);
}

void TreeView::DoubleClick() {
  if (TakesInput()) DblClick();
}

void TreeView::ExpandNode(Node& node) {
  if (!TakesInput() || node.Expanded || !node.Child()) return;
  node.Expanded = true;
  Expand(node);
}

void TreeView::CollapseNode(Node& node) {
  if (!TakesInput() || !node.Expanded) return;
  node.Expanded = false;
  Node* selected = SelectedItem;
  if (selected && selected->IsBelow(node)) ClickNode(node);
}

void TreeView::Observe(TreeObserver* observer) {
  Control::Observe(observer);
  observer_ = observer;
}

}  // namespace formwizard::ui
