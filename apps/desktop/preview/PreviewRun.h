// One run of the wizard's generator over a copy of the choices, in a scratch project.
#pragma once

#include "adapters/vb6files/FormTree.h"
#include "adapters/vb6files/ProjectOnDisk.h"
#include "wizard/frmWizard.h"

#include <cstddef>
#include <string>
#include <vector>

namespace formwizard::apps::desktop {

// What the runs of one dialog have in common.
struct PreviewProject {
  std::string Path = "Project1.vbp", Text = "Type=Exe\r\n";  // of the scratch project
  adapters::vb6files::ProjectOptions Options;
  adapters::vb6files::ProjectOnDisk* Open = nullptr;  // the one whose names are taken; null for none
  std::string Name = "";                              // of the form; empty for one that is free
  std::string QueryControlFrom = "";  // the toolbox that it is taken from; empty where the project has it, or nobody
};

// For the open project, which must live as long; null for none.
PreviewProject ScratchFor(adapters::vb6files::ProjectOnDisk* open, const adapters::vb6files::ProjectOptions& options);

struct PreviewedForm {
  adapters::vb6files::FormTree Tree;
  std::size_t Fields = 0;
  std::string ChosenControl;          // shows the field that is chosen in the dialog; empty for none
  std::vector<std::string> Missing;   // required properties of the class that the form does not show
  std::vector<std::string> Failures;  // what the generator reported, each once
  bool IsAheadOfFinish = false;       // Finish would make the form of older choices; Next takes these
  std::string QueryControlFrom;
};

// As it would come out now; nothing of the dialog changes. A property must be chosen. Throws what ends a generation,
// such as a name that the project's code page lacks, and std::runtime_error with what the generator reported where it
// makes no form at all, such as of more rows than a column holds.
PreviewedForm MakePreview(const wizard::frmWizard& dialog, const PreviewProject& project);

}  // namespace formwizard::apps::desktop
