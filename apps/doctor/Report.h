// What the user gets to see of the findings.
#pragma once

#include "apps/doctor/Check.h"

#include <iosfwd>
#include <vector>

namespace formwizard::apps::doctor {

// A line a check: its state, its id, and what there is to say. The fault of a check that is not required is a warning.
void WriteText(Checks checks, const std::vector<Finding>& findings, std::ostream& out);
// The same as an array of objects.
void WriteJson(Checks checks, const std::vector<Finding>& findings, std::ostream& out);

// Whether the whole is a failure: a required check has found a fault; when `strict`, not everything is good.
bool IsFailure(Checks checks, const std::vector<Finding>& findings, bool strict);

}  // namespace formwizard::apps::doctor
