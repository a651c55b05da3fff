// The dialogs as they are designed, by whose controls the user finds the windows of the library's own dialogs.
#pragma once

#include "settings/frmSettings.h"
#include "wizard/frmWizard.h"

namespace formwizard::tests::host {

const wizard::frmWizard& WizardDesign();
const settings::frmSettings& SettingsDesign();

}  // namespace formwizard::tests::host
