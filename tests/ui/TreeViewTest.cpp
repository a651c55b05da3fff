#include "ui/TreeView.h"

#include "tests/support/ErrorNumber.h"
#include "tests/support/FakeTreeView.h"
#include "tests/ui/TestForm.h"

#include <doctest/doctest.h>

using namespace formwizard;
using namespace formwizard::tests;

namespace {

// In the order of creation: a, b, and below a: a1, a2, and below a1: a11.
struct FiveNodes {
  ui::TreeView Tree;
  ui::Node& A = Tree.Nodes.Add(nullptr, "keyA", "a");
  ui::Node& B = Tree.Nodes.Add(nullptr, "", "b");
  ui::Node& A1 = Tree.Nodes.Add(&A, "keyA1", "a1");
  ui::Node& A2 = Tree.Nodes.Add(&A, "", "a2");
  ui::Node& A11 = Tree.Nodes.Add(&A1, "keyA11", "a11");

  std::string Texts() {
    std::string all;
    for (int i = 1; i <= Tree.Nodes.Count(); ++i) all += Tree.Nodes.Item(i).Text.Get() + " ";
    return all;
  }
};

}  // namespace

TEST_CASE("Nodes count from 1 in the order of their creation, and keys are unique while their nodes live") {
  FiveNodes nodes;
  CHECK(nodes.Texts() == "a b a1 a2 a11 ");
  CHECK(&nodes.Tree.Nodes.Item("keyA1") == &nodes.A1);
  CHECK(nodes.A.Child() == &nodes.A1);
  CHECK(nodes.B.Child() == nullptr);
  CHECK(nodes.A11.IsBelow(nodes.A));
  CHECK_FALSE(nodes.A.IsBelow(nodes.A));
  CHECK(ErrorNumberOf([&] { nodes.Tree.Nodes.Add(nullptr, "keyA11", "again"); }) == runtime::KeyNotUnique);
  CHECK(nodes.Tree.Nodes.Count() == 5);
  for (const int index : {0, 6}) {
    CHECK(ErrorNumberOf([&] { nodes.Tree.Nodes.Item(index); }) == runtime::ElementNotFound);
  }
  CHECK(ErrorNumberOf([&] { nodes.Tree.Nodes.Item("keya"); }) == runtime::ElementNotFound);

  nodes.Tree.Nodes.Remove(nodes.A1);  // with what stands below it
  CHECK(nodes.Texts() == "a b a2 ");
  CHECK(ErrorNumberOf([&] { nodes.Tree.Nodes.Item("keyA11"); }) == runtime::ElementNotFound);
  nodes.Tree.Nodes.Add(nullptr, "keyA11", "late");
  CHECK(nodes.Texts() == "a b a2 late ");
  nodes.Tree.Nodes.Clear();
  CHECK(nodes.Tree.Nodes.Count() == 0);
  CHECK(nodes.Tree.Nodes.Roots().empty());
  nodes.Tree.Nodes.Add(nullptr, "keyA", "new");
}

TEST_CASE("The selection goes with the selected node, by itself, with what is above it or with all") {
  for (const char* what : {"itself", "above", "all"}) {
    FiveNodes nodes;
    nodes.Tree.ClickNode(nodes.A11);
    nodes.Tree.Nodes.Remove(nodes.A2);
    CHECK(nodes.Tree.SelectedItem == &nodes.A11);
    if (what == std::string("all")) {
      nodes.Tree.Nodes.Clear();
    } else {
      nodes.Tree.Nodes.Remove(what == std::string("above") ? nodes.A : nodes.A11);
    }
    CHECK(nodes.Tree.SelectedItem == nullptr);
  }
}

TEST_CASE("A user opens what has children, and closing takes the selection out of what disappears") {
  FiveNodes nodes;
  std::string events;
  nodes.Tree.NodeClick = [&](ui::Node& node) { events += "click " + node.Text.Get() + ", "; };
  nodes.Tree.Expand = [&](ui::Node& node) { events += (node.Expanded ? "open " : "? ") + node.Text.Get() + ", "; };
  nodes.Tree.ExpandNode(nodes.B);  // a leaf
  nodes.Tree.ExpandNode(nodes.A);
  nodes.Tree.ExpandNode(nodes.A);
  nodes.Tree.ClickNode(nodes.A11);
  nodes.Tree.CollapseNode(nodes.A1);  // closed already
  CHECK(nodes.Tree.SelectedItem == &nodes.A11);
  nodes.Tree.CollapseNode(nodes.A);
  CHECK(nodes.Tree.SelectedItem == &nodes.A);
  nodes.Tree.ExpandNode(nodes.A);
  nodes.Tree.ClickNode(nodes.B);
  nodes.Tree.CollapseNode(nodes.A);
  CHECK(nodes.Tree.SelectedItem == &nodes.B);
  CHECK(events == "open a, click a11, click a, open a, click b, ");
  nodes.Tree.Enabled = false;
  nodes.Tree.ExpandNode(nodes.A);
  nodes.Tree.ClickNode(nodes.A);
  CHECK_FALSE(nodes.A.Expanded);
  CHECK(nodes.Tree.SelectedItem == &nodes.B);
}

TEST_CASE("The view says which node is drawn at a point") {
  FiveNodes nodes;
  CHECK(nodes.Tree.HitTest(0, 0) == nullptr);  // without a view
  {
    const FakeTreeView view(nodes.Tree);
    CHECK(nodes.Tree.HitTest(0, 15) == &nodes.B);
    nodes.A.Expanded = true;
    CHECK(nodes.Tree.HitTest(0, 15) == &nodes.A1);
    CHECK(nodes.Tree.HitTest(0, 45) == nullptr);
  }
  CHECK(nodes.Tree.HitTest(0, 0) == nullptr);
}

TEST_CASE("A view of a tree is told of every node once, and of values only when they differ") {
  FiveNodes nodes;
  TreeNotes notes;
  nodes.Tree.Observe(&notes);
  nodes.Tree.Nodes.Add(&nodes.B, "", "b1");
  nodes.B.Text = "b";
  nodes.B.Image = runtime::Int16(2);
  nodes.B.Image = runtime::Int16(2);
  nodes.Tree.ClickNode(nodes.A11);
  nodes.Tree.ClickNode(nodes.A11);
  nodes.Tree.Nodes.Remove(nodes.A1);  // from the leaves up; the selection goes first
  nodes.Tree.Nodes.Clear();
  CHECK(notes.Notes == "+b1 ~b ~ ~ -a11 -a1 0 ");
  nodes.Tree.Observe(nullptr);
}
