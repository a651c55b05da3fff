// What one generated form shall show, as a form description file or the command line gives it.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace formwizard::apps::cli {

struct ComboChoice {
  std::string Query, Column;
};

// One property by its dotted path, and what is set for it on the wizard's Attributes step.
struct FieldChoice {
  std::string Property;
  std::optional<std::string> Caption;
  std::optional<bool> ReadOnly;
  std::optional<std::string> UpdateAfter;  // the path of another field of the form
  std::optional<int> Rows;
  std::optional<ComboChoice> Combo;
};

using SettingTexts = std::map<std::string, std::string>;

struct FormDescription {
  std::string Source;  // the file it comes from, or "--class": begins every message about it
  std::string Class;
  SettingTexts Settings;
  std::vector<FieldChoice> Fields;
};

// The description in a JSON file or a pipe, "-" for standard input, of at most 16 MiB and a depth of 16.
// support::InputError names the file, the line and column of a syntax error or the path of a wrong value, and what was
// expected.
FormDescription ReadFormDescription(const std::string& file);

// Checks a setting's name and value as the wizard's own settings dialog would; support::InputError otherwise. `where`
// begins the message.
void CheckSetting(const std::string& where, const std::string& key, const std::string& value);

}  // namespace formwizard::apps::cli
