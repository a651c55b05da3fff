#include "tests/apps/addin-dll/Designs.h"

#include "tests/support/WizardFixture.h"

namespace formwizard::tests::host {

const wizard::frmWizard& WizardDesign() {
  static const WizardFixture fixture;
  return fixture.Dialog;
}

const settings::frmSettings& SettingsDesign() {
  static WizardFixture fixture;
  static const settings::frmSettings settings(fixture.Desktop, fixture.Profile, "outility.ini",
                                              fixture.Services.Localization);
  return settings;
}

}  // namespace formwizard::tests::host
