#include "ui/Form.h"

#include "tests/support/ErrorNumber.h"
#include "tests/ui/TestForm.h"

#include <doctest/doctest.h>

using namespace formwizard;
using namespace formwizard::tests;

TEST_CASE("The access key is the character behind the first single ampersand") {
  for (const auto& [caption, key] :
       {std::pair{"&Next >", "N"}, std::pair{"Ca&ption:", "p"}, std::pair{"Find && re&place", "p"},
        std::pair{"&&&x", "x"}, std::pair{"Salt && Pepper", ""}, std::pair{"Tom &", ""}, std::pair{"none", ""},
        std::pair{"", ""}, std::pair{"&\u00C4ndern", "\u00C4"}, std::pair{"&\u65B0", "\u65B0"},
        std::pair{"Fichier (&F) && (&G)", "F"}}) {
    CAPTURE(caption);
    CHECK(ui::AccessKeyOf(caption) == key);
  }
}

TEST_CASE("An access key reaches the controls that have it in turn, and passes over those that cannot take it") {
  FakeDesktop desktop;
  TestForm form(desktop);
  ui::Frame frame;
  ui::Label label, inFrame;
  ui::TextBox box, boxInFrame;
  ui::CheckBox check;
  ui::CommandButton button;
  form.Place(frame, "Group");
  form.Place(label, "&Name:");
  form.Place(inFrame, "Fra&med:", &frame);  // announces what stands in its frame
  form.Place(box);
  form.Place(boxInFrame, &frame);
  form.Place(check, "&new");
  form.Place(button, "&Next");
  int clicks = 0;
  button.OnClick = [&] { ++clicks; };

  CHECK(form.AnnouncedBy(label) == &box);
  CHECK(form.AnnouncedBy(inFrame) == &boxInFrame);
  CHECK(form.AnnouncedBy(button) == nullptr);
  form.PressAccessKey("N");
  CHECK(form.ActiveControl() == &box);
  form.PressAccessKey("n");
  CHECK(form.ActiveControl() == &check);
  CHECK(check.Value() == 1);
  form.PressAccessKey("n");
  CHECK(form.ActiveControl() == &button);
  CHECK(clicks == 1);
  form.PressAccessKey("n");
  CHECK(form.ActiveControl() == &box);
  form.PressAccessKey("m");
  CHECK(form.ActiveControl() == &boxInFrame);

  check.Enabled = false;
  box.Visible = false;  // its label means no other control instead
  CHECK(form.ControlOf("n") == &button);
  button.Visible = false;
  CHECK(form.ControlOf("n") == nullptr);
  frame.Visible = false;
  CHECK(form.ControlOf("m") == nullptr);
  CHECK(form.ActiveControl() == nullptr);  // the focus was in the frame
  button.Visible = true;
  form.Enabled = false;  // busy
  form.PressAccessKey("n");
  CHECK(clicks == 1);
  CHECK(form.ControlOf("x") == nullptr);
}

TEST_CASE("Enter presses the button with the focus or the default one, Escape the cancel button") {
  FakeDesktop desktop;
  TestForm form(desktop);
  ui::TextBox box;
  ui::CommandButton next, finish, cancel;
  std::string pressed;
  form.PressEnter();  // nothing there yet
  form.PressEscape();
  form.Place(box);
  for (const auto& [button, letter] : {std::pair{&next, 'n'}, std::pair{&finish, 'f'}, std::pair{&cancel, 'c'}}) {
    form.Place(*button, "");
    button->OnClick = [&pressed, key = letter] { pressed += key; };
  }
  next.Default = true;
  cancel.Cancel = true;
  form.SetFocus(box);
  form.PressEnter();
  form.PressEscape();
  form.SetFocus(finish);
  form.PressEnter();
  CHECK(pressed == "ncf");
  form.SetFocus(box);
  next.Enabled = false;
  CHECK(form.DefaultButton() == nullptr);
  form.PressEnter();
  next.Default = false;
  finish.Default = true;
  form.PressEnter();
  CHECK(pressed == "ncff");
  form.Enabled = false;
  form.PressEnter();
  form.PressEscape();
  CHECK(pressed == "ncff");
}

TEST_CASE("The focus goes round in tab order, and only to what can take it") {
  FakeDesktop desktop;
  TestForm form(desktop);
  ui::Label label;
  ui::Frame hidden;
  ui::TextBox first, inHidden, disabled, last;
  form.PressTab();
  for (ui::Control* control : std::initializer_list<ui::Control*>{&label, &hidden, &first}) form.Place(*control);
  form.Place(inHidden, &hidden);
  form.Place(disabled);
  form.Place(last);
  hidden.Visible = false;
  disabled.Enabled = false;
  form.PressTab();
  CHECK(form.ActiveControl() == &first);
  form.PressTab();
  CHECK(form.ActiveControl() == &last);
  form.PressTab();
  CHECK(form.ActiveControl() == &first);
  form.PressTab(true);
  CHECK(form.ActiveControl() == &last);
  last.Enabled = false;
  CHECK(form.ActiveControl() == nullptr);
  form.PressTab(true);
  CHECK(form.ActiveControl() == &first);

  CountingObserver observer;
  form.Observe(&observer);
  for (ui::Control* control : std::initializer_list<ui::Control*>{&label, &inHidden, &disabled}) {
    CHECK(ErrorNumberOf([&] { form.SetFocus(*control); }) == runtime::InvalidProcedureCall);
  }
  form.SetFocus(first);
  CHECK(form.ActiveControl() == &first);
  CHECK(observer.Count == 0);
  last.Enabled = true;
  form.SetFocus(last);
  CHECK(observer.Count == 1);
}

TEST_CASE("A dialog survives the errors of its events, is closed once and can be loaded again") {
  FakeDesktop desktop;
  TestForm form(desktop);
  ui::CommandButton button;
  form.Place(button, "");
  form.Caption = "Test";
  button.OnClick = form.Guarded([&] {
    form.Enabled = false;  // busy when it happens
    runtime::Raise(runtime::Overflow);
  });
  form.Load();
  button.Click();
  button.Click();
  REQUIRE(desktop.Messages.size() == 2);
  CHECK(desktop.Messages[0].Text == "Run-time error '6':\n\nOverflow");
  CHECK(desktop.Messages[0].Style == 48);
  CHECK(desktop.Messages[0].Title == "Test");
  CHECK(desktop.Pointers.back() == ui::MousePointer::Default);

  form.Enabled = false;
  form.Close();
  CHECK_FALSE(form.IsUnloaded());  // busy
  form.Enabled = true;
  form.FailOnUnload = runtime::AutomationError;
  form.Close();
  form.Close();
  CHECK(form.IsUnloaded());  // whatever its closing work says
  CHECK(form.Unloads == 1);
  CHECK(desktop.Messages.size() == 3);
  form.Enabled = false;
  form.Load();
  CHECK_FALSE(form.IsUnloaded());
  CHECK(form.Enabled);
}
