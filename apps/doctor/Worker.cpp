#include "apps/doctor/Worker.h"

#include "apps/common/Endings.h"
#include "apps/doctor/Answer.h"
#include "apps/doctor/ChildProcess.h"

#include <algorithm>
#include <exception>
#include <ostream>

namespace formwizard::apps::doctor {
namespace {

Finding Mended(const Check& check, Finding fault) {
  const std::string done = check.Mend();
  if (done.empty()) return fault;
  Finding after = check.Look();
  if (after.Is != State::Fault) after.Is = State::Mended;
  after.Message = done + "; " + after.Message;
  return after;
}

Finding FindingOf(const Check& check, bool fix) {
  try {
    Finding finding = check.Look();
    const bool canBeMended = finding.Is == State::Fault && check.Mend;
    return fix && canBeMended ? Mended(check, std::move(finding)) : finding;
  } catch (const std::exception& error) {
    return {State::Unknown, error.what()};
  }
}

const Check& CheckOf(Checks checks, const std::string& id) {
  const auto found = std::ranges::find(checks, id, &Check::Id);
  if (found == checks.end()) throw common::UsageError("there is no check \"" + id + "\"");
  return *found;
}

}  // namespace

void Work(Checks checks, const std::vector<std::string>& ids, bool fix, std::ostream& out) {
  FailQuietly();
  for (const std::string& id : ids) out << AnswerOf(id, FindingOf(CheckOf(checks, id), fix)) << std::endl;
}

}  // namespace formwizard::apps::doctor
