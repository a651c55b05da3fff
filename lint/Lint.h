// What the rules find in a file.
#pragma once

#include "lint/Rules.h"
#include "lint/Subject.h"

#include <cstddef>
#include <string>
#include <vector>

namespace formwizard::lint {

struct Finding {
  const Rule* Broken;   // of Rules()
  std::size_t Line;     // from 1
  std::string Message;  // without the remedy, which the rule has; names in it are the file's bytes
};

// In the order of the lines. `all`: also by the rules that are there on request.
std::vector<Finding> FindingsIn(const Subject& subject, bool all = false);

}  // namespace formwizard::lint
