#include "support/ErrorReport.h"

#include "runtime/Conversions.h"

namespace formwizard::support {

void ErrorReport::operator()(std::string_view routine, const runtime::RuntimeError& error) const {
  const std::string message = runtime::ReplaceAll(strings_.LoadResStringLocal(1002), "%S1", routine);
  desktop_.ShowMessage(message + error.Description(), ui::Exclamation + ui::OkOnly, strings_.LoadResStringLocal(1013));
}

}  // namespace formwizard::support
