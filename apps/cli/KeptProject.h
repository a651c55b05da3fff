// A project whose kept forms a command works on.
#pragma once

#include "adapters/vb6files/ProjectOnDisk.h"
#include "apps/cli/ProjectOptions.h"
#include "apps/forms/KeptForms.h"

#include <string>
#include <vector>

namespace formwizard::apps::cli {

// --project, --dictionary and --code-page.
void AddKeptInputs(CLI::App& command, ProjectOptions& options);
// Which forms; empty for all.
void AddKeptForms(CLI::App& command, std::vector<std::string>& forms);

struct KeptProject {
  explicit KeptProject(const ProjectOptions& options);

  adapters::vb6files::ProjectOnDisk Project;
  forms::KeptForms Forms;
};

}  // namespace formwizard::apps::cli
