#include "adapters/com/Properties.h"

#include <variant>

namespace formwizard::adapters::com {

Value PropertyOf(const Object& owner, std::string_view name) {
  return owner.Child(L"Properties").Item(name).Get(L"Value");
}

void SetPropertyOf(const Object& owner, std::string_view name, const generator::ide::PropertyValue& value) {
  const Object property = owner.Child(L"Properties").Item(name);
  std::visit([&](const auto& typed) { property.Put(L"Value", typed); }, value);
}

}  // namespace formwizard::adapters::com
