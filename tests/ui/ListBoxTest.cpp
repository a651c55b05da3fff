#include "ui/ListBox.h"

#include "tests/ui/TestForm.h"

using namespace formwizard;
using namespace formwizard::tests;

namespace {

std::string Entries(const ui::ListBox& list) {
  std::string all;
  for (int i = 0; i < list.ListCount(); ++i) {
    all += (i == list.ListIndex() ? "*" : "") + list.List(i) + std::to_string(list.ItemData(i)) + " ";
  }
  return all;
}

}  // namespace

TEST_CASE("The current entry of a list stays the same entry, goes with it, and a view is told") {
  ui::ListBox list;
  ListNotes view;
  for (const auto& [text, data] : {std::pair{"a", 0}, std::pair{"b", 1}, std::pair{"c", 2}}) list.AddItem(text, data);
  list.Observe(&view);
  list.SetListIndex(1);
  list.InsertItem(1, {"new", 9});
  list.InsertItem(3, {"late", 8});
  CHECK(Entries(list) == "a0 new9 *b1 late8 c2 ");
  list.RemoveItem(0);
  list.RemoveItem(3);
  CHECK(Entries(list) == "new9 *b1 late8 ");
  list.RemoveItem(1);
  CHECK(Entries(list) == "new9 late8 ");
  CHECK(list.Text().empty());
  list.SetListIndex(1);
  list.Clear();
  CHECK(list.ListIndex() == -1);
  CHECK(list.ListCount() == 0);
  CHECK(view.Notes == "~ +1 +3 -0 -3 -1 ~ 0 ");
}

TEST_CASE("Making an entry current raises Click each time, having none raises nothing") {
  ui::ListBox list;
  std::string clicked;
  list.OnClick = [&] { clicked += std::string(list.Text()) + std::to_string(list.ListIndex()) + " "; };
  list.DblClick = [&] { clicked += "! "; };
  for (const auto& [text, data] : {std::pair{"a", 1}, std::pair{"b", 2}, std::pair{"b", 2}}) list.AddItem(text, data);
  for (const int index : {0, 0, -1}) list.SetListIndex(index);
  list.SelectData(2);  // the first of two
  list.SelectText("b");
  list.SelectData(3);
  CHECK(list.ListIndex() == -1);
  list.SetListIndex(0);
  list.SelectText("B");
  CHECK(list.ListIndex() == -1);
  list.DoubleClickItem(2);
  list.Enabled = false;
  list.DoubleClickItem(0);
  CHECK(clicked == "a0 a0 b1 b1 a0 b2 ! ");
}

TEST_CASE("A list has no entries outside its bounds") {
  ui::ListBox list;
  list.AddItem("only", 0);
  for (const int index : {-1, 1}) {
    CAPTURE(index);
    CHECK(ErrorNumberOf([&] { (void)list.List(index); }) == runtime::InvalidPropertyArrayIndex);
    CHECK(ErrorNumberOf([&] { list.RemoveItem(index); }) == runtime::InvalidPropertyArrayIndex);
    CHECK(ErrorNumberOf([&] { list.InsertItem(index == 1 ? 2 : -1, {}); }) == runtime::InvalidProcedureCall);
  }
  CHECK(ErrorNumberOf([&] { list.SetListIndex(1); }) == runtime::InvalidPropertyArrayIndex);
  CHECK(Entries(list) == "only0 ");
}
