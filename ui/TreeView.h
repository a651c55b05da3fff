// A tree view: nodes with texts, keys, tags and pictures.
#pragma once

#include "ui/Control.h"

#include <list>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace formwizard::ui {

class Node;
class TreeView;

// A view of a tree.
class TreeObserver : public ControlObserver {
 public:
  // Called before the new node has more than its text.
  virtual void NodeAdded(Node& node) = 0;
  virtual void NodeChanged(Node& node) = 0;
  // Called while the node, which has no children any more, is still in its place.
  virtual void NodeRemoved(Node& node) = 0;
  virtual void Cleared() = 0;
  // The node that is drawn at a point in the view's own coordinates, or null.
  virtual Node* NodeAt(float x, float y) const = 0;
};

class Node final : public Observed {
 public:
  Node(TreeView& tree, std::string_view text) : Text(*this, std::string(text)), tree_(tree) {}
  virtual ~Node() = default;
  Node(const Node&) = delete;
  Node& operator=(const Node&) = delete;

  Property<std::string> Text;
  std::string Tag;
  Property<Int16> Image{*this};          // index into the pictures of the trees, counted from 1
  Property<Int16> SelectedImage{*this};  // while the node is selected; 0: the same picture
  Property<bool> Expanded{*this, false};

  const std::string& Key() const { return key_; }
  Node* Parent() const { return parent_; }
  // The first child, or null.
  Node* Child() const { return children_.empty() ? nullptr : children_.front(); }
  const std::vector<Node*>& Children() const { return children_; }
  // Among the children of its parent, or among the roots, counted from 0.
  int Position() const { return position_; }
  // Whether it stands below `other`.
  bool IsBelow(const Node& other) const;

  void Changed() override;

 private:
  friend class Nodes;
  TreeView& tree_;
  std::string key_;
  Node* parent_ = nullptr;
  int position_ = 0;
  std::vector<Node*> children_;
  std::list<Node>::iterator self_;
};

// All nodes of a tree in the order of their creation. Nodes keep their addresses until they are removed.
class Nodes {
 public:
  explicit Nodes(TreeView& tree) : tree_(tree) {}

  // A new root node, or the last child of `parent`. A key that is not empty must be unique: error 35602.
  Node& Add(Node* parent, std::string_view key, std::string_view text);
  // Removes the node and everything below it. The tree's selection goes with the selected node.
  void Remove(Node& node);
  void Clear();

  int Count() const { return static_cast<int>(all_.size()); }
  // Counts from 1; error 35601 outside.
  Node& Item(int index);
  // Error 35601 when no node has the key.
  Node& Item(std::string_view key);

  std::list<Node>& All() { return all_; }
  const std::vector<Node*>& Roots() const { return roots_; }
  // The children of a node, or the roots for null.
  const std::vector<Node*>& Below(const Node* parent) const { return parent ? parent->children_ : roots_; }

 private:
  TreeView& tree_;
  std::list<Node> all_;
  std::vector<Node*> roots_;
  std::unordered_map<std::string_view, Node*> byKey_;
};

class TreeView : public Control {
 public:
  ui::Nodes Nodes{*this};
  Property<Node*> SelectedItem{*this, nullptr};
  Event<Node&> NodeClick;  // a user clicked the node, or went to it by a key
  Event<> OnClick;         // the tree was clicked, on a node or beside all of them
  Event<> DblClick;
  Event<Node&> Expand;
  Event<float, float> MouseDown;  // in the view's own coordinates

  // The node that is drawn at a point; null without a view.
  Node* HitTest(float x, float y) const { return observer_ ? observer_->NodeAt(x, y) : nullptr; }

  bool TakesFocus() const override { return true; }
  // What a user does. Nothing happens in a tree that takes no input.
  void ClickNode(Node& node);  // also one that is selected already
  void Click();                // beside all nodes
  void PressMouse(float x, float y);
  void DoubleClick();
  // Opens a node that has children; an open one stays as it is.
  void ExpandNode(Node& node);
  // A selection inside the node moves to the node.
  void CollapseNode(Node& node);

  void Observe(TreeObserver* observer);

 private:
  friend class Node;
  friend class Nodes;
  TreeObserver* observer_ = nullptr;
};

}  // namespace formwizard::ui
