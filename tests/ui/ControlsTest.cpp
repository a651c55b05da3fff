#include "ui/Controls.h"

#include "tests/ui/TestForm.h"
#include "ui/OptionButton.h"

using namespace formwizard;
using namespace formwizard::tests;

TEST_CASE("A check box raises Click when it changes, and a user never makes it grey") {
  ui::CheckBox box;
  std::string values;  // at each click
  box.OnClick = [&] { values += std::to_string(box.Value()); };
  for (const int value : {0, 2, 2}) box.SetValue(value);
  for (int i = 0; i < 3; ++i) box.Click();
  CHECK(values == "2010");
  box.Visible = false;
  box.Click();
  CHECK(ErrorNumberOf([&] { box.SetValue(3); }) == runtime::InvalidPropertyValue);
  CHECK(box.Value() == 0);
}

TEST_CASE_FIXTURE(TestForm, "Option buttons exclude each other within their container only") {
  ui::Frame frame;
  ui::OptionButton first, second, framed;
  Place(frame, "");
  Place(first, "");
  Place(second, "");
  Place(framed, "", &frame);
  std::string clicks;
  first.OnClick = [&] { clicks += "1"; };
  second.OnClick = [&] { clicks += second.Value() && !first.Value() ? "2" : "?"; };  // the others are off by then
  framed.OnClick = [&] { clicks += "f"; };
  for (ui::OptionButton* button : {&first, &framed, &first, &second}) button->Click();
  CHECK(framed.Value());
  second.SetValue(false);
  CHECK(clicks == "1f2");
}

TEST_CASE_FIXTURE(TestForm,
                  "The tab key stops once in a group of options, and the arrows choose round and round in it") {
  ui::OptionButton first, hidden, last;
  ui::TextBox box;
  Place(first, "first");
  Place(hidden, "hidden");
  Place(last, "last");
  Place(box, "box");
  hidden.Visible = false;
  for (const char* reached : {"first", "box"}) {
    PressTab();
    CHECK(Focus() == reached);
  }
  first.PressArrow(1);
  CHECK(Focus() == "last");
  CHECK(last.Value());
  for (const char* reached : {"box", "last"}) {
    PressTab();
    CHECK(Focus() == reached);
  }
  for (const auto& [from, by, reached] : {std::tuple{&last, 1, "first"}, std::tuple{&first, -1, "last"}}) {
    from->PressArrow(by);
    CHECK(Focus() == reached);
  }
}

TEST_CASE("Views are told when something has another value, and only then") {
  ui::CheckBox box;
  ui::Label label;
  ui::TextBox text;
  ui::StatusBar bar;
  ui::OptionButton option;
  ListNotes view;
  for (ui::Control* control : std::initializer_list<ui::Control*>{&box, &label, &text, &bar, &option}) {
    control->Observe(&view);
  }
  const auto change = [&](bool other) {
    label.Caption = other ? "other" : "";
    label.Enabled = !other;
    label.Font.Size = other ? 12 : 8;
    label.ToolTipText = other ? "tip" : "";
    box.SetValue(other ? 2 : 0);
    text.SetText(other ? "a" : "");
    bar.Panels[1] = other ? "Samples" : "";
    option.SetValue(other);
  };
  change(false);
  CHECK(view.Notes.empty());
  change(true);
  change(true);
  CHECK(view.Notes == "~ ~ ~ ~ ~ ~ ~ ~ ");
  label.Observe(nullptr);
  change(false);
  CHECK(view.Notes == "~ ~ ~ ~ ~ ~ ~ ~ ~ ~ ~ ~ ");
}
