// Which kept forms a change of their dictionary touches.
#pragma once

#include "apps/forms/FormDescription.h"
#include "apps/forms/KeptFolder.h"
#include "kept/ClassChanges.h"
#include "wizard/factory/Factory.h"

#include <functional>
#include <string>
#include <vector>

namespace formwizard::apps::forms {

struct TouchedForm {
  std::string Name;
  kept::ClassChanges Class;          // what becomes of what it shows, as an update would see it
  std::vector<std::string> Queries;  // "Sample.Person.ByName", by which objects are chosen and which is another now
};

// Whether a query of a class, by the name of its system, is gone or another in the new dictionary.
using IsQueryChanged =
    std::function<bool(const std::string& system, const std::string& className, const std::string& query)>;

// Calls `onForm` for every kept form that is touched, in the order of their names: by its own class, by those of the
// objects in it, and by the queries of its fields. support::InputError for what cannot be read.
void ForEachTouchedForm(const KeptFolder& folder, wizard::factory::FactoryCreator& before,
                        wizard::factory::FactoryCreator& after, const IsQueryChanged& isQueryChanged,
                        const std::function<void(const TouchedForm&)>& onForm);

}  // namespace formwizard::apps::forms
