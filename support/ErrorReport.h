// The one way in which a routine that fails says so to the user, and the two ways of going on after it.
#pragma once

#include "runtime/RuntimeError.h"
#include "support/Strings.h"
#include "ui/Desktop.h"

#include <concepts>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>

namespace formwizard::support {

class ErrorReport {
 public:
  // Both must outlive this object.
  ErrorReport(ui::Desktop& desktop, const Strings& strings) : desktop_(desktop), strings_(strings) {}

  // Shows "Error occurred in procedure ROUTINE : DESCRIPTION" in a message box titled "Error".
  void operator()(std::string_view routine, const runtime::RuntimeError& error) const;

 private:
  ui::Desktop& desktop_;
  const Strings& strings_;
};

// Runs a routine's statements; the first run-time error is reported under the routine's name and ends them.
// True when all of them ran.
// `beforeReport` is what the routine's handler does before the report is shown.
template <std::invocable Statements, std::invocable BeforeReport>
bool LeaveOnError(const ErrorReport& report, std::string_view routine, Statements&& statements,
                  BeforeReport&& beforeReport) {
  try {
    std::forward<Statements>(statements)();
    return true;
  } catch (const runtime::RuntimeError& error) {
    std::forward<BeforeReport>(beforeReport)();
    report(routine, error);
    return false;
  }
}
template <std::invocable Statements>
bool LeaveOnError(const ErrorReport& report, std::string_view routine, Statements&& statements) {
  return LeaveOnError(report, routine, std::forward<Statements>(statements), [] {});
}

// Runs one statement a call; a run-time error is reported under the routine's name as it reads at that moment, and
// the next call goes on. A lambda holds all that its one statement computes.
template <typename RoutineName>
requires std::is_invocable_r_v<std::string, RoutineName>
class ResumeNext {
 public:
  ResumeNext(const ErrorReport& report, RoutineName routine) : report_(report), routine_(std::move(routine)) {}

  template <std::invocable Statement>
  void operator()(Statement&& statement) const {
    try {
      std::forward<Statement>(statement)();
    } catch (const runtime::RuntimeError& error) {
      report_(routine_(), error);
    }
  }

 private:
  const ErrorReport& report_;
  RoutineName routine_;
};

}  // namespace formwizard::support
