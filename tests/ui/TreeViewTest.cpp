#include "ui/TreeView.h"

#include "tests/ui/TestForm.h"

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

TEST_CASE_FIXTURE(FiveNodes,
                  "Nodes count from 1 in the order of their creation, and keys are unique while their nodes live") {
  ui::Nodes& all = Tree.Nodes;
  CHECK(Texts() == "a b a1 a2 a11 ");
  CHECK(&all.Item("keyA1") == &A1);
  CHECK(ErrorNumberOf([&] { all.Add(nullptr, "keyA11", "again"); }) == runtime::KeyNotUnique);
  CHECK(all.Count() == 5);
  for (const int index : {0, 6}) CHECK(ErrorNumberOf([&] { all.Item(index); }) == runtime::ElementNotFound);
  CHECK(ErrorNumberOf([&] { all.Item("keya"); }) == runtime::ElementNotFound);

  all.Remove(A1);  // with what stands below it
  CHECK(ErrorNumberOf([&] { all.Item("keyA11"); }) == runtime::ElementNotFound);
  all.Add(nullptr, "keyA11", "late");
  CHECK(Texts() == "a b a2 late ");
  all.Clear();
  CHECK(all.Count() == 0);
  CHECK(all.Roots().empty());
  all.Add(nullptr, "keyA", "new");
}

TEST_CASE("The selection goes with the selected node, by itself, with what is above it or with all") {
  for (const std::string what : {"itself", "above", "all"}) {
    CAPTURE(what);
    FiveNodes nodes;
    nodes.Tree.ClickNode(nodes.A11);
    nodes.Tree.Nodes.Remove(nodes.A2);
    CHECK(nodes.Tree.SelectedItem == &nodes.A11);
    if (what == "all") {
      nodes.Tree.Nodes.Clear();
    } else {
      nodes.Tree.Nodes.Remove(what == "above" ? nodes.A : nodes.A11);
    }
    CHECK(nodes.Tree.SelectedItem == nullptr);
  }
}

TEST_CASE_FIXTURE(FiveNodes, "A user opens what has children, and closing takes the selection out of what disappears") {
  std::string events;
  Tree.NodeClick = [&](ui::Node& node) { events += "click " + node.Text.Get() + ", "; };
  Tree.Expand = [&](ui::Node& node) { events += (node.Expanded ? "open " : "? ") + node.Text.Get() + ", "; };
  for (ui::Node* node : {&B, &A, &A}) Tree.ExpandNode(*node);  // the first one is a leaf
  for (int i = 0; i < 2; ++i) Tree.ClickNode(A11);
  Tree.CollapseNode(A1);  // closed already
  CHECK(Tree.SelectedItem == &A11);
  Tree.CollapseNode(A);
  Tree.ExpandNode(A);
  Tree.ClickNode(B);
  Tree.CollapseNode(A);
  Tree.Enabled = false;
  Tree.ExpandNode(A);
  Tree.ClickNode(A);
  CHECK_FALSE(A.Expanded);
  CHECK(Tree.SelectedItem == &B);
  CHECK(events == "open a, click a11, click a11, click a, open a, click b, ");
}

TEST_CASE_FIXTURE(FiveNodes, "A view of a tree is told of every node once, and of values only when they differ") {
  TreeNotes notes;
  Tree.Observe(&notes);
  Tree.Nodes.Add(&B, "", "b1");
  B.Text = "b";
  for (int i = 0; i < 2; ++i) B.Image = runtime::Int16(2);
  for (int i = 0; i < 2; ++i) Tree.ClickNode(A11);
  Tree.Nodes.Remove(A1);  // from the leaves up; the selection goes first
  Tree.Nodes.Clear();
  CHECK(notes.Notes == "+b1 ~b ~ ~ -a11 -a1 0 ");
  Tree.Observe(nullptr);
}
