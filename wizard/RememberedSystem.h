// Where the wizard keeps the name of the system that was used last.
#pragma once

#include <string_view>

namespace formwizard::wizard {

// A key beside those of the settings, in their section.
inline constexpr std::string_view RememberedSystemKey = "LastConnect";

}  // namespace formwizard::wizard
