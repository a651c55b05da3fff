// Merges the trees of three forms: controls by name in their container, properties one by one.
#pragma once

#include "merge/Documents.h"
#include "merge/Output.h"

namespace formwizard::merge {

// Writes the head, the tree and the attributes. All three have a tree, or none has.
void MergeHeaders(const Documents& documents, Output& output);

}  // namespace formwizard::merge
