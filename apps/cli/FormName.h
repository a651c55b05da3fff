// What a form is going to be called.
#pragma once

#include "apps/cli/FormDescription.h"

#include <string_view>

namespace formwizard::adapters::vb6files {
class ProjectOnDisk;
}

namespace formwizard::apps::cli {

// support::InputError, with the remedy, when the form of the class cannot be called what it should in the project.
// `classCaption` is the name of the class without the package.
void CheckFormName(adapters::vb6files::ProjectOnDisk& project, const GivenText& className,
                   std::string_view classCaption);

}  // namespace formwizard::apps::cli
