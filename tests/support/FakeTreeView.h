// A view of a tree in which every visible node is a row of ten units.
#pragma once

#include "ui/TreeView.h"

#include <cmath>
#include <vector>

namespace formwizard::tests {

class FakeTreeView : public ui::TreeObserver {
 public:
  explicit FakeTreeView(ui::TreeView& tree) : tree_(tree) { tree_.Observe(this); }
  ~FakeTreeView() override { tree_.Observe(nullptr); }

  void Changed() override {}
  void NodeAdded(ui::Node&) override {}
  void NodeChanged(ui::Node&) override { ++ChangedNodes; }
  void NodeRemoved(ui::Node&) override {}
  void Cleared() override {}
  ui::Node* NodeAt(float, float y) const override {
    const auto rows = Rows(tree_.Nodes.Roots());
    const auto row = static_cast<std::size_t>(std::floor(y / 10));
    return row < rows.size() ? rows[row] : nullptr;
  }

  // Presses twice on a row, counted from 0.
  void DoubleClickRow(int row) {
    const auto y = static_cast<float>(row * 10 + 5);
    tree_.PressMouse(3, y);
    if (ui::Node* node = NodeAt(3, y)) tree_.ClickNode(*node);
    tree_.DoubleClick();
  }

  int ChangedNodes = 0;

 private:
  static std::vector<ui::Node*> Rows(const std::vector<ui::Node*>& nodes) {
    std::vector<ui::Node*> rows;
    for (ui::Node* node : nodes) {
      rows.push_back(node);
      if (!node->Expanded) continue;
      const auto below = Rows(node->Children());
      rows.insert(rows.end(), below.begin(), below.end());
    }
    return rows;
  }

  ui::TreeView& tree_;
};

}  // namespace formwizard::tests
