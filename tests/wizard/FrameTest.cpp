#include "tests/support/WizardFixture.h"

#include <doctest/doctest.h>

#include <functional>
#include <utility>

using namespace formwizard;
using namespace formwizard::tests;

namespace {

// Every text that the status bar shows from now on, one a line.
class StatusTexts : public ui::ControlObserver {
 public:
  explicit StatusTexts(ui::StatusBar& bar) : bar_(bar) { bar_.Observe(this); }
  ~StatusTexts() override { bar_.Observe(nullptr); }
  void Changed() override {
    if (std::exchange(last_, bar_.Panels[0].Get()) != last_) all_ += last_ + "\n";
  }
  std::string Take() { return std::exchange(all_, ""); }

 private:
  ui::StatusBar& bar_;
  std::string last_, all_;
};

std::string ConnectionCalls(const WizardFixture& wizard) {
  std::string all;
  for (const std::string& call : wizard.Server.Data.Calls) {
    if (call.starts_with("Connect") || call == "Disconnect") all += call + ", ";
  }
  return all;
}

}  // namespace

TEST_CASE("The dialog is laid out and named as it loads") {
  WizardFixture wizard;
  auto& dialog = wizard.Dialog;
  CHECK(dialog.frmCommand.Left + dialog.frmCommand.Width == Int32(9210 - 360));
  for (const ui::Frame& panel : dialog.frmStep) CHECK(panel.Left == Int32(3240));
  for (const ui::Frame& panel : dialog.frmProperty) {
    CHECK(panel.Top == dialog.lblStep4_2.Top);
    CHECK(panel.Left == dialog.lstFields.Left + dialog.lstFields.Width + Int32(200));
    CHECK(panel.Height == dialog.lstFields.Height + dialog.lblStep4_2.Height);
  }
  CHECK(wizard.State.Form.CharWidth == Int16(10));
  CHECK(wizard.State.Form.SixCharWidth == Int16(60));
  CHECK(dialog.cmdBack.Caption == "< &Back");
  CHECK(dialog.cmdSelectAll.Caption == ">>");
  CHECK(dialog.cmdSelectAll.ToolTipText == "Select all properties");
  CHECK(dialog.cmdMoveDown.ToolTipText == "Move the property down");
}

TEST_CASE("Each step shows its own panel, its picture and its default button") {
  WizardFixture wizard;
  auto& dialog = wizard.Dialog;
  const auto shown = [&] {
    std::string panels;
    for (const ui::Frame& panel : dialog.frmStep) panels += panel.Visible ? "#" : "-";
    return panels + " " + Text(dialog.picMain.Picture.Get()) + (dialog.DefaultButton() == &dialog.cmdNext ? " N" : "") +
           (dialog.DefaultButton() == &dialog.cmdFinish ? " F" : "");
  };
  std::string all;
  for (int step = 1; step <= 6; ++step) {
    dialog.SetStep(Int16(step));
    all += shown() + "\n";
  }
  CHECK(all == "#----- 2 N\n-#---- 1 N\n--#--- 2 N\n---#-- 1 N\n----#- 2 N\n-----# 2 F\n");
  dialog.SetStep(Int16(4));
  dialog.SetStep(Int16(6));
  CHECK(shown() == "-----# 1 F");  // the last step leaves the picture as it is
}

TEST_CASE("The status bar tells what is being done") {
  WizardFixture wizard;
  StatusTexts status(wizard.Dialog.barStatus);
  wizard.Next(2);
  CHECK(status.Take() == "Connecting to Ostrel system ...\nConnected to Samples.\nPopulating class list ...\nReady\n");
  wizard.ChooseClass("Sample.Person");
  wizard.Next();
  CHECK(status.Take() == "Populating property list ...\nReady\n");
  wizard.Select("Age");
  wizard.Next();
  wizard.Dialog.cmdFinish.Click();
  CHECK(status.Take() ==
        "Begin creating new form ...\nComputing positions ...\nComputing layout ...\n"
        "Writing form and control properties ...\nWriting procedures ...\n");
}

TEST_CASE("The remembered system is selected, the last of equal names, else the first") {
  for (const auto& [list, remembered, selected] :
       {std::tuple{"A,x;B,y;B,z;C,w", "B", "z"}, std::tuple{"A,x;B,y", "Gone", "x"}, std::tuple{"A,x;B,y", "b", "x"}}) {
    CAPTURE(remembered);
    WizardFixture wizard;
    wizard.Server.Data.Systems = list;
    wizard.Profile.Values["LastConnect"] = remembered;
    wizard.Next();
    CHECK(wizard.Dialog.tvwConnection.SelectedItem->Tag == selected);
    for (const ui::Node& node : wizard.Dialog.tvwConnection.Nodes.All()) CHECK(node.Image == Int16(4));
  }
}

TEST_CASE("Another system means another connection, class list and selection") {
  for (const bool refuses : {false, true}) {
    WizardFixture wizard;
    wizard.Server.Data.RefusesDisconnect = refuses;
    wizard.GoToProperties();
    wizard.Select("Age");
    for (int i = 0; i < 2; ++i) wizard.Dialog.cmdBack.Click();
    CHECK(wizard.Buttons() == "BNFC");
    wizard.Dialog.tvwConnection.ClickNode(wizard.Dialog.tvwConnection.Nodes.Item(2));
    wizard.Next();
    CHECK(ConnectionCalls(wizard) == "Connect conn, Disconnect, Connect other, ");
    CHECK(wizard.Profile.Values["LastConnect"] == "Archive");
    CHECK(wizard.Dialog.tvwConnection.Nodes.Item(1).Image == Int16(4));
    CHECK(std::ranges::count(wizard.Server.Data.Calls, "ResultSet %ClassDefinition") == 2);
    wizard.ChooseClass("Sample.Person");  // of the same name as before
    wizard.Next();
    CHECK(wizard.Dialog.lstSelected.ListCount() == 0);
    CHECK(wizard.Buttons() == "B--C");
  }
}

