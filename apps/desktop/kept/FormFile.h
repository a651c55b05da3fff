// Where the file of a form stands that the project does not list.
#pragma once

#include "adapters/vb6files/ProjectOnDisk.h"

#include <string>

namespace formwizard::apps::desktop {

// As the project file would call it, "Forms\\frmPerson.frm"; empty where there is none. It is looked for in the folders
// of the project and of its components, among the files that are called after the form, "frmPerson_2.frm" too.
std::string FileOfForm(const system::FileSystem& files, const adapters::vb6files::ProjectOnDisk& project,
                       const std::string& form);

}  // namespace formwizard::apps::desktop
