// The wizard over the choices that a kept form was made with, for its user to make others.
#pragma once

#include "apps/desktop/Environment.h"
#include "apps/forms/FormDescription.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace formwizard::apps::desktop {

// Hears what the class no longer offers, while the wizard is shown; see forms::GoToAttributes.
using LeftOutListener = std::function<void(const std::vector<std::string>& leftOut)>;

// Opens the wizard at its Attributes step with these choices made, beside a preview of the form of that name. What was
// chosen when it was finished; nothing where it was cancelled. Its Finish makes a form that nobody keeps, so that what
// the generator has to say is said before anything changes, and the settings that are chosen in it are this form's
// alone.
std::optional<forms::FormDescription> ChooseAnew(Environment& environment, const std::string& form,
                                                 const forms::FormDescription& choices,
                                                 const LeftOutListener& onLeftOut);

}  // namespace formwizard::apps::desktop
