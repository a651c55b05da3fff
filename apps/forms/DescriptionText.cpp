#include "apps/forms/DescriptionText.h"

#include "runtime/Conversions.h"
#include "settings/Settings.h"
#include "system/ContentSum.h"

#include <nlohmann/json.hpp>

#include <array>
#include <cstdio>
#include <string_view>
#include <vector>

namespace formwizard::apps::forms {
namespace {

using Json = nlohmann::ordered_json;

std::string Dumped(const Json& value) { return value.dump(-1, ' ', false, Json::error_handler_t::replace); }

// A line a member of an object or array, further in than what surrounds it.
std::string Lines(const std::vector<std::string>& members, const std::string& indent) {
  std::string text;
  for (const std::string& member : members) text.append(text.empty() ? "\n" : ",\n").append(indent).append(member);
  return text + " ";
}

// The members of an object in one line.
class Members {
 public:
  void Add(std::string_view name, const Json& value) {
    text_ += (text_.empty() ? " " : ", ") + Dumped(name) + ": " + Dumped(value);
  }
  std::string Text() const { return "{" + text_ + " }"; }

 private:
  std::string text_;
};

std::string TextOf(const FieldChoice& field) {
  Members members;
  members.Add("property", field.Property.Value);
  if (field.Caption) members.Add("caption", *field.Caption);
  if (field.ReadOnly) members.Add("readOnly", field.ReadOnly->Value);
  if (field.UpdateAfter) members.Add("updateAfter", field.UpdateAfter->Value);
  if (field.Rows) members.Add("rows", field.Rows->Value);
  if (field.Combo) {
    members.Add("combo", {{"query", field.Combo->Query.Value}, {"column", field.Combo->Column.Value}});
  }
  return members.Text();
}

std::vector<std::string> FieldsOf(const FormDescription& form) {
  std::vector<std::string> fields;
  fields.reserve(form.Fields.size());
  for (const FieldChoice& field : form.Fields) fields.push_back(TextOf(field));
  return fields;
}

// A number or a Boolean, as one writes it by hand.
std::vector<std::string> SettingsOf(const FormDescription& form) {
  std::vector<std::string> settings;
  for (const auto& [name, value] : form.Settings) {
    const settings::SettingKey* const key = settings::KeyNamed(name);
    const bool isBoolean = key && std::holds_alternative<bool settings::Settings::*>(key->Member);
    const std::string text = isBoolean ? (settings::BooleanOf(value) ? "true" : "false") : value;
    settings.push_back(Dumped(name) + ": " + text);
  }
  return settings;
}

std::string TextOf(const kept::Property& property) {
  Members members;
  members.Add("kind", property.Kind);
  members.Add("type", property.Type);
  if (property.IsRequired) members.Add("required", true);
  if (property.IsReadOnly) members.Add("readOnly", true);
  if (!property.Width.empty()) members.Add("width", property.Width);
  members.Add("caption", property.Caption);
  return Dumped(property.Path) + ": " + members.Text();
}

std::string TextOf(const MadeForm& made) {
  std::vector<std::string> members;
  const auto add = [&](std::string_view name, const Json& value) {
    members.push_back(Dumped(name) + ": " + Dumped(value));
  };
  add("program", made.Program);
  add("form", made.Form);
  if (!made.Pictures.empty()) add("pictures", made.Pictures);
  add("fields", made.Fields);
  add("settings", made.Settings);
  if (made.IsReused) add("reused", true);
  std::vector<std::string> properties;
  for (const kept::Property& property : made.Class) properties.push_back(TextOf(property));
  members.push_back("\"class\": {" + Lines(properties, "      ") + "}");
  return "{" + Lines(members, "    ") + "}";
}

}  // namespace

std::string TextOf(const FormDescription& form) {
  std::string text = "{ \"class\": " + Dumped(form.Class.Value);
  const auto add = [&](std::string_view name, const std::string& value) {
    text += ",\n  " + Dumped(name) + ": " + value;
  };
  if (form.System) add("system", Dumped(form.System->Value));
  if (form.Language) add("language", Dumped(form.Language->Value));
  if (form.CodePage) add("codePage", std::to_string(form.CodePage->Value));
  if (!form.Settings.empty()) add("settings", "{" + Lines(SettingsOf(form), "    ") + "}");
  add("fields", "[" + Lines(FieldsOf(form), "    ") + "]");
  if (form.Made) add("made", TextOf(*form.Made));
  return text + " }\n";
}

std::string SumOfFields(const FormDescription& form) {
  return SumOf(form.Class.Value + "\n" + (form.System ? form.System->Value : "") + Lines(FieldsOf(form), ""));
}

std::string SumOfSettings(const FormDescription& form) {
  return SumOf((form.Language ? form.Language->Value : "") + "\n" +
               std::to_string(form.CodePage ? form.CodePage->Value : 0) + Lines(SettingsOf(form), ""));
}

std::string SumOf(const std::string& bytes) {
  std::string text;
  text.reserve(bytes.size());
  std::size_t from = 0;
  for (std::size_t at = bytes.find("\r\n"); at != std::string::npos; at = bytes.find("\r\n", at + 2)) {
    text.append(bytes, from, at - from);
    from = at + 1;
  }
  text.append(bytes, from);
  std::array<char, 17> hex;  // NOLINT(cppcoreguidelines-pro-type-member-init): filled by the next line
  std::snprintf(hex.data(), hex.size(), "%016llx", static_cast<unsigned long long>(system::ContentSum(text)));
  return hex.data();
}

}  // namespace formwizard::apps::forms
