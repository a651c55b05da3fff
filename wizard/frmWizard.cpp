#include "wizard/frmWizard.h"

#include "runtime/Conversions.h"
#include "settings/Settings.h"
#include "support/Busy.h"
#include "support/Pieces.h"

namespace formwizard::wizard {
namespace {

// The last step leaves the picture as it is.
Int16 PictureOf(Int16 step, Int16 current) {
  if (step == step::Finish) return current;
  return step == step::Connection || step == step::Properties ? Int16(1) : Int16(2);
}

}  // namespace

frmWizard::frmWizard(WizardServices& services, generator::ide::Vbe& environment)
    : ui::Form(services.Desktop),
      services_(services),
      environment_(environment),
      report_(services_.Desktop, services_.Strings) {
  Design();
  ConnectEvents();
}

void frmWizard::ConnectEvents() {
  cmdBack.OnClick = Guarded([this] { cmdBack_Click(); });
  cmdNext.OnClick = Guarded([this] { cmdNext_Click(); });
  cmdFinish.OnClick = Guarded([this] { cmdFinish_Click(); });
  cmdCancel.OnClick = Guarded([this] { cmdCancel_Click(); });
  cmdSettings.OnClick = Guarded([this] { cmdSettings_Click(); });

  tvwConnection.NodeClick = Guarded([this](ui::Node& node) { StatusMessage(node.Tag); });
  tvwConnection.DblClick = Guarded([this] {
    services_.Desktop.ProcessMessages();
    cmdNext.Click();
  });
  tvwClasses.NodeClick = Guarded([this](ui::Node& node) { tvwClasses_NodeClick(node); });
  tvwClasses.OnClick = Guarded([this] {
    if (ui::Node* node = tvwClasses.SelectedItem) tvwClasses_NodeClick(*node);
  });
  tvwClasses.MouseDown = [this](float x, float y) {
    classesX_ = x;
    classesY_ = y;
  };
  tvwClasses.DblClick = Guarded([this] { tvwClasses_DblClick(); });

  tvwAttributes.Expand = Guarded([this](ui::Node& node) { tvwAttributes_Expand(node); });
  tvwAttributes.DblClick = Guarded([this] { tvwAttributes_DblClick(); });
  lstSelected.DblClick = Guarded([this] { cmdDeSelectOne_Click(); });
  cmdSelectOne.OnClick = Guarded([this] {
    if (ui::Node* node = tvwAttributes.SelectedItem) SelectProperty(*node);
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
  isGenerating_ = false;
  cmdCancel.Enabled = true;
  Width = Int32(9210);
  Height = Int32(6000);
  lblLabelWidth.Caption = "M";
  Model().CharWidth = runtime::RoundToInt16(services_.Measure.WidthOf(lblLabelWidth.Caption));
  Model().SixCharWidth = Int16(6) * Model().CharWidth;
  PlaceFrames();
  std::string language = services_.Language;
  services_.Strings.LoadResourceLibrary(support::ApplicationName, language);
  services_.Localization.Localize(*this);
  SetToolTips();
  ShowComboSpecification(false);
  readyText_ = Text(407);
  SetStep(step::Welcome);
  InitStep();
}

// Lays the panels of the steps over one another, and the attribute frames beside the list of fields.
void frmWizard::PlaceFrames() {
  frmCommand.HasBorder = false;
  frmCommand.Top = Int32(4815);
  frmCommand.Left = Width - frmCommand.Width - Int32(360);
  for (ui::Frame& panel : frmStep) {
    panel.HasBorder = false;
    panel.Left = Int32(3240);
    panel.Top = Int32(0);
  }
  for (ui::Frame& panel : frmProperty) {
    panel.Top = lblStep4_2.Top;
    panel.Left = lstFields.Left + lstFields.Width + Int32(200);
    panel.Height = lstFields.Height + lblStep4_2.Height;
  }
  ui::ShowOnly(frmProperty, 0);
}

void frmWizard::SetToolTips() {
  for (ui::Control* control : Controls()) {
    const std::string_view id = support::GetPiece(control->Tag, "^", 2);
    if (!id.empty()) control->ToolTipText = ToText(services_.Strings.LoadResStringValue(std::string(id)));
  }
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
  ui::ShowOnly(frmStep, static_cast<std::size_t>(currentStep_.Value()) - 1);
  services_.Desktop.ProcessMessages();  // the new panel paints before any slow entry work
  picMain.Picture = PictureOf(currentStep_, picMain.Picture);
  Allow(cmdFinish, currentStep_ >= step::Attributes);
  cmdFinish.Default = currentStep_ == step::Finish;
  Allow(cmdNext, currentStep_ != step::Finish);
  cmdNext.Default = currentStep_ != step::Finish;
  Allow(cmdBack, currentStep_ != step::Welcome);
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
  Allow(cmdFinish, lstSelected.ListCount() > 0);
}

void frmWizard::cmdSettings_Click() {
  if (!settingsDialog_) {
    settingsDialog_ = std::make_unique<settings::frmSettings>(services_.Desktop, services_.Profiles,
                                                              services_.ProfileFile, services_.Localization);
  }
  services_.Desktop.ShowModal(*settingsDialog_, this);
}

void frmWizard::LeaveStep() {
  if (currentStep_ != step::Connection) return;
  const ui::Node* selected = tvwConnection.SelectedItem;
  if (!selected) {
    // An empty list has no system to connect to; the step is not left.
    barStatus.Panels[1] = "";
    return;
  }
  if (barStatus.Panels[1].Get() != selected->Text.Get()) ConnectToSystem();
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
  if (!populatedClass_.empty()) {
    Allow(cmdNext, selectedClass_ && IsClass(*selectedClass_));
    return;
  }
  ClearClassList();  // it may be another system's
  LoadSettings();
  PopulateClassList();
}

void frmWizard::EnterPropertiesStep() {
  if (!selectedClass_) runtime::Raise(runtime::ObjectVariableNotSet);
  if (selectedClass_->Tag != populatedClass_) {
    tvwAttributes.Nodes.Clear();
    lstSelected.Clear();
    lstFields.Clear();  // the records of its entries no longer exist
    services_.Desktop.ProcessMessages();
    Model().ResetFieldRecords();
    PopulateAttributeList(nullptr, selectedClass_->Tag, false);
    populatedClass_ = selectedClass_->Tag;
  }
  if (lstSelected.ListCount() == 0) Allow(cmdNext, false);
}

void frmWizard::EnterAttributesStep() {
  PopulateFields();
  chkReadOnly.SetValue(0);
  if (lstFields.ListCount() > 0) lstFields.SetListIndex(0);
}

void frmWizard::EnterFinishStep() {
  // In the caption as it stands: once replaced, a later visit keeps showing the first class.
  lblStep5_2.Caption = runtime::ReplaceAll(lblStep5_2.Caption, "%S1", selectedClass_ ? selectedClass_->Text.Get() : "");
}

}  // namespace formwizard::wizard
