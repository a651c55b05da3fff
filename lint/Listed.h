// What a project says of itself and its files.
#pragma once

#include "vbtext/Project.h"

#include <optional>
#include <string_view>
#include <vector>

namespace formwizard::lint {

// The path of a form, module or other file of the project's own, from the project's folder; nothing for other lines.
std::optional<std::string_view> ListedFileIn(const vbtext::ProjectEntry& entry);

// Empty when it has none.
std::string_view ProjectNameIn(const std::vector<vbtext::ProjectEntry>& entries);

}  // namespace formwizard::lint