TEST_CASE("Every ending closes the connection, whatever the server answers") {
  const std::vector<std::function<void(WizardFixture&)>> endings{
      [](WizardFixture& wizard) { wizard.Dialog.PressEscape(); }, [](WizardFixture& wizard) { wizard.Dialog.Close(); },
      [](WizardFixture& wizard) { wizard.Dialog.cmdFinish.Click(); },
      [](WizardFixture& wizard) {
        wizard.Ide.Transcript.Refuse["Add component"] = runtime::AutomationError;
        wizard.Dialog.cmdFinish.Click();
        CHECK(wizard.Buttons() == "---C");
        CHECK(ConnectionCalls(wizard) == "Connect conn, ");
        wizard.Dialog.cmdCancel.Click();
      }};
  for (const auto& end : endings) {
    for (const char* answer : {"yes", "no", "error"}) {
      WizardFixture wizard;
      wizard.Server.Data.RefusesDisconnect = answer == std::string("no");
      wizard.Server.Data.FailingCall = answer == std::string("error") ? "Disconnect" : "";
      wizard.GoToProperties();
      wizard.Select("Age");
      end(wizard);
      CHECK(wizard.Dialog.IsUnloaded());
      CHECK(ConnectionCalls(wizard) == "Connect conn, Disconnect, ");
    }
  }
  WizardFixture early;
  early.Dialog.Close();
  CHECK(early.Dialog.IsUnloaded());
  CHECK(early.Server.Data.Calls.empty());
}

TEST_CASE("A server that fails keeps the dialog where it is, and usable") {
  struct Case {
    std::string FailingCall, Systems, Message, Status;
  };
  for (const Case& c :
       {Case{"SystemList", "A,x", "Error occurred in procedure PopulateConnection : the server failed", "Ready"},
        Case{"Connect", "A,x", "Run-time error '440':\n\nthe server failed", "Connecting to Ostrel system ..."},
        Case{"Connect", "A;B,y", "", "Unable to connect.A: "}}) {  // nothing to connect with
    CAPTURE(c.Status);
    WizardFixture wizard;
    wizard.Server.Data.Systems = c.Systems;
    wizard.Server.Data.FailingCall = c.FailingCall;
    wizard.Next(2);
    CHECK(wizard.Desktop.Texts() == (c.Message.empty() ? std::vector<std::string>() : std::vector{c.Message}));
    CHECK(wizard.Status() == c.Status);
    CHECK(wizard.Step() == "2");
    CHECK(wizard.Connected().empty());
    CHECK(wizard.Buttons() == "BN-C");
    CHECK(wizard.Desktop.Pointers.back() == ui::MousePointer::Default);
    wizard.Server.Data.FailingCall = "";
    wizard.Dialog.cmdBack.Click();
    wizard.Next();
    auto& systems = wizard.Dialog.tvwConnection;
    systems.ClickNode(systems.Nodes.Item(systems.Nodes.Count()));
    wizard.Next();
    CHECK(wizard.Step() == "3");
  }
}

TEST_CASE("Finish takes the list as the Attributes step last showed it") {
  WizardFixture wizard;
  wizard.GoToProperties();
  wizard.Select("Age");
  wizard.Next();
  wizard.Dialog.cmdBack.Click();
  wizard.Select("*Name");
  for (int i = 0; i < 3; ++i) wizard.Dialog.cmdBack.Click();
  CHECK(wizard.Buttons() == "-NFC");  // usable on the first step too
  wizard.Dialog.cmdFinish.Click();
  CHECK(wizard.Dialog.IsUnloaded());
  CHECK(wizard.State.Form.SelectedFields.UpperBound() == Int16(1));
  CHECK(wizard.State.Form.SelectedFields[Int16(1)] == Int16(2));
}

TEST_CASE("The settings are loaded anew each time they are shown, and an error in them leaves the wizard usable") {
  WizardFixture wizard;
  std::string columns;
  wizard.Desktop.OnShowModal = [&](ui::Form& form) {
    form.Load();
    auto& settings = dynamic_cast<settings::frmSettings&>(form);
    columns += settings.txtNumColumns.Text();
    settings.spnNumColumns.Spin(+1);
    settings.cmdOK.Click();
  };
  wizard.Dialog.cmdSettings.Click();
  wizard.Dialog.cmdSettings.Click();
  wizard.Profile.Values["Menu"] = "maybe";
  wizard.Dialog.cmdSettings.Click();
  REQUIRE(wizard.Desktop.Messages.size() == 1);
  CHECK(wizard.Desktop.Messages[0].Text == "Run-time error '13':\n\nType mismatch");
  CHECK(wizard.Desktop.Messages[0].Title == "Ostrel Form Wizard - Step 1 of 6");
  wizard.Profile.Values["Menu"] = "1";
  wizard.Dialog.cmdSettings.Click();
  CHECK(columns == "123");
  wizard.Next(2);
  CHECK(wizard.Step() == "3");
  CHECK(wizard.State.Settings.Columns == Int16(4));
}
