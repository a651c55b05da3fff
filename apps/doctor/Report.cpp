#include "apps/doctor/Report.h"

#include "apps/doctor/Answer.h"
#include "support/Messages.h"

#include <nlohmann/json.hpp>

#include <iomanip>
#include <ostream>

namespace formwizard::apps::doctor {
namespace {

std::string_view StateOf(const Check& check, const Finding& finding) {
  return finding.Is == State::Fault && !check.IsRequired ? "warning" : NameOf(finding.Is);
}

}  // namespace

void WriteText(Checks checks, const std::vector<Finding>& findings, std::ostream& out) {
  constexpr int widest = 14;  // "not-installed" and a blank
  for (std::size_t i = 0; i < checks.size(); ++i) {
    const Finding& finding = findings.at(i);
    const std::string purpose = finding.Is == State::Fault ? "; to mend it: " : "; to have it: ";
    const std::string remedy = finding.Remedy.empty() ? "" : purpose + finding.Remedy;
    out << std::left << std::setw(widest) << StateOf(checks[i], finding) << checks[i].Id << ": "
        << support::Shown(finding.Message + remedy) << '\n';
  }
}

void WriteJson(Checks checks, const std::vector<Finding>& findings, std::ostream& out) {
  using Json = nlohmann::ordered_json;
  Json all = Json::array();
  for (std::size_t i = 0; i < checks.size(); ++i) {
    const Finding& finding = findings.at(i);
    all.push_back({{"id", checks[i].Id},
                   {"state", StateOf(checks[i], finding)},
                   {"message", finding.Message},
                   {"remedy", finding.Remedy}});
  }
  out << all.dump(2, ' ', false, Json::error_handler_t::replace) << '\n';
}

bool IsFailure(Checks checks, const std::vector<Finding>& findings, bool strict) {
  for (std::size_t i = 0; i < checks.size(); ++i) {
    const State state = findings.at(i).Is;
    if (strict ? state != State::Good && state != State::Mended : checks[i].IsRequired && state == State::Fault) {
      return true;
    }
  }
  return false;
}

}  // namespace formwizard::apps::doctor
