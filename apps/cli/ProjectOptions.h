// The options of every command that works on a project with a class dictionary.
#pragma once

#include <string>

namespace CLI {
class App;
}
namespace formwizard::adapters::vb6files {
class ProjectOnDisk;
}

namespace formwizard::apps::cli {

struct ProjectOptions {
  std::string Project, Dictionary, Toolbox, Profile, Language;
  int CodePage = 1252;
  bool AllowIncomplete = false;  // makes forms though their query control is not known
};

// Which project and dictionary, both required.
void AddInputs(CLI::App& command, ProjectOptions& options);
// What they are read and shown with.
void AddSurroundings(CLI::App& command, ProjectOptions& options);
void AddAllowIncomplete(CLI::App& command, ProjectOptions& options);

// What every form needs beyond the built-in controls: support::InputError, with the remedy, when it is not known and
// the forms may not be incomplete.
void CheckToolbox(const adapters::vb6files::ProjectOnDisk& project, const ProjectOptions& options);

}  // namespace formwizard::apps::cli
