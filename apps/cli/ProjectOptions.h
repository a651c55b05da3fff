// The options of every command that works on a project with a class dictionary.
#pragma once

#include <string>

namespace CLI {
class App;
}

namespace formwizard::apps::cli {

struct ProjectOptions {
  std::string Project, Dictionary, Toolbox, Profile, Language;
  int CodePage = 1252;
};

// Which project and dictionary, both required.
void AddInputs(CLI::App& command, ProjectOptions& options);
// What they are read and shown with.
void AddSurroundings(CLI::App& command, ProjectOptions& options);

}  // namespace formwizard::apps::cli
