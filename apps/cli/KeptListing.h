// What has become of kept forms, for people and for programs.
#pragma once

#include "kept/State.h"
#include "system/CodePage.h"

#include <nlohmann/json.hpp>

#include <string>
#include <vector>

namespace formwizard::apps::cli {

// Names in forms are bytes of `codePage`.
std::string Readable(const std::string& bytes, const system::CodePage& codePage);

// What the class of a form has become, a reason each; the members that say so.
std::vector<std::string> ReasonsIn(const kept::ClassChanges& changes);
void AddTo(nlohmann::ordered_json& json, const kept::ClassChanges& changes);

// "frmPerson: edited, outdated" and a line for each reason; empty lines there are none.
std::string LinesOf(const std::string& form, const kept::State& state, const system::CodePage& codePage);
// The members that say so.
nlohmann::ordered_json JsonOf(const std::string& form, const kept::State& state, const system::CodePage& codePage);

}  // namespace formwizard::apps::cli
