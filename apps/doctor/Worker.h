// Makes checks in this process and tells what they have found, line by line.
#pragma once

#include "apps/doctor/Check.h"

#include <iosfwd>
#include <string>
#include <vector>

namespace formwizard::apps::doctor {

// The checks of these ids in their order; common::UsageError for an id that there is none of. Whatever a check raises
// is its finding.
void Work(Checks checks, const std::vector<std::string>& ids, bool fix, std::ostream& out);

}  // namespace formwizard::apps::doctor
