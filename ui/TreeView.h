// A tree view: nodes with texts, keys, tags and pictures.
#pragma once

#include "runtime/Integer.h"
#include "ui/Control.h"
#include "ui/Event.h"

#include <list>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace formwizard::ui {

using runtime::Int16;

struct Node {
  std::string Text, Tag;
  Int16 Image, SelectedImage;
  std::string ImageKey;  // a picture named by key instead of by index
  bool Expanded = false;

  const std::string& Key() const { return key_; }
  Node* Parent() const { return parent_; }
  // The first child, or null.
  Node* Child() const { return children_.empty() ? nullptr : children_.front(); }
  const std::list<Node*>& Children() const { return children_; }

 private:
  friend class Nodes;
  std::string key_;
  Node* parent_ = nullptr;
  std::list<Node*> children_;
  std::list<Node>::iterator self_;
  std::list<Node*>::iterator amongSiblings_;
};

// All nodes of a tree in the order of their creation. Nodes keep their addresses until they are removed.
class Nodes {
 public:
  // A new root node, or the last child of `parent`. A key that is not empty must be unique: error 35602.
  Node& Add(Node* parent, std::string_view key, std::string_view text);
  // Removes the node and everything below it.
  void Remove(Node& node);
  void Clear();

  int Count() const { return static_cast<int>(all_.size()); }
  // Counts from 1; error 35601 outside.
  Node& Item(int index);
  // Error 35601 when no node has the key.
  Node& Item(std::string_view key);

  std::list<Node>& All() { return all_; }
  const std::list<Node*>& Roots() const { return roots_; }

 private:
  std::list<Node> all_;
  std::list<Node*> roots_;
  std::unordered_map<std::string_view, Node*> byKey_;
};

class TreeView : public Control {
 public:
  ui::Nodes Nodes;
  Node* SelectedItem = nullptr;
  Event<Node&> NodeClick;
  Event<Node&> Expand;
  Event<> DblClick;

  void Clear();

  // What a user does. Nothing happens in a tree that takes no input.
  void ClickNode(Node& node);
  void DoubleClickNode(Node& node);
  // Opens a node that has children; an open one stays as it is.
  void ExpandNode(Node& node);
};

}  // namespace formwizard::ui
