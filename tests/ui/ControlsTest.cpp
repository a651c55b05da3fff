#include "ui/Controls.h"

#include "tests/support/ErrorNumber.h"
#include "tests/ui/TestForm.h"
#include "ui/OptionButton.h"

#include <doctest/doctest.h>

using namespace formwizard;
using namespace formwizard::tests;
using runtime::Int16;

namespace {

std::string Entries(const ui::ListBox& list) {
  std::string all;
  for (int i = 0; i < list.ListCount(); ++i) {
    all += (i == list.ListIndex() ? "*" : "") + list.List(i) + std::to_string(list.ItemData(i)) + " ";
  }
  return all;
}

}  // namespace

TEST_CASE("The current entry of a list stays the same entry, and goes with it") {
  ui::ListBox list;
  for (int i = 0; i < 3; ++i) list.AddItem(std::string(1, static_cast<char>('a' + i)), i);
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
}

TEST_CASE("Making an entry current raises Click each time, having none raises nothing") {
  ui::ListBox list;
  std::string clicked;
  list.OnClick = [&] { clicked += std::string(list.Text()) + ","; };
  list.DblClick = [&] { clicked += "!"; };
  for (const auto& [text, data] : {std::pair{"a", 1}, std::pair{"b", 2}, std::pair{"b", 2}}) list.AddItem(text, data);
  list.SetListIndex(0);
  list.SetListIndex(0);
  list.SetListIndex(-1);
  list.SelectData(2);
  CHECK(list.ListIndex() == 1);  // the first of two
  list.SelectText("b");
  CHECK(list.ListIndex() == 1);
  list.SelectData(3);
  CHECK(list.ListIndex() == -1);
  list.SetListIndex(0);
  list.SelectText("B");
  CHECK(list.ListIndex() == -1);
  list.DoubleClickItem(2);
  list.Enabled = false;
  list.DoubleClickItem(0);
  CHECK(clicked == "a,a,b,b,a,b,!");
}

TEST_CASE("A list has no entries outside its bounds") {
  ui::ListBox list;
  list.AddItem("only", 0);
  for (const int index : {-1, 1}) {
    CAPTURE(index);
    CHECK(ErrorNumberOf([&] { (void)list.List(index); }) == runtime::InvalidPropertyArrayIndex);
    CHECK(ErrorNumberOf([&] { (void)list.ItemData(index); }) == runtime::InvalidPropertyArrayIndex);
    CHECK(ErrorNumberOf([&] { list.RemoveItem(index); }) == runtime::InvalidPropertyArrayIndex);
  }
  CHECK(ErrorNumberOf([&] { list.SetListIndex(1); }) == runtime::InvalidPropertyArrayIndex);
  CHECK(ErrorNumberOf([&] { list.InsertItem(2, {}); }) == runtime::InvalidProcedureCall);
  CHECK(ErrorNumberOf([&] { list.InsertItem(-1, {}); }) == runtime::InvalidProcedureCall);
  CHECK(Entries(list) == "only0 ");
}

TEST_CASE("A check box raises Click when it changes, and a user never makes it grey") {
  ui::CheckBox box;
  int clicks = 0;
  box.OnClick = [&] { ++clicks; };
  box.SetValue(0);
  CHECK(clicks == 0);
  box.SetValue(2);
  box.SetValue(2);
  CHECK(clicks == 1);
  box.Click();
  CHECK(box.Value() == 0);
  box.Click();
  CHECK(box.Value() == 1);
  box.Click();
  CHECK(box.Value() == 0);
  CHECK(clicks == 4);
  box.Visible = false;
  box.Click();
  CHECK(box.Value() == 0);
  CHECK(ErrorNumberOf([&] { box.SetValue(3); }) == runtime::InvalidPropertyValue);
  CHECK(box.Value() == 0);
}

TEST_CASE("Option buttons exclude each other within their container only") {
  FakeDesktop desktop;
  TestForm form(desktop);
  ui::Frame frame;
  ui::OptionButton first, second, framed;
  form.Place(frame, "");
  form.Place(first, "");
  form.Place(second, "");
  form.Place(framed, "", &frame);
  std::string clicks;
  first.OnClick = [&] { clicks += "1"; };
  second.OnClick = [&] { clicks += second.Value() && !first.Value() ? "2" : "?"; };  // the others are off by then
  framed.OnClick = [&] { clicks += "f"; };
  first.Click();
  framed.Click();
  first.Click();
  second.Click();
  CHECK_FALSE(first.Value());
  CHECK(framed.Value());
  second.SetValue(false);
  CHECK(clicks == "1f2");
}

TEST_CASE("An up-down stays within its bounds and writes into its text box") {
  ui::TextBox box;
  ui::UpDown spinner;
  int changes = 0;
  box.Change = [&] { ++changes; };
  spinner.Min = Int16(1);
  spinner.Max = Int16(4);
  spinner.Value = Int16(3);
  spinner.Buddy = &box;
  for (const auto& [by, text] : {std::pair{1, "4"}, std::pair{1, "4"}, std::pair{-1, "3"}, std::pair{-9, "1"}}) {
    spinner.Spin(by);
    CHECK(box.Text() == text);
  }
  CHECK(changes == 3);
  spinner.Value = Int16(99);  // as it was stored
  spinner.Spin(-1);
  CHECK(spinner.Value == Int16(4));
  spinner.Enabled = false;
  spinner.Spin(-1);
  CHECK(box.Text() == "4");
}

TEST_CASE("Views are told when something has another value, and only then") {
  ui::CheckBox box;
  ui::Label label;
  ui::TextBox text;
  ui::StatusBar bar;
  ui::OptionButton option;
  CountingObserver observer;
  for (ui::Control* control : std::initializer_list<ui::Control*>{&box, &label, &text, &bar, &option}) {
    control->Observe(&observer);
  }
  const auto change = [&](bool other) {
    label.Caption = other ? "other" : "";
    label.Enabled = !other;
    label.Font.Size = other ? 12 : 8;
    label.Font.Name = other ? "Courier New" : "MS Sans Serif";
    label.ToolTipText = other ? "tip" : "";
    box.SetValue(other ? 2 : 0);
    text.SetText(other ? "a" : "");
    bar.Panels[1] = other ? "Samples" : "";
    option.SetValue(other);
  };
  change(false);
  CHECK(observer.Count == 0);
  change(true);
  CHECK(observer.Count == 9);
  change(true);
  CHECK(observer.Count == 9);
  label.Observe(nullptr);
  change(false);
  CHECK(observer.Count == 9 + 4);

  ui::ListBox list;
  ListNotes notes;
  list.Observe(&notes);
  list.AddItem("a", 0);
  list.InsertItem(0, {"b", 0});
  list.SetListIndex(1);
  list.RemoveItem(1);
  list.Clear();
  CHECK(notes.Notes == "+0 +0 ~ -1 0 ");
}
