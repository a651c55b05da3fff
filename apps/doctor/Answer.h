// What a check has found, as the line of JSON by which one program tells it to another.
#pragma once

#include "apps/doctor/Check.h"

#include <optional>
#include <string>
#include <string_view>

namespace formwizard::apps::doctor {

// "good", "mended", "fault", "not-installed" or "unknown".
std::string_view NameOf(State state);

std::string AnswerOf(std::string_view id, const Finding& finding);

// Nothing for a line that is no answer about this check.
std::optional<Finding> FindingIn(const std::string& line, std::string_view id);

}  // namespace formwizard::apps::doctor
