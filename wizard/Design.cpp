#include "wizard/frmWizard.h"

namespace formwizard::wizard {

// One line a control, in tab order: name, container, left, top, width, height in twips, string ids. Behind a "^" stands
// the string id of the tool tip.
void frmWizard::Design() {
  Tag = "";
  Add(picMain, {"picMain", nullptr, 120, 120, 3000, 4575, ""});
  Add(lblLabelWidth, {"lblLabelWidth", nullptr, 0, 0, 0, 0, ""});
  lblLabelWidth.Visible = false;
  for (std::size_t i = 0; i < frmStep.size(); ++i) {
    Add(frmStep[i], {"frmStep", nullptr, 3240, 0, 5760, 4695, ""});
  }
  for (std::size_t i = 0; i < frmStep.size(); ++i) (this->*Steps[i].Design)(frmStep[i]);

  Add(frmCommand, {"frmCommand", nullptr, 240, 4815, 8580, 420, ""});
  Add(cmdBack, {"cmdBack", &frmCommand, 3060, 0, 1350, 375, "51"});
  Add(cmdNext, {"cmdNext", &frmCommand, 4410, 0, 1350, 375, "52"});
  Add(cmdFinish, {"cmdFinish", &frmCommand, 5820, 0, 1350, 375, "53"});
  Add(cmdCancel, {"cmdCancel", &frmCommand, 7230, 0, 1350, 375, "50"});
  Add(cmdSettings, {"cmdSettings", &frmCommand, 0, 0, 1650, 375, "103"});
  Add(barStatus, {"barStatus", nullptr, 0, 5310, 9090, 285, ""});
  cmdCancel.Cancel = true;
}

void frmWizard::DesignWelcome(ui::Frame& step) {
  Add(lblStep1_1, {"lblStep1_1", &step, 120, 360, 5520, 375, "100,14"});
  Add(lblStep1_2, {"lblStep1_2", &step, 120, 1080, 5520, 2400, "101"});
}

void frmWizard::DesignConnection(ui::Frame& step) {
  Add(lblStep2A_1, {"lblStep2A_1", &step, 120, 120, 5520, 420, "102"});
  Add(tvwConnection, {"tvwConnection", &step, 120, 600, 5520, 3975, ""});
}

void frmWizard::DesignClass(ui::Frame& step) {
  Add(lblStep2_1, {"lblStep2_1", &step, 120, 120, 5520, 255, "104"});
  Add(lblStep2_2, {"lblStep2_2", &step, 120, 480, 5520, 255, "105"});
  Add(tvwClasses, {"tvwClasses", &step, 120, 750, 5520, 3825, ""});
}

void frmWizard::DesignProperties(ui::Frame& step) {
  Add(lblStep3_1, {"lblStep3_1", &step, 120, 120, 5520, 630, "106"});
  Add(lblStep3_2, {"lblStep3_2", &step, 120, 840, 2340, 255, "108"});
  Add(tvwAttributes, {"tvwAttributes", &step, 120, 1110, 2340, 3465, ""});
  Add(cmdSelectOne, {"cmdSelectOne", &step, 2580, 1530, 480, 345, "^140"});
  Add(cmdSelectAll, {"cmdSelectAll", &step, 2580, 1950, 480, 345, "^141"});
  Add(cmdDeSelectOne, {"cmdDeSelectOne", &step, 2580, 2490, 480, 345, "^142"});
  Add(cmdDeSelectAll, {"cmdDeSelectAll", &step, 2580, 2910, 480, 345, "^143"});
  Add(lblStep3_3, {"lblStep3_3", &step, 3180, 840, 2100, 255, "109"});
  Add(lstSelected, {"lstSelected", &step, 3180, 1110, 1980, 3465, ""});
  Add(cmdMoveUp, {"cmdMoveUp", &step, 5220, 1950, 420, 345, "^144"});
  Add(cmdMoveDown, {"cmdMoveDown", &step, 5220, 2490, 420, 345, "^145"});
  cmdSelectOne.Caption = ">";
  cmdSelectAll.Caption = ">>";
  cmdDeSelectOne.Caption = "<";
  cmdDeSelectAll.Caption = "<<";
  cmdMoveUp.Caption = "\u25B2";
  cmdMoveDown.Caption = "\u25BC";
}

void frmWizard::DesignAttributes(ui::Frame& step) {
  Add(lblStep4_1, {"lblStep4_1", &step, 120, 120, 5520, 840, "107"});
  Add(lblStep4_2, {"lblStep4_2", &step, 120, 1080, 2340, 255, "109"});
  Add(lstFields, {"lstFields", &step, 120, 1335, 2340, 3240, ""});
  for (std::size_t i = 0; i < Panels.size(); ++i) {
    ui::Frame* panel = &frmProperty[i];
    Add(*panel, {"frmProperty", &step, 2660, 1080, 2980, 3495, Panels[i].Title});
    Add(lblCaption[i], {"lblCaption", panel, 150, 330, 2700, 225, "114"});
    Add(txtCaption[i], {"txtCaption", panel, 150, 570, 2680, 300, ""});
    (this->*Panels[i].Design)(i);
  }
}

void frmWizard::DesignReadOnly(std::size_t panel) {
  ui::Frame* frame = &frmProperty[panel];
  Add(chkReadOnly, {"chkReadOnly", frame, 150, 1050, 2700, 255, "115"});
  Add(lblUpdateAfter, {"lblUpdateAfter", frame, 150, 1440, 2700, 225, "116"});
  Add(lstUpdateAfter, {"lstUpdateAfter", frame, 150, 1680, 2680, 315, ""});
}

void frmWizard::DesignRefCombo(std::size_t panel) {
  ui::Frame* frame = &frmProperty[panel];
  Add(chkRefCombo, {"chkRefCombo", frame, 150, 990, 2700, 420, "118"});
  Add(lblComboMsg, {"lblComboMsg", frame, 150, 1500, 2700, 225, "603"});
  Add(lblComboQuery, {"lblComboQuery", frame, 150, 1830, 2700, 225, "601"});
  Add(lstQueryName, {"lstQueryName", frame, 150, 2070, 2680, 315, ""});
  Add(lblComboColumn, {"lblComboColumn", frame, 150, 2490, 2700, 225, "602"});
  Add(lstQueryColumn, {"lstQueryColumn", frame, 150, 2730, 2680, 315, ""});
}

void frmWizard::DesignRowHeight(std::size_t panel) {
  ui::Frame* frame = &frmProperty[panel];
  Add(lblRowHeight[panel], {"lblRowHeight", frame, 150, 1050, 2700, 225, "117"});
  Add(txtRowHeight[panel], {"txtRowHeight", frame, 150, 1290, 900, 300, ""});
}

void frmWizard::DesignFinish(ui::Frame& step) {
  Add(lblStep5_1, {"lblStep5_1", &step, 120, 360, 5520, 255, "119,12"});
  Add(lblStep5_2, {"lblStep5_2", &step, 120, 1080, 5520, 1200, "120"});
  Add(lblStep5_3, {"lblStep5_3", &step, 120, 2520, 5520, 600, "121"});
}

}  // namespace formwizard::wizard
