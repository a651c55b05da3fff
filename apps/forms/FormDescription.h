// What one generated form shall show, as a form description file or the command line gives it.
#pragma once

#include "kept/ClassChanges.h"

#include <cstddef>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace formwizard::apps::forms {

// Where something is given, which begins messages about it: "person.json:3:14", "--fields Name". It is made a text when
// a message needs it.
struct Origin {
  std::shared_ptr<const std::string> Name;  // null for what the program itself has written
  std::size_t Line = 0, Column = 0;         // counted from 1; 0 for what has none

  std::string Text() const;
};

// A value and where it is given.
template <typename T>
struct Given {
  T Value{};
  Origin Where;
};
using GivenText = Given<std::string>;

struct ComboChoice {
  GivenText Query, Column;
};

// One property by its dotted path, and what is set for it on the wizard's Attributes step.
struct FieldChoice {
  GivenText Property;
  std::optional<std::string> Caption;
  std::optional<Given<bool>> ReadOnly;
  std::optional<GivenText> UpdateAfter;  // the path of another field of the form
  std::optional<Given<int>> Rows;
  std::optional<ComboChoice> Combo;
};

using SettingTexts = std::map<std::string, std::string>;

// How a form that is kept was made.
struct MadeForm {
  std::string Program;           // the version of it
  std::string Form, Pictures;    // sums of the kept form and of its .frx; Pictures: empty when it has none
  std::string Fields, Settings;  // sums of what was asked for: class, system and fields; settings, language, code page
  bool IsReused = false;         // what the wizard does not set and the code in front of its own were there before
  std::vector<kept::Property> Class;  // what the class offered
};

struct FormDescription {
  std::string
      Source;  // the file it comes from, with its place in an array, or "--class": begins messages about all of it
  GivenText Class;
  SettingTexts Settings;
  std::vector<FieldChoice> Fields;
  // What a run decides for all of its forms, where a description of a single form says it.
  std::optional<GivenText> System, Language;
  std::optional<Given<int>> CodePage;
  std::optional<MadeForm> Made;
};

// The description in a JSON file or a pipe, "-" for standard input, or those of an array, of at most 16 MiB and a depth
// of 16. support::InputError names the file, line and column, counted from 1, of what is wrong, the path of a wrong
// value, and what was expected.
std::vector<FormDescription> ReadFormDescriptions(const std::string& file);
// The same of a text; `name` is that of the file in messages.
std::vector<FormDescription> FormDescriptionsIn(const std::string& text, const std::string& name);

// Checks a setting's name and value as the wizard's own settings dialog would; support::InputError otherwise. `where`
// begins the message.
void CheckSetting(const std::string& where, const std::string& key, const std::string& value);

}  // namespace formwizard::apps::forms
