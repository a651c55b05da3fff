// Looks at the installation and says of each part whether it is good, or what mends it.
#pragma once

#include "apps/doctor/Runner.h"

#include <iosfwd>
#include <string>
#include <vector>

namespace formwizard::apps::doctor {

struct DoctorOptions {
  bool Fix = false;     // mend what the user may change
  bool Strict = false;  // whatever is not good is a failure
  bool Json = false;
  std::vector<std::string> Answer;  // ids: make these checks in this process, for the program that has started it
};

// The checks of this system, and the programs that can make them.
Checks SystemChecks();
Programs SystemPrograms();

// An exit status: Done or, for a failure, Differs. Without Fix nothing is changed.
int Doctor(const DoctorOptions& options, std::ostream& out, Checks checks = SystemChecks(),
           const Programs& programs = SystemPrograms());

}  // namespace formwizard::apps::doctor
