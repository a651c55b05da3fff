#include "apps/doctor/Doctor.h"

#include "apps/common/Endings.h"
#include "apps/doctor/Report.h"
#include "apps/doctor/Worker.h"

namespace formwizard::apps::doctor {

int Doctor(const DoctorOptions& options, std::ostream& out, Checks checks, const Programs& programs) {
  if (!options.Answer.empty()) {
    Work(checks, options.Answer, options.Fix, out);
    return common::Done;
  }
  const std::vector<Finding> findings = MakeChecks(checks, programs, options.Fix);
  (options.Json ? WriteJson : WriteText)(checks, findings, out);
  return IsFailure(checks, findings, options.Strict) ? common::Differs : common::Done;
}

}  // namespace formwizard::apps::doctor
