#include "tests/support/GenerationFixture.h"

using namespace formwizard;
using namespace formwizard::tests;

namespace {

struct Failure {
  std::string refused;     // the environment refuses every call whose line holds this
  std::string routine;     // the one that reports it; empty: none does
  std::string goesOnWith;  // what a call that must still be made holds
  std::string leavesOut;   // and one that must not; empty: none
  int passes = 0;          // the error that leaves the generation: this one, or another that follows from it
};

std::string Reported(const std::string& routine) {
  return "Error[48]: Error occurred in procedure " + routine + " : refused\n";
}

struct FiveFields : GenerationFixture {
  FiveFields() {
    AddField(kind::ListBox, "Colors");
    AddField(kind::ReferenceLabel, "Spouse.Name").PropertyName = "Spouse";
    AddField(kind::ReferenceCombo, "Company");
    AddField(kind::ListView, "Phones");
    AddField(kind::Picture, "Photo");
  }
};

}  // namespace

TEST_CASE("A refused call is reported under its routine, which goes on or leaves as it must") {
  const std::string field = "WriteConField - name is ";
  constexpr int refusal = runtime::InvalidPropertyValue;
  for (const Failure& f : {
           Failure{"AddToolboxProgID MSCOMDLG", "WriteForm", "MSComctlLib.ListViewCtrl", ""},
           Failure{"Component.Name", "WriteForm", "Caption String Person", ""},
           Failure{"Properties Height Long", "WriteForm", "StartUpPosition Integer 3", ""},
           // The frame writer leaves: no further field, no button; the helper controls and menus follow.
           Failure{"HSCroll Top", "WriteConFrame", "Add OSTRELQUERYLib.OstrelQuery", "fra_Main",
                   runtime::EventHandlerInvalid},
           Failure{"cmd__Save Top", "WriteConFrame", "mnu__Exit Caption E&xit", "cmd__Delete Top",
                   runtime::EventHandlerInvalid},
           // The helper and field writers resume with the next statement.
           Failure{"lst__Hidden Height", "WriteConHelper ", "lst__Hidden Visible 0", ""},
           Failure{"lblColors Alignment", field, "lblColors Caption Colors", ""},
           Failure{"lstColors Height", field + "lstColors", "lstColors Left 350", ""},
           // Without its control the field's statements address the control before it.
           Failure{"Add VB.ComboBox", field + "cmbCompany", "lblCompany Name cmbCompany", ""},
           // The menu writer leaves: the remaining menus are missing, and so the handlers of the items.
           Failure{"mnuSpouse Visible", "WriteConMenus", "InsertLines 1 Const m_classname", "mnuPhones Visible"},
           Failure{"Private Sub actionSave", "WriteSubCommon", "Private Sub EnableScreen", ""},
           Failure{"Private Sub SyncObjectToScreen", "WriteSubSyncObjectToScreen", "Click cmd__New", ""},
           Failure{"Private Sub SyncScreenToObject", "WriteSubSyncScreenToObject", "Click cmd__New", ""},
           Failure{"MouseUp lstColors", "WriteSubControlEvents", "Click lstColors", "MouseUp imgPhoto"},
           Failure{"DropDown cmbCompany", "WriteSubRefComboEvents", "MouseUp lvwPhones", "Click cmbCompany"},
           Failure{"Click mnuSpouseChange", "WriteSubContextMenuReference", "Click mnuPhonesInsert",
                   "Click mnuSpouseRemove"},
           Failure{"Click mnuPhonesRemove", "WriteSubContextMenuArray", "Click mnuPhotoChange",
                   "ColumnClick lvwPhones"},
           Failure{"Click lstColors", "WriteSubcontextMenuList", "Click mnuSpouseChange", "Click mnuColorsAddToEnd"},
           Failure{"Click mnuPhotoChange", "WriteSubContextMenuImage", "Click mnuPhonesInsert", "Click mnuPhotoRemove"},
           // The screen procedures and the action handlers have no report of their own.
           Failure{"Private Sub EnableScreen", "", "Private Sub actionExit", "Private Sub EraseScreen", refusal},
           Failure{"Private Sub EraseScreen", "", "Private Sub EnableScreen", "SyncObjectToScreen", refusal},
           Failure{"Click cmd__New", "", "Private Sub SyncScreenToObject", "Click cmd__Find", refusal},
           Failure{"1 Const m_classname", "", "mnuPhotoRemove Caption", "Private Sub Form_Load", refusal},
       }) {
    CAPTURE(f.refused);
    FiveFields run;
    run.Ide.Refuse[f.refused] = refusal;
    CHECK(ErrorNumberOf([&] { run.Generate(); }) == f.passes);
    CHECK(run.Desktop.Shown().substr(0, run.Desktop.Shown().find('\n') + 1) ==
          (f.routine.empty() ? "" : Reported(f.routine)));
    CHECK(run.Desktop.Shown().find("refused") == run.Desktop.Shown().rfind("refused"));
    CHECK_MESSAGE(run.Ide.Count(f.goesOnWith) > 0, run.Ide.Journal());
    if (!f.leavesOut.empty()) CHECK(run.Ide.Count(f.leavesOut) == 0);
  }
}

TEST_CASE_FIXTURE(GenerationFixture,
                  "Without a form component every statement that needs it is reported, and nothing crashes") {
  AddField(kind::TextBox, "Name");
  Ide.Refuse["VBComponents.Add"] = runtime::AutomationError;
  generator::Generation generation = WriteForm();
  CHECK(Desktop.Shown().starts_with(Reported("WriteForm")));
  CHECK(Desktop.Texts().ends_with("WriteConMenus : Object variable or With block variable not set\n"));
  CHECK(ErrorNumberOf([&] { generator::WriteProcedures(generation); }) == runtime::ObjectVariableNotSet);
}
