#include "adapters/vb6files/FormTree.h"
#include "system/CodePage.h"
#include "tests/support/GenerationFixture.h"

using namespace formwizard;
using namespace formwizard::tests;

namespace {

// What is done to the control that is named `name`, from its naming on, one call a line.
std::string CallsOn(const GenerationFixture& run, const std::string& name) {
  std::string calls;
  for (const std::string& call : run.Ide.Calls()) {
    for (const std::string start : {"VBControl.Properties ", "VBControl.Container "}) {
      if (call.starts_with(start + name + " ")) calls += call.substr(start.size() + name.size() + 1) + "\n";
    }
  }
  return calls;
}

}  // namespace

TEST_CASE("Each kind of field gets its control with its properties in order") {
  struct Case {
    Int16 kind;
    int rows;
    std::string name, calls;
  };
  // A second column: column 1 is 40 + 2000 + 360 wide, so the label, 90 wide, stands at 2520 and the control at 2730.
  const std::string place = "Left 2730 \nTop 240 \nWidth 720 \nfra_Main \n", label = "Height 325 \nTabIndex 4 \n";
  for (const Case& c :
       {Case{kind::TextBox, 1, "txtHomeCity", label + "Text txtHomeCity \n"},
        Case{kind::ReadOnlyLabel, 1, "conHomeCity", "BorderStyle 1 \n" + label + "Caption conHomeCity \n"},
        Case{kind::ReferenceLabel, 1, "refHomeCity", "BorderStyle 1 \n" + label + "Caption refHomeCity \n"},
        Case{kind::ReferenceCombo, 1, "cmbHomeCity", "Style 2 \nTabIndex 4 \n"},
        Case{kind::ListBox, 5, "lstHomeCity", "Height 1755 \nTabIndex 4 \n"},
        Case{kind::ListView, 3, "lvwHomeCity",
             "Height 1035 \nTabIndex 4 \nView 3 \nFullRowSelect True \nLabelEdit 1 \n"},
        Case{kind::Picture, 5, "imgHomeCity", "Height 1755 \nBorderStyle 1 \nStretch 0 \n"},
        Case{kind::MultiLine, 2, "txtHomeCity",
             "Height 675 \nTabIndex 4 \nText txtHomeCity \nMultiLine -1 \nScrollBars 3 \n"}}) {
    CAPTURE(c.name);
    GenerationFixture run;
    run.Settings.Columns = Int16(2);
    run.AddField(kind::TextBox, "Name", c.rows);
    run.AddField(c.kind, "Home.City", c.rows).PropertyName = "City";
    run.WriteForm();
    std::string expected = "Name " + c.name + " \n" + c.calls + place;
    if (c.kind == kind::MultiLine) expected.replace(expected.find(" 720"), 4, " 2000");
    CHECK(CallsOn(run, c.name) == expected);
    CHECK(CallsOn(run, "lblHomeCity") ==
          "Name lblHomeCity \nAlignment 1 \nCaption Home City \nHeight 325 \nLeft 2520 \nTabIndex 3 \nTop 240 \n"
          "Width 90 \nfra_Main \n");
    CHECK(run.Desktop.Texts().empty());
  }
}

TEST_CASE("No fresh form shows a scroll bar: its frame fills the client area, whatever the settings") {
  using adapters::vb6files::FormNode;
  for (int i = 0; i < 32; ++i) {
    CAPTURE(i);
    GenerationFixture run;
    run.Settings.Columns = Int16(i / 8 + 1);
    run.Settings.Button = (i & 1) != 0;
    run.Settings.Menu = (i & 2) != 0;
    run.Settings.FormSizable = (i & 4) != 0;
    i % 3 == 0 ? void(run.AddField(kind::TextBox, "Name")) : run.AddEveryKind();
    const std::string name = run.WriteForm().NewComponent->Name();
    const std::string text = run.Ide.OnDisk().TextsOf(name).Frm;
    const FormNode form = adapters::vb6files::ReadFormTree(name, text, "", system::CodePage(1252)).Form;
    const auto frame = std::ranges::find(form.Children, "fra_Main", &FormNode::Name);
    REQUIRE(frame != form.Children.end());
    for (const std::string side : {"Width", "Height"}) {  // bars come when the form measures less than its frame
      const double room = form.Number("Scale" + side);
      const double spare = room - frame->Number(side) * room / form.Number("Client" + side);
      CHECK_MESSAGE((spare >= 0 && spare < 1), side, ": ", spare);
    }
  }
}

