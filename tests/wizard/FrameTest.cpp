#include "tests/wizard/Walk.h"

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

}  // namespace

TEST_CASE_FIXTURE(Walk, "The dialog is laid out and named as it loads") {
  CHECK(Dialog.Controls().size() == 69);
  CHECK(Dialog.frmCommand.Left + Dialog.frmCommand.Width == Int32(9210 - 360));
  for (const ui::Frame& panel : Dialog.frmStep) CHECK(panel.Left == Int32(3240));
  for (const ui::Frame& panel : Dialog.frmProperty) {
    CHECK(panel.Top == Dialog.lblStep4_2.Top);
    CHECK(panel.Left == Dialog.lstFields.Left + Dialog.lstFields.Width + Int32(200));
    CHECK(panel.Height == Dialog.lstFields.Height + Dialog.lblStep4_2.Height);
  }
  CHECK(State.Form.CharWidth == Int16(10));
  CHECK(State.Form.SixCharWidth == Int16(60));
  CHECK(Dialog.Caption == "Ostrel Form Wizard - Step 1 of 6");
  CHECK(Dialog.cmdBack.Caption == "< &Back");
  CHECK(Dialog.cmdSelectAll.Caption == ">>");
  CHECK(Dialog.cmdSelectAll.ToolTipText == "Select all properties");
  CHECK(Dialog.cmdMoveDown.ToolTipText == "Move the property down");
}

TEST_CASE_FIXTURE(Walk, "Each step shows its own panel, its picture and its default button") {
  const auto show = [&](int step) {
    Dialog.SetStep(Int16(step));
    std::string shown;
    for (const ui::Frame& panel : Dialog.frmStep) shown += panel.Visible ? "#" : "-";
    shown += " " + Text(Dialog.picMain.Picture.Get());
    return shown + (Dialog.DefaultButton() == &Dialog.cmdNext ? " N" : "") +
           (Dialog.DefaultButton() == &Dialog.cmdFinish ? " F" : "");
  };
  for (const auto& [step, shown] :
       {std::pair{1, "#----- 2 N"}, std::pair{2, "-#---- 1 N"}, std::pair{3, "--#--- 2 N"}, std::pair{4, "---#-- 1 N"},
        std::pair{6, "-----# 1 F"}, std::pair{5, "----#- 2 N"}, std::pair{6, "-----# 2 F"}}) {  // the picture stays
    CHECK(show(step) == shown);
  }
}

TEST_CASE_FIXTURE(Walk, "The buttons follow the steps, and Finish stays usable once properties are selected") {
  std::string trail = Where();
  for (const char* action : {">", ">", ">", "+Number", ">", ">", "<", "<", "<"}) trail += ", " + Do(action);
  CHECK(trail == "1 -N-C, 2 BN-C, 3 BN-C, 4 B--C, 4 BNFC, 5 BNFC, 6 B-FC, 5 BNFC, 4 BNFC, 3 BNFC");
}

TEST_CASE_FIXTURE(Walk, "The status bar tells what is being done") {
  StatusTexts status(Dialog.barStatus);
  CHECK(Server.Data.Calls.empty());  // before the step is entered
  Do("> system=1 >");
  CHECK(status.Take() ==
        "conn\nConnecting to Ostrel system ...\nConnected to Samples.\nPopulating class list ...\nReady\n");
  Do("class=Sample.Person >");
  CHECK(status.Take() == "Populating property list ...\nReady\n");
  Do("+Age > !");
  CHECK(status.Take() ==
        "Begin creating new form ...\nComputing positions ...\nComputing layout ...\n"
        "Writing form and control properties ...\nWriting procedures ...\n");
}

TEST_CASE_FIXTURE(Walk, "A step paints itself before the server is asked, and a double click before the step changes") {
  std::string trail;  // at each painting: the panel, the last call, and what the Properties step shows
  Desktop.OnProcessMessages = [&] {
    for (std::size_t i = 0; i < Dialog.frmStep.size(); ++i)
      trail += Dialog.frmStep[i].Visible ? std::to_string(i + 1) : "";
    trail += " " + (Server.Data.Calls.empty() ? "-" : Server.Data.Calls.back().substr(0, 8)) + " " +
             std::to_string(Dialog.tvwAttributes.Nodes.Count() + Dialog.lstSelected.ListCount()) + ", ";
  };
  Do(">");
  DoubleClick(Dialog.tvwConnection, Dialog.tvwConnection.Nodes.Item(1));
  Do("> +Number < class=Sample.Company >");
  CHECK(trail ==
        "2 - 0, 2 SystemLi 0, 3 Connect  0, 4 Close %C 0, 4 Close %C 0, 3 Close %C 2, 4 Close %C 2, 4 Close %C 0, ");
}

