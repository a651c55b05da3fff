// The three files of a merge.
#pragma once

#include "vbtext/Document.h"

namespace formwizard::merge {

struct Documents {
  const vbtext::Document &Base, &Mine, &Theirs;
};

}  // namespace formwizard::merge
