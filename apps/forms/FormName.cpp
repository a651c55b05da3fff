#include "apps/forms/FormName.h"

#include "adapters/vb6files/ProjectOnDisk.h"
#include "adapters/vb6files/Values.h"
#include "generator/Generation.h"
#include "support/Failures.h"

#include <algorithm>

namespace formwizard::apps::forms {

namespace {

constexpr std::size_t Prefix = 3;  // letters that a control's name has in front: "txt", "mnu"

// Where the last field is chosen that such a name may come from; where there is none, the class.
const GivenText& OriginOf(const std::string& controlName, const FormDescription& description,
                          const model::FormModel& model) {
  const std::string_view base = std::string_view(controlName).substr(std::min(Prefix, controlName.size()));
  for (std::size_t i = description.Fields.size(); i > 0; --i) {
    const model::FieldRecord& field = model.Fields[model.SelectedFields[runtime::Int16(static_cast<int>(i))]];
    if (base.starts_with(field.IntName) || base.starts_with(field.PropertyName)) {
      return description.Fields[i - 1].Property;
    }
  }
  return description.Class;
}

}  // namespace

std::string ProblemOfFormName(adapters::vb6files::ProjectOnDisk& project, const std::string& className,
                              std::string_view classCaption) {
  const std::string stem = generator::FormStem(classCaption);
  const std::string name = generator::UniqueComponentName(stem, project.ActiveVBProject());
  const std::string problem = project.ProblemOfNewName(name);
  if (problem.empty()) return "";
  const std::string remedy = name != stem ? "rename or remove the form " + stem + ", which the project has already"
                             : !adapters::vb6files::ProblemOfObjectName(name).empty()
                                 ? "give the class another name"
                                 : "rename what is in its way, or give the class another name";
  return "the form of class " + className + " would be called \"" + name + "\", " + problem + "; " + remedy +
         " (--allow-incomplete leaves it the name that a new form has)";
}

void CheckFormName(adapters::vb6files::ProjectOnDisk& project, const GivenText& className,
                   std::string_view classCaption) {
  const std::string problem = ProblemOfFormName(project, className.Value, classCaption);
  if (!problem.empty()) throw support::InputError(className.Where.Text() + ": " + problem);
}

void CheckControlNames(const adapters::vb6files::ProjectOnDisk& project, std::string_view form,
                       const FormDescription& description, const model::FormModel& model) {
  const auto refused = project.RefusedIn(form);
  if (!refused) return;
  const GivenText& origin = OriginOf(refused->Name, description, model);
  throw support::InputError(origin.Where.Text() + ": a control for " + origin.Value + " would be called \"" +
                            refused->Name + "\", " + refused->Problem +
                            "; leave that field out, or rename the property in the class "
                            "(--allow-incomplete leaves the control the name that a new one has)");
}

}  // namespace formwizard::apps::forms
