// Lists and trees in a window, whatever happens to them.
#include "adapters/qt/FormWindow.h"
#include "adapters/qt/Text.h"
#include "tests/ui/TestForm.h"

#include <QAbstractItemModelTester>
#include <QAccessible>
#include <QApplication>
#include <QComboBox>
#include <QListView>
#include <QTreeView>

#include <random>

using namespace formwizard;
using namespace formwizard::tests;

namespace {

struct Dice {
  int Below(std::size_t end) { return std::uniform_int_distribution(0, static_cast<int>(end) - 1)(engine_); }

 private:
  std::mt19937 engine_{1};
};

// One line a row: "*" what is current and selected, "-" what is open.
std::string Shown(const QTreeView& view, const QModelIndex& parent = {}, const std::string& indent = "\n") {
  std::string all;
  for (int row = 0; row < view.model()->rowCount(parent); ++row) {
    const QModelIndex index = view.model()->index(row, 0, parent);
    const bool isCurrent = view.currentIndex() == index && view.selectionModel()->isSelected(index);
    const bool isOpen = view.isExpanded(index) && view.model()->hasChildren(index);
    all += indent + (isCurrent ? "*" : "") + (isOpen ? "-" : "") + index.data().toString().toStdString();
    all += Shown(view, index, indent + "  ");
  }
  return all;
}
std::string Held(const ui::TreeView& tree, const ui::Node* parent = nullptr, const std::string& indent = "\n") {
  std::string all;
  for (const ui::Node* node : tree.Nodes.Below(parent)) {
    const bool isOpen = node->Expanded && node->Child();
    all += indent + (tree.SelectedItem == node ? "*" : "") + (isOpen ? "-" : "") + node->Text.Get();
    all += Held(tree, node, indent + "  ");
  }
  return all;
}

// The rows that are not inside of closed ones, as assistive programs are told them.
void CheckSpoken(QTreeView& view) {
  QApplication::processEvents();
  QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(&view);
  REQUIRE(spoken->role() == QAccessible::Tree);
  QModelIndex index = view.model()->index(0, 0);
  for (int child = 1; child < spoken->childCount(); ++child, index = view.indexBelow(index)) {  // behind the header
    const QAccessibleInterface* row = spoken->child(child);
    CHECK(row->role() == QAccessible::TreeItem);
    CHECK(row->text(QAccessible::Name) == index.data().toString());
    CHECK(row->state().selected == (view.currentIndex() == index));
  }
  CHECK_FALSE(index.isValid());
}

void Change(ui::TreeView& tree, Dice& dice, const std::string& text) {
  ui::Node* node = tree.Nodes.Count() == 0 ? nullptr : &tree.Nodes.Item(1 + dice.Below(tree.Nodes.Count()));
  const int what = dice.Below(40);
  if (!node || what < 16) {
    tree.Nodes.Add(what < 6 ? nullptr : node, "", text);
  } else if (what < 22) {
    tree.Nodes.Remove(*node);
  } else if (what < 29) {
    if (tree.SelectedItem.Get() && tree.SelectedItem->IsBelow(*node)) tree.SelectedItem = node;
    node->Expanded = !node->Expanded;
  } else if (what < 36) {
    for (ui::Node* above = node->Parent(); above; above = above->Parent()) {
      if (!above->Expanded) node = above;  // what is selected can be seen
    }
    tree.SelectedItem = node;
  } else if (what < 39) {
    node->Text = text;
  } else {
    tree.Nodes.Clear();
  }
}

void Change(ui::ListBox& list, Dice& dice, const std::string& text) {
  const int index = dice.Below(list.ListCount() + 1), what = dice.Below(40);
  if (index == list.ListCount() || what < 16) {
    list.InsertItem(index, {text, 0});
  } else if (what < 28) {
    list.RemoveItem(index);
  } else if (what < 39) {
    list.SetListIndex(index);
  } else {
    list.Clear();
  }
}

}  // namespace

TEST_CASE("Views show what lists and trees hold after any changes, and those who cannot see them are told the same") {
  TestForm form;
  ui::TreeView tree;
  ui::ListBox list;
  ui::ComboBox combo;
  form.Place(tree, "tree");
  form.Place(list, "list");
  form.Place(combo, "combo");
  tree.Nodes.Add(nullptr, "", "there before");
  list.AddItem("there before", 0);
  adapters::qt::FormWindow window(form, nullptr);
  auto& treeView = *qobject_cast<QTreeView*>(window.For(tree));
  const auto& listView = *qobject_cast<QListView*>(window.For(list));
  const auto& comboView = *qobject_cast<QComboBox*>(window.For(combo));
  window.show();
  for (QAbstractItemModel* model : {treeView.model(), listView.model(), comboView.model()}) {
    new QAbstractItemModelTester(model, QAbstractItemModelTester::FailureReportingMode::Fatal, &window);
  }
  int events = 0;
  tree.NodeClick = [&](ui::Node&) { ++events; };
  tree.Expand = [&](ui::Node&) { ++events; };
  Dice dice;
  for (int step = 0; step < 2000; ++step) {
    CAPTURE(step);
    window.Act([&] {
      for (int change = dice.Below(12); change >= 0; --change) {
        Change(tree, dice, "node " + std::to_string(step));
        Change(list, dice, "entry " + std::to_string(step));
        Change(combo, dice, "choice " + std::to_string(step));
      }
    });
    REQUIRE(Shown(treeView) == Held(tree));
    if (step % 10 == 0) CheckSpoken(treeView);
    for (const auto& [model, entries] : {std::pair<QAbstractItemModel*, ui::ListBox*>{listView.model(), &list},
                                         std::pair<QAbstractItemModel*, ui::ListBox*>{comboView.model(), &combo}}) {
      REQUIRE(model->rowCount() == entries->ListCount());
      for (int row = 0; row < model->rowCount(); ++row) {
        REQUIRE(model->index(row, 0).data().toString().toStdString() == entries->List(row));
      }
    }
    REQUIRE(listView.currentIndex().row() == list.ListIndex());
    REQUIRE(listView.selectionModel()->selectedIndexes().size() == (list.ListIndex() < 0 ? 0 : 1));
    REQUIRE(comboView.currentIndex() == combo.ListIndex());
  }
  CHECK(events == 0);  // nobody has done anything
}
