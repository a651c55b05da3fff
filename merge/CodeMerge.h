// Merges the code of three modules: declarations by statement, procedures by name, their lines one by one.
#pragma once

#include "merge/Documents.h"
#include "merge/Output.h"

#include <string>
#include <string_view>

namespace formwizard::merge {

void MergeCode(const Documents& documents, Output& output);

// Whether the code is declarations, then procedures, with no #If around any of them; code that is not is merged by
// line.
bool IsOrdered(const vbtext::Module& code);

// Three texts of code line by line; `name` is what they are, for the conflicts in them.
void MergeLines(std::string_view base, std::string_view mine, std::string_view theirs, const std::string& name,
                Output& output);

}  // namespace formwizard::merge
