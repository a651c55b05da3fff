#include "ui/Form.h"

#include "tests/ui/TestForm.h"

using namespace formwizard;
using namespace formwizard::tests;

TEST_CASE("The access key is the character behind the first single ampersand") {
  for (const auto& [caption, key] :
       {std::pair{"Ca&ption:", "p"}, std::pair{"Find && re&place", "p"}, std::pair{"&&&x", "x"},
        std::pair{"Salt && Pepper", ""}, std::pair{"Tom &", ""}, std::pair{"", ""}, std::pair{"&\u00C4ndern", "\u00C4"},
        std::pair{"&\u65B0", "\u65B0"}, std::pair{"Fichier (&F) && (&G)", "F"}}) {
    CAPTURE(std::string(caption));
    CHECK(ui::AccessKeyOf(caption) == key);
  }
}

TEST_CASE_FIXTURE(
    TestForm, "An access key reaches the controls that have it in turn, and passes over those that cannot take it") {
  ui::Frame frame;
  ui::Label label, inFrame;
  ui::TextBox box, boxInFrame;
  ui::CheckBox check;
  ui::CommandButton button;
  Place(frame, "Group");
  Place(label, "&Name:");
  Place(inFrame, "Fra&med:", &frame);  // announces what stands in its frame
  Place(box, "box");
  Place(boxInFrame, "boxInFrame", &frame);
  Place(check, "&new");
  Place(button, "&Next");
  int clicks = 0;
  button.OnClick = [&] { ++clicks; };
  CHECK(AnnouncedBy(button) == nullptr);
  for (const auto& [key, reached] : {std::pair{"N", "box"}, std::pair{"n", "&new"}, std::pair{"n", "&Next"},
                                     std::pair{"n", "box"}, std::pair{"m", "boxInFrame"}}) {
    PressAccessKey(key);
    CHECK(Focus() == reached);
  }
  CHECK(check.Value() == 1);
  CHECK(clicks == 1);

  check.Enabled = false;
  box.Visible = false;  // its label means no other control instead
  CHECK(ControlOf("n") == &button);
  button.Visible = false;
  CHECK(ControlOf("n") == nullptr);
  frame.Visible = false;
  CHECK(ControlOf("m") == nullptr);
  CHECK(Focus() == "none");  // it was in the frame
  button.Visible = true;
  Enabled = false;  // busy
  PressAccessKey("n");
  CHECK(clicks == 1);
}

TEST_CASE_FIXTURE(TestForm, "Enter presses the button with the focus or the default one, Escape the cancel button") {
  ui::TextBox box;
  ui::CommandButton next, finish, cancel;
  std::string pressed;
  PressEnter();  // nothing there yet
  PressEscape();
  Place(box, "box");
  for (const auto& [button, letter] : {std::pair{&next, 'n'}, std::pair{&finish, 'f'}, std::pair{&cancel, 'c'}}) {
    Place(*button, "");
    button->OnClick = [&pressed, key = letter] { pressed += key; };
  }
  next.Default = true;
  cancel.Cancel = true;
  SetFocus(box);
  PressEnter();
  PressEscape();
  SetFocus(finish);
  PressEnter();
  SetFocus(box);
  next.Enabled = false;
  PressEnter();
  CHECK(pressed == "ncf");
  next.Default = false;
  finish.Default = true;
  PressEnter();
  CHECK(pressed == "ncff");
  Enabled = false;
  PressEnter();
  PressEscape();
  CHECK(pressed == "ncff");
}

TEST_CASE_FIXTURE(TestForm, "The focus goes round in tab order, and only to what can take it") {
  ui::Label label;
  ui::Frame hidden;
  ui::TextBox first, inHidden, disabled, last;
  PressTab();
  Place(label, "label");
  Place(hidden, "hidden");
  Place(first, "first");
  Place(inHidden, "inHidden", &hidden);
  Place(disabled, "disabled");
  Place(last, "last");
  hidden.Visible = false;
  disabled.Enabled = false;
  for (const auto& [backward, reached] :
       {std::pair{false, "first"}, std::pair{false, "last"}, std::pair{false, "first"}, std::pair{true, "last"}}) {
    PressTab(backward);
    CHECK(Focus() == reached);
  }
  last.Enabled = false;
  CHECK(Focus() == "none");
  PressTab(true);
  CHECK(Focus() == "first");

  ListNotes view;
  Observe(&view);
  for (ui::Control* control : std::initializer_list<ui::Control*>{&label, &inHidden, &disabled}) {
    CAPTURE(control->Name);
    CHECK(ErrorNumberOf([&] { SetFocus(*control); }) == runtime::InvalidProcedureCall);
  }
  SetFocus(first);
  CHECK(view.Notes.empty());
  last.Enabled = true;
  SetFocus(last);
  CHECK(view.Notes == "~ ");
}

TEST_CASE_FIXTURE(TestForm, "A dialog survives the errors of its events, is closed once and can be loaded again") {
  Caption = "Test";
  const auto fail = Guarded([&] {
    Enabled = false;  // busy when it happens
    runtime::Raise(runtime::Overflow);
  });
  Load();
  fail();
  CHECK(Desktop.Shown() == "Test[48]: Run-time error '6':\n\nOverflow\n");
  CHECK(Desktop.Pointers.back() == ui::MousePointer::Default);
  CHECK(Enabled);

  Enabled = false;
  Close();
  CHECK_FALSE(IsUnloaded());  // busy
  Enabled = true;
  FailOnUnload = runtime::AutomationError;
  Close();
  Close();
  CHECK(IsUnloaded());  // whatever its closing work says
  CHECK(Unloads == 1);
  CHECK(Desktop.Messages.size() == 2);
  Enabled = false;
  Load();
  CHECK_FALSE(IsUnloaded());
  CHECK(Enabled);
}
