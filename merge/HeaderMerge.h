// Merges the trees of three forms: controls by name in their container, properties one by one.
#pragma once

#include "merge/Output.h"
#include "vbtext/Document.h"

namespace formwizard::merge {

struct Documents {
  const vbtext::Document &Base, &Mine, &Theirs;
};

// Writes the head, the tree and the attributes. All three have a tree, or none has.
void MergeHeaders(const Documents& documents, Output& output);

}  // namespace formwizard::merge