TEST_CASE_FIXTURE(Walk, "The completion text keeps the class that it was first replaced by") {
  Do("> > > +Number > > < < < class=Sample.Company >");
  CHECK(Dialog.lstSelected.ListCount() == 0);  // another class: the selection is gone
  Do("+Name > >");
  CHECK(Dialog.lblStep5_2.Caption.Get().ends_with("a Visual Basic form for class Core.Invoice."));
}

TEST_CASE_FIXTURE(
    Walk, "The settings are loaded anew each time they are shown, and an error in them leaves the wizard usable") {
  std::string columns;
  Desktop.OnShowModal = [&](ui::Form& form) {
    form.Load();
    auto& settings = dynamic_cast<settings::frmSettings&>(form);
    columns += settings.txtNumColumns.Text();
    settings.spnNumColumns.Spin(+1);
    settings.cmdOK.Click();
  };
  for (const char* menu : {"1", "1", "maybe", "1"}) {
    Profile.Values["Menu"] = menu;
    Dialog.cmdSettings.Click();
  }
  CHECK(Desktop.Shown() == "Ostrel Form Wizard - Step 1 of 6[48]: Run-time error '13':\n\nType mismatch\n");
  CHECK(columns == "123");
  Next(2);
  CHECK(State.Settings.Columns == Int16(4));
}

TEST_CASE("A dialog that is loaded again shows what a new one shows on its class step, without reading the classes") {
  const auto shown = [](Walk& user) {
    std::string all = user.Where() + user.Dialog.Caption.Get() + (user.Dialog.IsUnloaded() ? " unloaded\n" : "\n");
    for (ui::Control* control : user.Dialog.Controls()) {
      all += control->Name + (control->Visible ? " V" : " -") + (control->Enabled ? "E " : "- ");
      all += control->CaptionText();
      if (auto* box = dynamic_cast<ui::TextBox*>(control)) all += box->Text();
      if (auto* box = dynamic_cast<ui::CheckBox*>(control)) all += std::to_string(box->Value());
      if (auto* list = dynamic_cast<ui::ListBox*>(control)) all += Walk::Entries(*list);
      if (auto* bar = dynamic_cast<ui::StatusBar*>(control)) all += bar->Panels[0].Get() + bar->Panels[1].Get();
      if (auto* tree = dynamic_cast<ui::TreeView*>(control)) {
        all += Walk::Tree(*tree) + (tree->SelectedItem.Get() ? tree->SelectedItem->Text.Get() : "");
      }
      all += "\n";
    }
    return all;
  };
  Walk fresh;
  fresh.Do("> >");
  for (const char* script :
       {"> > class=Sample.Person > +Age +*Name !", "> > class=Sample.Company > +Name > field=0 caption=x > !",
        "> > class=Sample.Person > +Age +Colors +Notes +Spouse. > field=0 readonly caption=x field=2 field=1 !",
        "> > class=Sample.Person > +Age +Spouse. > field=0 readonly readonly after=1 field=1 combo query=0 column=1 !",
        "> > class=Sample.Person > +Spouse. > field=0 combo query=0", "> > package=1",
        "> > class=Sample.Person > +Age"}) {
    CAPTURE(script);
    for (const bool fails : {false, true}) {
      Walk user;
      if (fails) user.Profile.Values["Columns"] = "0";
      user.Do(script);
      user.Dialog.Unload();
      REQUIRE(user.Dialog.LoadAgain());
      CHECK(shown(user) == shown(fresh));
      CHECK(std::ranges::count(user.Server.Data.Calls, "ResultSet %ClassDefinition") == 1);
      CHECK(user.Do("class=Sample.Person > +Age +*Name") == "4 BNFC");
    }
  }
  Walk broken;
  broken.Server.Data.FailAtRow = 3;
  broken.Do("> >");
  broken.Dialog.Unload();
  CHECK_FALSE(broken.Dialog.LoadAgain());
}
