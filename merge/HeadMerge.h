// Merges what stands before the tree of a form: its version and the components that it needs.
#pragma once

#include "merge/Documents.h"
#include "merge/Output.h"

namespace formwizard::merge {

void MergeHeads(const Documents& documents, Output& output);

}  // namespace formwizard::merge
