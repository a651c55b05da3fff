#include "apps/cli/KeptProject.h"

#include "apps/cli/Commands.h"
#include "apps/common/Paths.h"
#include "system/FileSystem.h"

namespace formwizard::apps::cli {

void AddKeptInputs(CLI::App& command, ProjectOptions& options) {
  AddInputs(command, options);
  AddCodePage(command, options.CodePage, "the Windows code page of the project's files");
}

KeptProject::KeptProject(const ProjectOptions& options)
    : Project(system::RealFileSystem(), common::Resolved(options.Project), {options.CodePage}),
      Forms(system::RealFileSystem(), Project, options.Dictionary, FORMWIZARD_VERSION) {}

}  // namespace formwizard::apps::cli
