#include "generator/Generation.h"
#include "model/Layout.h"
#include "wizard/frmWizard.h"

namespace formwizard::wizard {
namespace {

// However a generation ends that did not succeed: the only way on is to cancel. What was written stays.
class CancelIsLeft {
 public:
  explicit CancelIsLeft(frmWizard& dialog) : dialog_(dialog) {}
  ~CancelIsLeft() {
    if (!dialog_.IsUnloaded()) dialog_.cmdCancel.Enabled = true;
  }
  CancelIsLeft(const CancelIsLeft&) = delete;
  CancelIsLeft& operator=(const CancelIsLeft&) = delete;

 private:
  frmWizard& dialog_;
};

// However a generation ends, what it has made so far is known afterwards.
class ComponentIsKept {
 public:
  ComponentIsKept(AddInState& state, const generator::Generation& run) : state_(state), run_(run) {}
  ~ComponentIsKept() { state_.NewComponent = run_.NewComponent; }
  ComponentIsKept(const ComponentIsKept&) = delete;
  ComponentIsKept& operator=(const ComponentIsKept&) = delete;

 private:
  AddInState& state_;
  const generator::Generation& run_;
};

}  // namespace

void frmWizard::cmdFinish_Click() {
  const CancelIsLeft afterwards(*this);
  services_.State.NewComponent = nullptr;
  support::LeaveOnError(
      report_, "cmdFinish_Click",
      [&] {
        SetBusy(true);
        StatusMessage(Text(408));
        FreezeButtons();
        LoadSettings();
        TakeSelection();
        Generate(services_.State, environment_, report_, [this](int text) { StatusMessage(Text(text)); });
        SetBusy(false);
        Unload();
      },
      [&] { SetBusy(false); });
}

void frmWizard::EnterFinish() {
  // In the caption as it stands: once replaced, a later visit keeps showing the first class.
  lblStep5_2.Caption = runtime::ReplaceAll(lblStep5_2.Caption, "%S1", selectedClass_ ? selectedClass_->Text.Get() : "");
}

void frmWizard::FreezeButtons() {
  isGenerating_ = true;
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
  Select(Model(), lstFields);
}

void frmWizard::Select(model::FormModel& form, const ui::ListBox& list) {
  form.SelectedFields = runtime::OneBased<Int16>(Int16(list.ListCount()));
  for (int i = 0; i < list.ListCount(); ++i) {
    const Int16 record(list.ItemData(i));
    form.SelectedFields[Int16(i + 1)] = record;
    NameControls(form.Fields[record]);
  }
}

AddInState frmWizard::Rehearse(generator::ide::Vbe& environment, ui::Desktop& desktop) const {
  AddInState state = services_.State;
  state.NewComponent = nullptr;
  settings::LoadSettings(state.Settings, services_.Profiles, services_.ProfileFile);
  Select(state.Form, lstSelected);
  const support::ErrorReport report(desktop, services_.Strings);
  support::LeaveOnError(report, "cmdFinish_Click", [&] { Generate(state, environment, report, [](int) {}); });
  return state;
}

void frmWizard::Generate(AddInState& state, generator::ide::Vbe& environment, const support::ErrorReport& report,
                         const std::function<void(int text)>& say) const {
  if (!selectedClass_) runtime::Raise(runtime::ObjectVariableNotSet);
  say(409);
  ComputePositions(state.Form, state.Settings);
  say(410);
  ComputeLayout(state.Form, state.Settings, services_.Measure, selectedClass_->Text);

  state.Form.ClassName = selectedClass_->Tag;
  generator::Generation run(state.Form, state.Settings, services_.Strings, report, environment, state.Generator);
  const ComponentIsKept afterwards(state, run);
  say(411);
  generator::WriteForm(run);
  say(412);
  generator::WriteProcedures(run);
  generator::Required(run.NewComponent).Activate();
}

}  // namespace formwizard::wizard
