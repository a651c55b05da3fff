// The window of the wizard.
#pragma once

#include "adapters/qt/FormWindow.h"
#include "wizard/frmWizard.h"

namespace formwizard::adapters::qt {

class WizardWindow : public FormWindow {
 public:
  WizardWindow(wizard::frmWizard& dialog, QWidget* parent);

 private:
  void LayOutProperties();
  void LayOutAttributes();
  void LayOutColumn(ui::Frame& frame);

  wizard::frmWizard& dialog_;
};

}  // namespace formwizard::adapters::qt
