// Whether the blocks of a procedure end where they should: If, For, Do, While, Select and With.
#pragma once

#include "vbtext/Code.h"
#include "vbtext/Lines.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace formwizard::lint {

struct BlockFault {
  std::size_t Line;  // from 0
  std::string Message;
};

// The first one. Nothing where the text does not say for certain, such as behind an #If that opens a block for one
// condition only.
std::optional<BlockFault> BlockFaultIn(const std::vector<vbtext::Line>& lines, const vbtext::Section& procedure);

}  // namespace formwizard::lint
