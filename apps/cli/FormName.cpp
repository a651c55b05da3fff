#include "apps/cli/FormName.h"

#include "adapters/vb6files/ProjectOnDisk.h"
#include "adapters/vb6files/Values.h"
#include "generator/Generation.h"
#include "support/Failures.h"

namespace formwizard::apps::cli {

void CheckFormName(adapters::vb6files::ProjectOnDisk& project, const GivenText& className,
                   std::string_view classCaption) {
  const std::string stem = generator::FormStem(classCaption);
  const std::string name = generator::UniqueComponentName(stem, project.ActiveVBProject());
  const std::string problem = project.ProblemOfNewName(name);
  if (problem.empty()) return;
  const std::string remedy = name != stem ? "rename or remove the form " + stem + ", which the project has already"
                             : !adapters::vb6files::ProblemOfObjectName(name).empty()
                                 ? "give the class another name"
                                 : "rename what is in its way, or give the class another name";
  throw support::InputError(className.Where.Text() + ": the form of class " + className.Value + " would be called \"" +
                            name + "\", " + problem + "; " + remedy +
                            " (--allow-incomplete leaves it the name that a new form has)");
}

}  // namespace formwizard::apps::cli
