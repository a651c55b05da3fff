// What a form and its controls are going to be called.
#pragma once

#include "apps/forms/FormDescription.h"
#include "model/FormModel.h"

#include <string>
#include <string_view>

namespace formwizard::adapters::vb6files {
class ProjectOnDisk;
}

namespace formwizard::apps::forms {

// Why the form of the class cannot be called what it should in the project, with the remedy; empty when it can.
// `classCaption` is the name of the class without the package.
std::string ProblemOfFormName(adapters::vb6files::ProjectOnDisk& project, const std::string& className,
                              std::string_view classCaption);
// The same as a support::InputError.
void CheckFormName(adapters::vb6files::ProjectOnDisk& project, const GivenText& className,
                   std::string_view classCaption);

// support::InputError, with the remedy, when a control of the form, which was made as `description` says and is not
// finished, could not be called what it should. `model` has the fields in the order of the description.
void CheckControlNames(const adapters::vb6files::ProjectOnDisk& project, std::string_view form,
                       const FormDescription& description, const model::FormModel& model);

}  // namespace formwizard::apps::forms
