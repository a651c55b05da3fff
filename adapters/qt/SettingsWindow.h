// The window of the settings dialog.
#pragma once

#include "adapters/qt/FormWindow.h"
#include "settings/frmSettings.h"

namespace formwizard::adapters::qt {

class SettingsWindow : public FormWindow {
 public:
  SettingsWindow(settings::frmSettings& dialog, QWidget* parent);
};

}  // namespace formwizard::adapters::qt
