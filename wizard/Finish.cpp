#include "generator/Generation.h"
#include "model/Layout.h"
#include "wizard/frmWizard.h"

namespace formwizard::wizard {

void frmWizard::cmdFinish_Click() {
  const bool done = support::LeaveOnError(
      report_, "cmdFinish_Click",
      [&] {
        LoadSettings();
        SetBusy(true);
        StatusMessage(Text(408));
        FreezeButtons();
        TakeSelection();
        Generate();
      },
      [&] { SetBusy(false); });
  if (!done) {
    cmdCancel.Enabled = true;  // the only way on; what was written stays
    return;
  }
  SetBusy(false);
  Unload();
}

void frmWizard::FreezeButtons() {
  cmdCancel.Enabled = false;
  cmdBack.Enabled = false;
  cmdNext.Enabled = false;
  cmdFinish.Enabled = false;
}

void frmWizard::TakeSelection() {
  if (lstFields.ListIndex() < 0) {  // the Attributes step was not visited
    PopulateFields();
    if (lstFields.ListCount() > 0) lstFields.SetListIndex(0);
  }
  Model().SelectedFields = runtime::OneBased<Int16>(Int16(lstFields.ListCount()));
  for (int i = 0; i < lstFields.ListCount(); ++i) {
    Model().SelectedFields[Int16(i + 1)] = Int16(lstFields.ItemData(i));
  }
}

void frmWizard::Generate() {
  if (!selectedClass_) runtime::Raise(runtime::ObjectVariableNotSet);
  AddInState& state = services_.State;
  StatusMessage(Text(409));
  ComputePositions(state.Form, state.Settings);
  StatusMessage(Text(410));
  ComputeLayout(state.Form, state.Settings, services_.Measure, selectedClass_->Text);

  state.Form.ClassName = selectedClass_->Tag;
  generator::Generation run(state.Form, state.Settings, services_.Strings, report_, services_.Environment,
                            state.Generator);
  StatusMessage(Text(411));
  generator::WriteForm(run);
  state.NewComponent = run.NewComponent;
  StatusMessage(Text(412));
  generator::WriteProcedures(run);
  generator::Required(run.NewComponent).Activate();
}

}  // namespace formwizard::wizard
