// Which procedure of a module is which one of another.
#pragma once

#include "vbtext/Code.h"
#include "vbtext/LineKeys.h"

#include <cstddef>
#include <vector>

namespace formwizard::vbtext {

// The procedures of a module, and the lines of its file.
struct Procedures {
  const std::vector<const Section*>& All;
  const std::vector<Line>& Lines;
};

// For each procedure of `a` the place of the same one in `b`, or None: by branch, word and name; then, renamed, by the
// lines behind the first, where only one will do.
std::vector<std::size_t> MatchProcedures(const Procedures& a, const Procedures& b, LineKeys& keys);

}  // namespace formwizard::vbtext
