#include "apps/doctor/Answer.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <array>
#include <utility>

namespace formwizard::apps::doctor {
namespace {

using Json = nlohmann::ordered_json;

constexpr std::array States{
    std::pair{State::Good, std::string_view("good")},
    std::pair{State::Mended, std::string_view("mended")},
    std::pair{State::Fault, std::string_view("fault")},
    std::pair{State::NotInstalled, std::string_view("not-installed")},
    std::pair{State::Unknown, std::string_view("unknown")},
};

}  // namespace

std::string_view NameOf(State state) {
  return std::ranges::find(States, state, &std::pair<State, std::string_view>::first)->second;
}

std::string AnswerOf(std::string_view id, const Finding& finding) {
  const Json json{{"id", id}, {"state", NameOf(finding.Is)}, {"message", finding.Message}, {"remedy", finding.Remedy}};
  return json.dump(-1, ' ', false, Json::error_handler_t::replace);
}

std::optional<Finding> FindingIn(const std::string& line, std::string_view id) {
  const Json json = Json::parse(line, nullptr, false);
  const auto text = [&](const char* name) {
    const auto found = json.find(name);
    return found != json.end() && found->is_string() ? found->get<std::string>() : "";
  };
  if (!json.is_object() || text("id") != id) return {};
  const auto state = std::ranges::find(States, text("state"), &std::pair<State, std::string_view>::second);
  if (state == States.end()) return {};
  return Finding{state->first, text("message"), text("remedy")};
}

}  // namespace formwizard::apps::doctor
