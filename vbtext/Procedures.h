// Which procedure of a module is which one of another.
#pragma once

#include "vbtext/Code.h"
#include "vbtext/LineKeys.h"

#include <cstddef>
#include <vector>

namespace formwizard::vbtext {

// For each procedure of `a` the place of the same one in `b`, or None: by branch, word and name; then, renamed, by the
// lines behind the first, where only one will do. The keys, by line, are of one LineKeys.
std::vector<std::size_t> MatchProcedures(const std::vector<const Section*>& a, const std::vector<LineKey>& keysA,
                                         const std::vector<const Section*>& b, const std::vector<LineKey>& keysB);

}  // namespace formwizard::vbtext
