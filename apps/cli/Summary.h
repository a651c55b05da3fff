// What a run has made, for people and for programs.
#pragma once

#include "adapters/vb6files/ProjectOnDisk.h"
#include "model/FormModel.h"
#include "settings/Settings.h"
#include "ui/TextMeasure.h"

#include <nlohmann/json_fwd.hpp>

#include <string>
#include <vector>

namespace formwizard::apps::cli {

struct FormResult {
  std::string Component;
  std::vector<std::string> Files;
  std::vector<std::string> Failures;
  std::vector<std::string> Notes;  // what the user is to look at though nothing failed
};

// What a form has become, and what becomes of a file that changed, as a line for people.
std::string LineOf(const FormResult& result, const model::FormModel& form);
std::string LineOf(const adapters::vb6files::FileChange& change, bool isWritten);

// One form for the JSON summary: its component and files, the fields in order with what the layout gave them, the
// layout values under their names, the failures and notes.
nlohmann::ordered_json Described(const FormResult& result, const model::FormModel& form,
                                 const settings::Settings& settings, const ui::TextMeasure& measure);

}  // namespace formwizard::apps::cli
