#include "apps/forms/DescriptionText.h"

#include "apps/forms/UsualProperty.h"
#include "runtime/Conversions.h"
#include "settings/Settings.h"
#include "system/ContentSum.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <array>
#include <cstdio>
#include <memory>
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

// The members of an object: each begins as `next` says. Names need no escapes.
class Members {
 public:
  Members(std::string& to, std::string_view first, std::string_view next) : to_(to), begin_(first), next_(next) {}

  void Begin(std::string_view name) {
    to_.append(std::exchange(begin_, next_)).append(1, '"').append(name).append("\": ");
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

bool IsNameAlone(const FieldChoice& field) {
  return !field.Caption && !field.ReadOnly && !field.UpdateAfter && !field.Rows && !field.Combo;
}

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

// The shortest form that a field has.
void AppendChoice(std::string& to, const FieldChoice& field) {
  if (IsNameAlone(field)) {
    AppendQuoted(to, field.Property.Value);
  } else {
    AppendField(to, field);
  }
}

// Written without quotes it is read as the same text.
bool IsNumber(std::string_view text) {
  constexpr std::size_t most = 18;  // digits that any whole number may have
  const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
  return !text.empty() && text.size() <= most && text.front() != '0' && std::ranges::all_of(text, isDigit);
}

// What is otherwise than usual.
void AppendProperty(std::string& to, const kept::Property& property) {
  const kept::Property usual = UsualProperty(property.Path);
  AppendQuoted(to, property.Path);
  to += ": {";
  Members members = InOneLine(to);
  if (property.Kind != usual.Kind) members.Add("kind", property.Kind);
  if (property.Type != usual.Type) members.Add("type", property.Type);
  if (property.IsRequired) members.AddPlain("required", Word(true));
  if (property.IsReadOnly) members.AddPlain("readOnly", Word(true));
  if (IsNumber(property.Width)) {
    members.AddPlain("width", property.Width);
  } else if (!property.Width.empty()) {
    members.Add("width", property.Width);
  }
  if (property.Caption != usual.Caption) members.Add("caption", property.Caption);
  to += to.ends_with('{') ? "}" : " }";
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
  AppendLines(text, "    ", form.Fields, AppendChoice);
  text += ']';
  if (form.Made) {
    members.Begin("made");
    AppendMade(text, *form.Made);
  }
  return text + " }\n";
}

// Over the long form of each field, which does not depend on how it is written.
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

std::string SumOf(std::string_view bytes) {
  const auto text = std::make_unique_for_overwrite<char[]>(bytes.size());
  char* end = text.get();
  for (;;) {
    const std::size_t length = std::min(bytes.find('\r'), bytes.size());
    end = std::copy_n(bytes.data(), length, end);
    bytes.remove_prefix(length);
    if (bytes.empty()) break;
    if (!bytes.starts_with("\r\n")) *end++ = '\r';
    bytes.remove_prefix(1);
  }
  std::array<char, 17> hex;  // NOLINT(cppcoreguidelines-pro-type-member-init): filled by the next line
  std::snprintf(hex.data(), hex.size(), "%016llx",
                static_cast<unsigned long long>(system::ContentSum({text.get(), end})));
  return hex.data();
}

}  // namespace formwizard::apps::forms
