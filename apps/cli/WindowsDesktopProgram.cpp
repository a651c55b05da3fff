#include "apps/cli/DesktopProgram.h"
#include "support/Failures.h"

namespace formwizard::apps::cli {

void BecomeDesktopProgram(const std::vector<std::string>&, const std::string&, const std::string& whose,
                          const std::string& instead) {
  throw support::InputError("ostrel-form-wizard-desktop: the desktop program, " + whose +
                            ", is not started from here on Windows; run it itself, or this command on Linux" + instead);
}

}  // namespace formwizard::apps::cli
