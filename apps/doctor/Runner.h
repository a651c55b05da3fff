// Has all checks made by programs that run beside this one, so that one that hangs or crashes stops no other.
#pragma once

#include "apps/doctor/Check.h"

#include <filesystem>
#include <vector>

namespace formwizard::apps::doctor {

// Each makes the checks that it is asked for by the option --answer, one an id.
struct Programs {
  std::filesystem::path This, Of32Bits;  // empty for one that there is not
};

// One finding a check, in their order.
std::vector<Finding> MakeChecks(Checks checks, const Programs& programs, bool fix);

}  // namespace formwizard::apps::doctor
