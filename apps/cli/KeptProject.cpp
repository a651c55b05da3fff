#include "apps/cli/KeptProject.h"

#include "apps/cli/Commands.h"
#include "apps/common/Paths.h"
#include "system/FileSystem.h"

#include <CLI/CLI.hpp>

namespace formwizard::apps::cli {

void AddKeptInputs(CLI::App& command, ProjectOptions& options) {
  AddInputs(command, options);
  AddCodePage(command, options.CodePage, "the Windows code page of the project's files");
}

void AddKeptForms(CLI::App& command, std::vector<std::string>& forms) {
  command.add_option("forms", forms, "kept forms by their names (default: all)")->type_name("FORM");
}

KeptProject::KeptProject(const ProjectOptions& options)
    : Project(system::RealFileSystem(), common::Resolved(options.Project),
              {.CodePageNumber = options.CodePage, .BearsUnreadable = true}),
      Forms(system::RealFileSystem(), Project, options.Dictionary, FORMWIZARD_VERSION) {}

}  // namespace formwizard::apps::cli
