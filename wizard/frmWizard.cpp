#include "wizard/frmWizard.h"

#include "runtime/Conversions.h"
#include "settings/Settings.h"
#include "support/Busy.h"

namespace formwizard::wizard {
namespace {

constexpr std::string_view ApplicationName = "OstrelFormWizard";

}  // namespace

frmWizard::frmWizard(WizardServices services)
    : ui::Form(services.Desktop), services_(std::move(services)), report_(services_.Desktop, services_.Strings) {
  ConnectEvents();
}

void frmWizard::ConnectEvents() {
  cmdBack.OnClick = Guarded([this] { cmdBack_Click(); });
  cmdNext.OnClick = Guarded([this] { cmdNext_Click(); });
  cmdFinish.OnClick = Guarded([this] { cmdFinish_Click(); });
  cmdCancel.OnClick = Guarded([this] { Unload(); });

  tvwConnection.NodeClick = Guarded([this](ui::Node& node) { StatusMessage(node.Tag); });
  tvwConnection.DblClick = Guarded([this] {
    services_.Desktop.ProcessMessages();
    cmdNext.Click();
  });
  tvwClasses.NodeClick = Guarded([this](ui::Node& node) { tvwClasses_NodeClick(node); });
  tvwClasses.DblClick = Guarded([this] {
    if (tvwClasses.SelectedItem && tvwClasses.SelectedItem->Key().empty()) cmdNext.Click();
  });

  tvwAttributes.Expand = Guarded([this](ui::Node& node) { tvwAttributes_Expand(node); });
  tvwAttributes.DblClick = Guarded([this] { tvwAttributes_DblClick(); });
  lstSelected.DblClick = Guarded([this] { cmdDeSelectOne_Click(); });
  cmdSelectOne.OnClick = Guarded([this] {
    if (tvwAttributes.SelectedItem) SelectProperty(*tvwAttributes.SelectedItem);
  });
  cmdSelectAll.OnClick = Guarded([this] { cmdSelectAll_Click(); });
  cmdDeSelectOne.OnClick = Guarded([this] { cmdDeSelectOne_Click(); });
  cmdDeSelectAll.OnClick = Guarded([this] { cmdDeSelectAll_Click(); });
  cmdMoveUp.OnClick = Guarded([this] { MoveSelected(-1); });
  cmdMoveDown.OnClick = Guarded([this] { MoveSelected(+1); });

  lstFields.OnClick = Guarded([this] { lstFields_Click(); });
  chkReadOnly.OnClick = Guarded([this] { chkReadOnly_Click(); });
  chkRefCombo.OnClick = Guarded([this] { chkRefCombo_Click(); });
  lstUpdateAfter.OnClick = Guarded([this] { lstUpdateAfter_Click(); });
  lstQueryName.OnClick = Guarded([this] { lstQueryName_Click(); });
  lstQueryColumn.OnClick = Guarded([this] { lstQueryColumn_Click(); });
  for (std::size_t panel = 0; panel < txtCaption.size(); ++panel) {
    txtCaption[panel].Change = Guarded([this, panel] {
      if (model::FieldRecord* field = CurrentField()) field->Caption = txtCaption[panel].Text();
    });
    txtRowHeight[panel].Change = Guarded([this, panel] { txtRowHeight_Change(panel); });
  }
}

void frmWizard::Form_Load() {
  populatedClass_.clear();
  Model().CharWidth = runtime::RoundToInt16(services_.Measure.WidthOf("M"));
  Model().SixCharWidth = Int16(6) * Model().CharWidth;
  services_.Strings.LoadResourceLibrary(ApplicationName, services_.Language);
  lblStep5_2.Caption = Text(120);
  lblComboQuery.Caption = Text(601);
  lblComboColumn.Caption = Text(602);
  readyText_ = Text(407);
  SetStep(step::Welcome);
  InitStep();
}

void frmWizard::SetBusy(bool busy) { support::SetBusy(services_.Desktop, *this, busy); }

void frmWizard::LoadSettings() {
  settings::LoadSettings(services_.State.Settings, services_.Profiles, services_.ProfileFile);
}

void frmWizard::SetStep(Int16 step) {
  currentStep_ = step;
  MoveStep(Int16(0));
}

void frmWizard::MoveStep(Int16 delta) {
  currentStep_ = currentStep_ + delta;
  services_.Desktop.ProcessMessages();  // the new panel paints before any slow entry work
  cmdFinish.Enabled = currentStep_ >= step::Attributes;
  cmdFinish.Default = currentStep_ == step::Finish;
  cmdNext.Enabled = currentStep_ != step::Finish;
  cmdNext.Default = currentStep_ != step::Finish;
  cmdBack.Enabled = currentStep_ != step::Welcome;
  Caption = Text(54) + runtime::Text(currentStep_) + Text(55) + "6";
}

void frmWizard::cmdNext_Click() {
  LeaveStep();
  if (currentStep_ == step::Connection && !IsConnected()) return;
  MoveStep(Int16(1));
  InitStep();
}

void frmWizard::cmdBack_Click() {
  MoveStep(Int16(-1));  // the entry work of the step is deliberately not run again
  cmdFinish.Enabled = lstSelected.ListCount() > 0;
}

void frmWizard::LeaveStep() {
  if (currentStep_ != step::Connection) return;
  const ui::Node* selected = tvwConnection.SelectedItem;
  if (!selected) {
    // An empty list has no system to connect to; the step is not left.
    barStatus.Panels[1].clear();
    return;
  }
  if (barStatus.Panels[1] != selected->Text) ConnectToSystem();
}

void frmWizard::InitStep() {
  if (currentStep_ == step::Connection && tvwConnection.Nodes.Count() == 0) PopulateConnection();
  if (currentStep_ == step::Class) EnterClassStep();
  if (currentStep_ == step::Properties) EnterPropertiesStep();
  if (currentStep_ == step::Attributes) EnterAttributesStep();
  if (currentStep_ == step::Finish) EnterFinishStep();
  StatusMessage(readyText_);
}

void frmWizard::EnterClassStep() {
  if (!populatedClass_.empty()) return;
  LoadSettings();
  PopulateClassList();
}

void frmWizard::EnterPropertiesStep() {
  if (!selectedClass_) runtime::Raise(runtime::ObjectVariableNotSet);
  if (selectedClass_->Tag != populatedClass_) {
    tvwAttributes.Clear();
    lstSelected.Clear();
    lstFields.Clear();  // the records of its entries no longer exist
    services_.Desktop.ProcessMessages();
    Model().ResetFieldRecords();
    PopulateAttributeList(nullptr, selectedClass_->Tag, false);
    populatedClass_ = selectedClass_->Tag;
  }
  if (lstSelected.ListCount() == 0) cmdNext.Enabled = false;
}

void frmWizard::EnterAttributesStep() {
  PopulateFields();
  chkReadOnly.SetValue(0);
  if (lstFields.ListCount() > 0) lstFields.SetListIndex(0);
}

void frmWizard::EnterFinishStep() {
  // In the caption as it stands: once replaced, a later visit keeps showing the first class.
  lblStep5_2.Caption = runtime::ReplaceAll(lblStep5_2.Caption, "%S1", selectedClass_ ? selectedClass_->Text : "");
}

}  // namespace formwizard::wizard
