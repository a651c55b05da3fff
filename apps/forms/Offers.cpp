#include "apps/forms/Offers.h"

#include "apps/forms/PropertyTree.h"
#include "runtime/RuntimeError.h"
#include "wizard/factory/SystemList.h"

#include <algorithm>

namespace formwizard::apps::forms {

using wizard::factory::ObjectFactory;

ObjectFactory* Offers::Connected(const std::string& system) {
  const auto [known, isNew] = systems_.emplace(system, nullptr);
  if (!isNew) return known->second.get();
  std::unique_ptr<ObjectFactory> factory = server_.Create();
  const std::vector<wizard::factory::System> systems = wizard::factory::SystemsIn(factory->SystemList());
  const auto found = std::ranges::find(systems, system, &wizard::factory::System::Name);
  if (found == systems.end()) return nullptr;
  factory->Connect(found->Connect);
  if (factory->IsConnected()) known->second = std::move(factory);
  return known->second.get();
}

const OfferedClass& Offers::ClassOf(const std::string& system, const std::string& className) {
  const auto emplaced = classes_.emplace(std::pair(system, className), OfferedClass());
  const bool isNew = emplaced.second;
  OfferedClass& offered = emplaced.first->second;
  ObjectFactory* const factory = isNew ? Connected(system) : nullptr;
  if (!factory) return offered;
  std::vector<kept::Property>& known = offered.Properties;
  try {
    ForEachProperty(*factory, className, false, [&](const TreeProperty& property, wizard::factory::ResultSet&) {
      if (!property.IsField()) return;
      known.push_back({property.Path, std::string(property.Kind), property.Type, property.Caption, property.Width,
                       property.IsRequired, property.IsReadOnly});
    });
  } catch (const runtime::RuntimeError&) {
    known.clear();  // a server may refuse a class that it does not have
  }
  for (const kept::Property& property : known) offered.Paths.Add(property.Path);
  return offered;
}

}  // namespace formwizard::apps::forms
