// Somebody who walks through the wizard as a form description says.
#pragma once

#include "apps/cli/FormDescription.h"
#include "wizard/frmWizard.h"

#include <string>

namespace formwizard::apps::cli {

// Performs a user's actions on the dialog: chooses the system, the class and the properties, sets their attributes and
// presses Finish. `system` is empty for the one that the dialog proposes. support::InputError for a choice that the
// dialog does not offer, with what it offers; nothing has been generated then.
void WalkThrough(wizard::frmWizard& dialog, const std::string& system, const FormDescription& form);

}  // namespace formwizard::apps::cli
