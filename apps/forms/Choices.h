// What somebody has chosen in the wizard, as a form description says it.
#pragma once

#include "apps/forms/FormDescription.h"
#include "wizard/WizardServices.h"

#include <string>
#include <vector>

namespace formwizard::apps::forms {

// Every setting, as a description says it.
SettingTexts TextsOf(const settings::Settings& settings);

// Of the form that was finished last: its class, the fields with what was set for them, all settings. `system` is the
// one that the dialog was connected to, `offered` what the class offers (see Offers). A caption or a number of rows
// that is as the wizard proposes it stands there only where `before` has one for the field, so that the rest goes on
// following the class.
FormDescription ChoicesIn(const wizard::AddInState& state, const std::string& system,
                          const std::vector<kept::Property>& offered, const FormDescription* before = nullptr);

}  // namespace formwizard::apps::forms
