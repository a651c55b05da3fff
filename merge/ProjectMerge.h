// Merges three project files: items as a set, settings by name.
#pragma once

#include "merge/Output.h"

#include <string_view>

namespace formwizard::merge {

// Throws vbtext::Fault for a text that is no project.
void MergeProjects(std::string_view base, std::string_view mine, std::string_view theirs, Output& output);

}  // namespace formwizard::merge
