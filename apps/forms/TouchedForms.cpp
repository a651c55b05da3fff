#include "apps/forms/TouchedForms.h"

#include "apps/forms/Offers.h"
#include "apps/forms/PropertyTree.h"
#include "runtime/RuntimeError.h"
#include "support/Failures.h"
#include "support/Names.h"
#include "wizard/factory/SystemList.h"

#include <algorithm>
#include <map>
#include <memory>
#include <string_view>

namespace formwizard::apps::forms {
namespace {

using wizard::factory::FactoryCreator;

// By the names that the class has for them.
std::vector<kept::ShownField> FieldsIn(const FormDescription& form, const std::vector<kept::Property>& offered) {
  const support::Names names(offered, [](const kept::Property& each) { return std::string_view(each.Path); });
  std::vector<kept::ShownField> fields;
  for (const FieldChoice& field : form.Fields) {
    const auto found = names.Find(field.Property.Value);
    fields.push_back({found ? offered[*found].Path : field.Property.Value, field.Caption.has_value()});
  }
  return fields;
}

// The classes of the objects in a class, by the paths of the objects.
std::map<std::string, std::string> ObjectsIn(FactoryCreator& server, const std::string& system,
                                             const std::string& className) {
  std::map<std::string, std::string> types;
  const auto factory = server.Create();
  for (const wizard::factory::System& each : wizard::factory::SystemsIn(factory->SystemList())) {
    if (each.Name != system) continue;
    factory->Connect(each.Connect);
    ForEachProperty(*factory, className, false, [&](const TreeProperty& property, wizard::factory::ResultSet&) {
      if (property.Kind == "object") types[property.Path] = property.Type;
    });
  }
  return types;
}

std::vector<std::string> QueriesThatChanged(const FormDescription& form, FactoryCreator& before,
                                            const IsQueryChanged& isChanged) {
  std::vector<std::string> queries;
  const auto hasCombo = [](const FieldChoice& field) { return field.Combo.has_value(); };
  if (std::ranges::none_of(form.Fields, hasCombo)) return queries;
  const std::map<std::string, std::string> types = ObjectsIn(before, form.System->Value, form.Class.Value);
  for (const FieldChoice& field : form.Fields) {
    if (!field.Combo) continue;
    for (const auto& [object, type] : types) {
      const std::string& query = field.Combo->Query.Value;
      const std::string& path = field.Property.Value;
      const bool isInside = path.starts_with(object) && path.substr(object.size()).starts_with('.');
      if (isInside && isChanged(form.System->Value, type, query))
        queries.push_back(std::string(type).append(".").append(query));
    }
  }
  return queries;
}

}  // namespace

void ForEachTouchedForm(const KeptFolder& folder, FactoryCreator& before, FactoryCreator& after,
                        const IsQueryChanged& isQueryChanged, const std::function<void(const TouchedForm&)>& onForm) {
  Offers was(before), is(after);
  for (const std::string& name : folder.Forms()) {
    const FormDescription form = folder.DescriptionIn(folder.Read(name), name);
    if (!form.System) {
      throw support::InputError(folder.FileOf(name, ".json") +
                                ": the description names no system; restore the file, or make it anew with "
                                "\"ostrel-form-wizard keep\"");
    }
    const auto& old = was.Of(form.System->Value, form.Class.Value);
    const auto& now = is.Of(form.System->Value, form.Class.Value);
    const TouchedForm touched{name, kept::ChangesOf(old, now, FieldsIn(form, old)),
                              QueriesThatChanged(form, before, isQueryChanged)};
    if (!touched.Class.IsEmpty() || !touched.Queries.empty()) onForm(touched);
  }
}

}  // namespace formwizard::apps::forms
