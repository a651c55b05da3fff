// The constants for conditional compilation that a project sets: CondComp="DEBUGGING = 1 : TRIAL = 0".
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace formwizard::merge {

// Merges three such values, with their quotes, by the names of the constants. Nothing when both sides changed one of
// them, each in its way, or one stands twice.
std::optional<std::string> MergedConstants(std::string_view base, std::string_view mine, std::string_view theirs);

}  // namespace formwizard::merge
