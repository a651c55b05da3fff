#include "tests/support/GenerationFixture.h"

#include <doctest/doctest.h>

using namespace formwizard;
using namespace formwizard::tests;
namespace kind = formwizard::model::kind;

namespace {

struct Failure {
  std::string refused;                // the environment refuses every call whose transcript line holds this
  std::vector<std::string> routines;  // the routines reported, in order
  std::string goesOnWith;             // a call that must still be made
  std::string leavesOut;              // and one that must not; empty: none
};

std::vector<std::string> Reports(const std::vector<std::string>& routines) {
  std::vector<std::string> texts;
  for (const std::string& routine : routines) {
    texts.push_back("Error occurred in procedure " + routine + " : refused");
  }
  return texts;
}

GenerationFixture TwoFields() {
  GenerationFixture run;
  run.AddField(kind::ListBox, "Colors");
  model::FieldRecord& spouse = run.AddField(kind::ReferenceLabel, "Spouse.Name");
  spouse.PropertyName = "Spouse";
  run.AddField(kind::ReferenceCombo, "Company");
  run.AddField(kind::ListView, "Phones");
  run.AddField(kind::Picture, "Photo");
  return run;
}

}  // namespace

TEST_CASE("A refused call is reported under its routine, which goes on or leaves as it must") {
  const std::string field = "WriteConField - name is ";
  for (const Failure& f : {
           Failure{"Toolbox MSCOMDLG", {"WriteForm"}, "Toolbox MSComctlLib.ListViewCtrl", ""},
           Failure{"Component.Name", {"WriteForm"}, "Form.Caption = \"Person\"", ""},
           Failure{"Form.Height", {"WriteForm"}, "Form.StartUpPosition = 3%", ""},
           // The frame writer leaves: no further field, no button; the helper controls and menus follow.
           Failure{"HSCroll.Top", {"WriteConFrame"}, "Add OSTRELQUERYLib.OstrelQuery", "fra_Main"},
           Failure{"cmd__Save.Top", {"WriteConFrame"}, "mnu__Exit.Caption = \"E&xit\"", "cmd__Delete.Top = \"1500\""},
           // The helper and field writers resume with the next statement.
           Failure{"lst__Hidden.Height", {"WriteConHelper "}, "lst__Hidden.Visible = \"0\"", ""},
           Failure{"lblColors.Alignment", {field}, "lblColors.Caption = \"Colors\"", ""},
           Failure{"lstColors.Height", {field + "lstColors"}, "lstColors.Left = \"350\"", ""},
           // The menu writer leaves: the remaining menus are missing, and so the handlers of the items.
           Failure{"mnuSpouse.Visible",
                   {"WriteConMenus"},
                   "InsertLines 1: Const m_classname = \"Sample.Person\"",
                   "mnuPhones.Visible = 0%"},
           Failure{": Private Sub actionSave",
                   {"WriteSubCommon"},
                   "InsertLines 120: Private Sub EnableScreen(Enabled as Boolean)",
                   ""},
           Failure{": Private Sub SyncObjectToScreen",
                   {"WriteSubSyncObjectToScreen"},
                   "CreateEventProc cmd__New_Click",
                   ""},
           Failure{": Private Sub SyncScreenToObject",
                   {"WriteSubSyncScreenToObject"},
                   "CreateEventProc cmd__New_Click",
                   ""},
           Failure{"lstColors_MouseUp",
                   {"WriteSubControlEvents"},
                   "CreateEventProc lstColors_Click",
                   "CreateEventProc imgPhoto_MouseUp"},
           Failure{"cmbCompany_DropDown",
                   {"WriteSubRefComboEvents"},
                   "CreateEventProc lvwPhones_MouseUp",
                   "CreateEventProc cmbCompany_Click"},
           Failure{"mnuSpouseChange_Click",
                   {"WriteSubContextMenuReference"},
                   "CreateEventProc mnuPhonesInsert_Click",
                   "CreateEventProc mnuSpouseRemove_Click"},
           Failure{"mnuPhonesRemove_Click",
                   {"WriteSubContextMenuArray"},
                   "CreateEventProc mnuPhotoChange_Click",
                   "CreateEventProc lvwPhones_ColumnClick"},
           Failure{"lstColors_Click",
                   {"WriteSubcontextMenuList"},
                   "CreateEventProc mnuSpouseChange_Click",
                   "CreateEventProc mnuColorsAddToEnd_Click"},
           Failure{"mnuPhotoChange_Click",
                   {"WriteSubContextMenuImage"},
                   "CreateEventProc mnuPhonesInsert_Click",
                   "CreateEventProc mnuPhotoRemove_Click"},
       }) {
    CAPTURE(f.refused);
    GenerationFixture run = TwoFields();
    run.Ide.Transcript.Refuse[f.refused] = 380;
    run.Generate();
    CHECK(run.Desktop.Texts() == Reports(f.routines));
    for (const ShownMessage& message : run.Desktop.Messages) {
      CHECK(message.Title == "Error");
      CHECK(message.Style == 48);
    }
    CHECK_MESSAGE(run.Ide.Transcript.Has(f.goesOnWith), run.Ide.Transcript.Joined());
    CHECK_FALSE(run.Ide.Transcript.Has(f.leavesOut));
  }
}

TEST_CASE("After a control that could not be added the statements address the control before it") {
  GenerationFixture run;
  run.AddField(kind::TextBox, "Name");
  run.Ide.Transcript.Refuse["Add VB.TextBox"] = 363;
  run.Generate();
  CHECK(run.Ide.Transcript.Has("lblName.Name = \"txtName\""));
  CHECK(run.Desktop.Texts() == Reports({"WriteConField - name is txtName"}));
}

TEST_CASE("Without a form component every statement that needs it is reported, and nothing crashes") {
  GenerationFixture run;
  run.AddField(kind::TextBox, "Name");
  run.Ide.Transcript.Refuse["Add component"] = 440;
  run.LayOut();
  generator::Generation generation = run.Run();
  generator::WriteForm(generation);
  CHECK(run.Desktop.Texts().front() == "Error occurred in procedure WriteForm : refused");
  CHECK(run.Desktop.Texts().back() ==
        "Error occurred in procedure WriteConMenus : Object variable or With block variable not set");
  CHECK_THROWS_AS(generator::WriteProcedures(generation), runtime::RuntimeError);
}

TEST_CASE("The screen procedures and the action handlers have no report of their own") {
  for (const char* refused :
       {": Private Sub EnableScreen", ": Private Sub EraseScreen", "cmd__New_Click", ": Const m_classname"}) {
    GenerationFixture run = TwoFields();
    run.Ide.Transcript.Refuse[refused] = 380;
    CHECK_THROWS_AS(run.Generate(), runtime::RuntimeError);
    CHECK(run.Desktop.Messages.empty());
  }
}

TEST_CASE("A text that the program's own table lacks costs what needs it") {
  GenerationFixture run;
  CHECK_THROWS_WITH_AS(run.Strings.LoadResStringLocal(3160), "Resource with identifier '3160' not found",
                       runtime::RuntimeError);
}
