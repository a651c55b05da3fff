#include "apps/forms/DescriptionText.h"

#include "runtime/Conversions.h"
#include "settings/Settings.h"
#include "system/ContentSum.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <array>
#include <cstdio>
#include <string_view>
#include <utility>

namespace formwizard::apps::forms {
namespace {

// Most texts need no escapes.
void AppendQuoted(std::string& to, std::string_view text) {
  const auto isPlain = [](char c) { return c >= ' ' && c <= '~' && c != '"' && c != '\\'; };
  if (std::ranges::all_of(text, isPlain)) {
    to.append(1, '"').append(text).append(1, '"');
  } else {
    to += nlohmann::json(text).dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
  }
}

// The members of an object: each begins as `Next` says.
class Members {
 public:
  Members(std::string& to, std::string_view first, std::string_view next) : to_(to), begin_(first), next_(next) {}

  void Begin(std::string_view name) {
    to_ += std::exchange(begin_, next_);
    AppendQuoted(to_, name);
    to_ += ": ";
  }
  void Add(std::string_view name, std::string_view text) {
    Begin(name);
    AppendQuoted(to_, text);
  }
  // As it is written.
  void AddPlain(std::string_view name, std::string_view value) {
    Begin(name);
    to_ += value;
  }

 private:
  std::string& to_;
  std::string_view begin_, next_;
};

Members InOneLine(std::string& to) { return {to, " ", ", "}; }

// A line each, further in than what surrounds them.
void AppendLines(std::string& to, std::string_view indent, const auto& range, auto append) {
  std::string_view end = "\n";
  for (const auto& each : range) {
    to.append(std::exchange(end, ",\n")).append(indent);
    append(to, each);
  }
  to += ' ';
}

std::string_view Word(bool value) { return value ? "true" : "false"; }

void AppendField(std::string& to, const FieldChoice& field) {
  to += '{';
  Members members = InOneLine(to);
  members.Add("property", field.Property.Value);
  if (field.Caption) members.Add("caption", *field.Caption);
  if (field.ReadOnly) members.AddPlain("readOnly", Word(field.ReadOnly->Value));
  if (field.UpdateAfter) members.Add("updateAfter", field.UpdateAfter->Value);
  if (field.Rows) members.AddPlain("rows", std::to_string(field.Rows->Value));
  if (field.Combo) {
    members.AddPlain("combo", R"({"query":)");
    AppendQuoted(to, field.Combo->Query.Value);
    to += R"(,"column":)";
    AppendQuoted(to, field.Combo->Column.Value);
    to += '}';
  }
  to += " }";
}

// A number or a Boolean, as one writes it by hand.
void AppendSetting(std::string& to, const SettingTexts::value_type& setting) {
  const auto& [name, value] = setting;
  const settings::SettingKey* const key = settings::KeyNamed(name);
  const bool isBoolean = key && std::holds_alternative<bool settings::Settings::*>(key->Member);
  Members(to, "", "").AddPlain(name, isBoolean ? Word(settings::BooleanOf(value)) : value);
}

void AppendProperty(std::string& to, const kept::Property& property) {
  AppendQuoted(to, property.Path);
  to += ": {";
  Members members = InOneLine(to);
  members.Add("kind", property.Kind);
  members.Add("type", property.Type);
  if (property.IsRequired) members.AddPlain("required", Word(true));
  if (property.IsReadOnly) members.AddPlain("readOnly", Word(true));
  if (!property.Width.empty()) members.Add("width", property.Width);
  members.Add("caption", property.Caption);
  to += " }";
}

void AppendMade(std::string& to, const MadeForm& made) {
  to += '{';
  Members members(to, "\n    ", ",\n    ");
  members.Add("program", made.Program);
  members.Add("form", made.Form);
  if (!made.Pictures.empty()) members.Add("pictures", made.Pictures);
  members.Add("fields", made.Fields);
  members.Add("settings", made.Settings);
  if (made.IsReused) members.AddPlain("reused", Word(true));
  members.AddPlain("class", "{");
  AppendLines(to, "      ", made.Class, AppendProperty);
  to += "} }";
}

}  // namespace

std::string TextOf(const FormDescription& form) {
  std::string text = "{ ";
  Members members(text, "", ",\n  ");
  members.Add("class", form.Class.Value);
  if (form.System) members.Add("system", form.System->Value);
  if (form.Language) members.Add("language", form.Language->Value);
  if (form.CodePage) members.AddPlain("codePage", std::to_string(form.CodePage->Value));
  if (!form.Settings.empty()) {
    members.AddPlain("settings", "{");
    AppendLines(text, "    ", form.Settings, AppendSetting);
    text += '}';
  }
  members.AddPlain("fields", "[");
  AppendLines(text, "    ", form.Fields, AppendField);
  text += ']';
  if (form.Made) {
    members.Begin("made");
    AppendMade(text, *form.Made);
  }
  return text + " }\n";
}

std::string SumOfFields(const FormDescription& form) {
  std::string text = form.Class.Value + "\n" + (form.System ? form.System->Value : "");
  AppendLines(text, "", form.Fields, AppendField);
  return SumOf(text);
}

std::string SumOfSettings(const FormDescription& form) {
  std::string text =
      (form.Language ? form.Language->Value : "") + "\n" + std::to_string(form.CodePage ? form.CodePage->Value : 0);
  AppendLines(text, "", form.Settings, AppendSetting);
  return SumOf(text);
}

std::string SumOf(const std::string& bytes) {
  std::string text;
  text.reserve(bytes.size());
  std::size_t from = 0;
  for (std::size_t at = bytes.find('\r'); at != std::string::npos; at = bytes.find('\r', at + 1)) {
    if (at + 1 == bytes.size() || bytes[at + 1] != '\n') continue;
    text.append(bytes.data() + from, at - from);
    from = at + 1;
  }
  text.append(bytes, from);
  std::array<char, 17> hex;  // NOLINT(cppcoreguidelines-pro-type-member-init): filled by the next line
  std::snprintf(hex.data(), hex.size(), "%016llx", static_cast<unsigned long long>(system::ContentSum(text)));
  return hex.data();
}

}  // namespace formwizard::apps::forms
