// The property lists of components and controls.
#pragma once

#include "adapters/com/Automation.h"
#include "generator/ide/Ide.h"

#include <string_view>

namespace formwizard::adapters::com {

// owner.Properties(name).Value
Value PropertyOf(const Object& owner, std::string_view name);
void SetPropertyOf(const Object& owner, std::string_view name, const generator::ide::PropertyValue& value);

}  // namespace formwizard::adapters::com