TEST_CASE("The width of a data control follows the property's length within the column") {
  for (const auto& [maxWidth, kind, width] :
       {std::tuple{0, kind::TextBox, "720"}, std::tuple{0, kind::MultiLine, "4000"}, std::tuple{1, kind::TextBox, "1"},
        std::tuple{3999, kind::MultiLine, "3999"}, std::tuple{4000, kind::TextBox, "4000"},
        std::tuple{4001, kind::TextBox, "4000"}, std::tuple{-5, kind::TextBox, "4000"}}) {
    GenerationFixture run;
    run.AddField(kind, "Name").MaxWidth = Int32(maxWidth);
    run.WriteForm();
    CHECK(run.Ide.Count(std::string("txtName Width ") + width + " ") == 1);
  }
}

TEST_CASE("The component is the unused start-up form or a new one, under the first free name") {
  struct Case {
    MemoryProject::Forms existing;  // with controls or not
    std::string classCaption, name;
    bool added;
  };
  for (const Case& c :
       {Case{{{"Form1", false}}, "Person", "frmPerson", false}, Case{{{"Form1", true}}, "Person", "frmPerson", true},
        Case{{{"Form2", false}, {"form1", false}}, "Person", "frmPerson", true},
        Case{{{"frmPerson", true}}, "Person", "frmPerson2", true},
        Case{{{"frmPerson", false}, {"frmPerson3", true}, {"frmPerson2", false}}, "Person", "frmPerson4", true},
        // Names are compared exactly here, and without regard to case by the environment.
        Case{{{"frmperson", false}}, "Person", "Form1", true}, Case{{}, "%Per%son", "frmPerson", true}}) {
    CAPTURE(c.name);
    GenerationFixture run(c.existing);
    run.Form.ClassCaption = c.classCaption;
    CHECK(run.WriteForm().NewComponent->Name() == c.name);
    CHECK(run.Ide.Count("VBComponents.Add") == (c.added ? 1 : 0));
    CHECK(run.Desktop.Texts().empty() == (c.name != "Form1"));
  }
}

TEST_CASE_FIXTURE(GenerationFixture, "Settings change the form and leave the popup menus") {
  Settings.Menu = Settings.Button = false;
  Settings.FormSizable = Settings.LabelAlignLeft = true;
  AddField(kind::ListBox, "Home.Colors");
  AddField(kind::ReferenceLabel, "Home.Owner");
  WriteForm();
  CHECK(Ide.Count("BorderStyle Integer 2") == 1);
  for (const char* absent : {"Alignment", "CommandButton", "mnuObject"}) CHECK_MESSAGE(Ide.Count(absent) == 0, absent);
  // The list's popup is named after IntName, the reference's after PropertyName with its dot.
  CHECK(CallsOn(*this, "mnuHomeColors") == "Caption mnuHomeColors \nVisible Integer 0 \n");
  CHECK(Desktop.Texts() == "Error occurred in procedure WriteConMenus : Not a legal object name: 'mnuHome.Owner'\n");
}

TEST_CASE_FIXTURE(GenerationFixture, "Only a reference combo box needs the hidden list, and one is enough") {
  AddField(kind::ReferenceCombo, "Spouse");
  AddField(kind::ReferenceCombo, "Company");
  WriteForm();
  CHECK(Ide.Count("VBControls.Add VB.ListBox") == 1);
  CHECK(CallsOn(*this, "lst__Hidden") == "Height 450 \nTabIndex 11 \nTop -450 \nVisible 0 \n");
}

TEST_CASE_FIXTURE(GenerationFixture, "Tab indexes go on counting over generations, up to 32767") {
  AddField(kind::TextBox, "Name");
  WriteForm();
  CHECK(State.TabIndexCounter == Int16(9));  // frame, label, text box, six buttons
  WriteForm();
  CHECK(Ide.Count("fra_Main TabIndex 9 ") == 1);
  State.TabIndexCounter = Int16(32767);
  WriteForm();
  CHECK(Desktop.Texts() == "Error occurred in procedure WriteConFrame : Overflow\n");
  CHECK(Ide.Count("fra_Main BorderStyle 0 ") == 3);  // what comes before is written
}
