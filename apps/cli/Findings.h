// What the linter finds, for people; and what it finds in the files that a run has made.
#pragma once

#include "adapters/vb6files/ProjectOnDisk.h"
#include "lint/Lint.h"
#include "system/CodePage.h"

#include <string>
#include <vector>

namespace formwizard::apps::cli {

// Without the remedy. UTF-8.
std::string MessageOf(const lint::Finding& finding, const system::CodePage& codePage);
// "frmPerson.frm:12: error: message; remedy [rule]"
std::string LineOf(const std::string& path, const lint::Finding& finding, const system::CodePage& codePage);

// A line for each finding in the files of a form, or in the project file, but for its forms and modules that are not
// there.
std::vector<std::string> FindingsIn(const std::vector<adapters::vb6files::FileChange>& made,
                                    const adapters::vb6files::ProjectOnDisk& project);

}  // namespace formwizard::apps::cli
