#include "wizard/frmWizard.h"

#include "runtime/Conversions.h"
#include "settings/Settings.h"
#include "support/Pieces.h"

namespace formwizard::wizard {

// One row a step, in their order. With fewer rows it does not compile.
constexpr std::array<frmWizard::Step, LastStep> frmWizard::Steps = std::to_array<frmWizard::Step>({
    {.Picture = Int16(2), .Design = &frmWizard::DesignWelcome},
    {.Picture = Int16(1),
     .Design = &frmWizard::DesignConnection,
     .ConnectEvents = &frmWizard::ConnectConnectionEvents,
     .Enter = &frmWizard::EnterConnection,
     .Leave = &frmWizard::LeaveConnection},
    {.Picture = Int16(2),
     .Design = &frmWizard::DesignClass,
     .ConnectEvents = &frmWizard::ConnectClassEvents,
     .Enter = &frmWizard::EnterClass},
    {.Picture = Int16(1),
     .Design = &frmWizard::DesignProperties,
     .ConnectEvents = &frmWizard::ConnectPropertiesEvents,
     .Enter = &frmWizard::EnterProperties},
    {.Picture = Int16(2),
     .MayFinish = true,
     .Design = &frmWizard::DesignAttributes,
     .ConnectEvents = &frmWizard::ConnectAttributesEvents,
     .Enter = &frmWizard::EnterAttributes},
    {.MayFinish = true, .Design = &frmWizard::DesignFinish, .Enter = &frmWizard::EnterFinish},
});

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
  for (const Step& step : Steps) {
    if (step.ConnectEvents) (this->*step.ConnectEvents)();
  }
}

void frmWizard::Form_Load() {
  Width = Int32(9210);
  Height = Int32(6000);
  MeasureCharacters();
  PlaceFrames();
  std::string language = services_.Language;
  services_.Strings.LoadResourceLibrary(support::ApplicationName, language);
  services_.Localization.Localize(*this);
  SetToolTips();
  ForgetChoices();
  readyText_ = Text(407);
  SetStep(Int16(1));
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
}

void frmWizard::MeasureCharacters() {
  lblLabelWidth.Caption = "M";
  Model().CharWidth = runtime::RoundToInt16(services_.Measure.WidthOf(lblLabelWidth.Caption));
  Model().SixCharWidth = Int16(6) * Model().CharWidth;
}

void frmWizard::SetToolTips() {
  for (ui::Control* control : Controls()) {
    const std::string_view id = support::GetPiece(control->Tag, "^", 2);
    if (!id.empty()) control->ToolTipText = ToText(services_.Strings.LoadResStringValue(std::string(id)));
  }
}

// Everything that a user can choose for a form, and what a generation leaves behind.
void frmWizard::ForgetChoices() {
  populatedClass_.clear();
  isGenerating_ = false;
  cmdCancel.Enabled = true;
  ForgetProperties();
  ForgetAttributes();
  lblStep5_2.Caption = Text(120);  // with its gap for the class
}

bool frmWizard::LoadAgain() {
  if (!hasAllClasses_) return false;
  Reopen();
  MeasureCharacters();
  ForgetChoices();
  ConnectToSystem();
  if (!IsConnected()) return false;
  SetStep(Int16(3));
  LoadSettings();
  ForgetClass();
  ChooseFirstClass();
  StatusMessage(readyText_);
  return true;
}

// Not counted: one call with false ends any number of calls with true.
void frmWizard::SetBusy(bool busy) {
  services_.Desktop.SetMousePointer(busy ? ui::MousePointer::ArrowHourglass : ui::MousePointer::Default);
  Enabled = !busy;
}

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
  const bool isLast = currentStep_ == Int16(LastStep);
  const Step& step = CurrentStepRow();
  if (step.Picture != Int16(0)) picMain.Picture = step.Picture;
  Allow(cmdFinish, step.MayFinish);
  cmdFinish.Default = isLast;
  Allow(cmdNext, !isLast);
  cmdNext.Default = !isLast;
  Allow(cmdBack, currentStep_ != Int16(1));
  Caption = Text(54) + runtime::Text(currentStep_) + Text(55) + std::to_string(LastStep);
}

void frmWizard::cmdNext_Click() {
  if (!LeaveStep()) return;
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

bool frmWizard::LeaveStep() {
  const Step& step = CurrentStepRow();
  return !step.Leave || (this->*step.Leave)();
}

void frmWizard::InitStep() {
  const Step& step = CurrentStepRow();
  if (step.Enter) (this->*step.Enter)();
  StatusMessage(readyText_);
}

}  // namespace formwizard::wizard
