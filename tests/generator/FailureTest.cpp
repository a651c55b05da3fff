#include "tests/support/GenerationFixture.h"

#include <doctest/doctest.h>

using namespace formwizard;
using namespace formwizard::tests;

namespace {

struct Failure {
  std::string refused;     // the environment refuses every call whose transcript line holds this
  std::string routine;     // the one that reports it
  std::string goesOnWith;  // what a call that must still be made holds
  std::string leavesOut;   // and one that must not; empty: none
};

std::string Reported(const std::string& routine) {
  return "Error[48]: Error occurred in procedure " + routine + " : refused\n";
}

GenerationFixture FiveFields() {
  GenerationFixture run;
  run.AddField(kind::ListBox, "Colors");
  run.AddField(kind::ReferenceLabel, "Spouse.Name").PropertyName = "Spouse";
  run.AddField(kind::ReferenceCombo, "Company");
  run.AddField(kind::ListView, "Phones");
  run.AddField(kind::Picture, "Photo");
  return run;
}

}  // namespace

TEST_CASE("A refused call is reported under its routine, which goes on or leaves as it must") {
  const std::string field = "WriteConField - name is ";
  for (const Failure& f : {
           Failure{"Toolbox MSCOMDLG", "WriteForm", "Toolbox MSComctlLib.ListViewCtrl", ""},
           Failure{"Component.Name", "WriteForm", "Form.Caption = \"Person\"", ""},
           Failure{"Form.Height", "WriteForm", "Form.StartUpPosition = 3%", ""},
           // The frame writer leaves: no further field, no button; the helper controls and menus follow.
           Failure{"HSCroll.Top", "WriteConFrame", "Add OSTRELQUERYLib.OstrelQuery", "fra_Main"},
           Failure{"cmd__Save.Top", "WriteConFrame", "mnu__Exit.Caption = \"E&xit\"", "cmd__Delete.Top"},
           // The helper and field writers resume with the next statement.
           Failure{"lst__Hidden.Height", "WriteConHelper ", "lst__Hidden.Visible = \"0\"", ""},
           Failure{"lblColors.Alignment", field, "lblColors.Caption = \"Colors\"", ""},
           Failure{"lstColors.Height", field + "lstColors", "lstColors.Left = \"350\"", ""},
           // Without its control the field's statements address the control before it.
           Failure{"Add VB.ComboBox", field + "cmbCompany", "lblCompany.Name = \"cmbCompany\"", ""},
           // The menu writer leaves: the remaining menus are missing, and so the handlers of the items.
           Failure{"mnuSpouse.Visible", "WriteConMenus", "InsertLines 1: Const m_classname", "mnuPhones.Visible"},
           Failure{": Private Sub actionSave", "WriteSubCommon", ": Private Sub EnableScreen", ""},
           Failure{": Private Sub SyncObjectToScreen", "WriteSubSyncObjectToScreen", "cmd__New_Click", ""},
           Failure{": Private Sub SyncScreenToObject", "WriteSubSyncScreenToObject", "cmd__New_Click", ""},
           Failure{"lstColors_MouseUp", "WriteSubControlEvents", "lstColors_Click", "imgPhoto_MouseUp"},
           Failure{"cmbCompany_DropDown", "WriteSubRefComboEvents", "lvwPhones_MouseUp", "cmbCompany_Click"},
           Failure{"mnuSpouseChange_Click", "WriteSubContextMenuReference", "mnuPhonesInsert_Click",
                   "mnuSpouseRemove_"},
           Failure{"mnuPhonesRemove_Click", "WriteSubContextMenuArray", "mnuPhotoChange_Click",
                   "lvwPhones_ColumnClick"},
           Failure{"lstColors_Click", "WriteSubcontextMenuList", "mnuSpouseChange_Click", "mnuColorsAddToEnd_"},
           Failure{"mnuPhotoChange_Click", "WriteSubContextMenuImage", "mnuPhonesInsert_Click", "mnuPhotoRemove_"},
       }) {
    CAPTURE(f.refused);
    GenerationFixture run = FiveFields();
    run.Ide.Transcript.Refuse[f.refused] = 380;
    run.Generate();
    CHECK(run.Desktop.Shown() == Reported(f.routine));
    const std::string calls = run.Ide.Transcript.Joined();
    CHECK_MESSAGE(calls.find(f.goesOnWith) != std::string::npos, calls);
    if (!f.leavesOut.empty()) CHECK(calls.find(f.leavesOut) == std::string::npos);
  }
}

TEST_CASE_FIXTURE(GenerationFixture,
                  "Without a form component every statement that needs it is reported, and nothing crashes") {
  AddField(kind::TextBox, "Name");
  Ide.Transcript.Refuse["Add component"] = 440;
  generator::Generation generation = WriteForm();
  CHECK(Desktop.Shown().starts_with(Reported("WriteForm")));
  CHECK(Desktop.Texts().ends_with("WriteConMenus : Object variable or With block variable not set\n"));
  CHECK_THROWS_AS(generator::WriteProcedures(generation), runtime::RuntimeError);
}

TEST_CASE("The screen procedures and the action handlers have no report of their own") {
  for (const char* refused :
       {": Private Sub EnableScreen", ": Private Sub EraseScreen", "cmd__New_Click", ": Const m_classname"}) {
    CAPTURE(std::string(refused));
    GenerationFixture run = FiveFields();
    run.Ide.Transcript.Refuse[refused] = 380;
    CHECK_THROWS_AS(run.Generate(), runtime::RuntimeError);
    CHECK(run.Desktop.Texts().empty());
  }
}
