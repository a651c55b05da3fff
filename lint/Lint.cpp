#include "lint/Lint.h"

#include <algorithm>
#include <utility>

namespace formwizard::lint {

std::vector<Finding> FindingsIn(const Subject& subject, bool all) {
  std::vector<Finding> findings;
  for (const Rule& rule : Rules()) {
    if (rule.OnRequest && !all) continue;
    rule.Check(subject, [&](std::size_t line, std::string message) {
      findings.push_back({&rule, line + 1, std::move(message)});
    });
  }
  std::ranges::stable_sort(findings, {}, &Finding::Line);
  return findings;
}

}  // namespace formwizard::lint
