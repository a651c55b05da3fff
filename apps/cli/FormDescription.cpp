#include "apps/cli/FormDescription.h"

#include "apps/cli/TextInput.h"
#include "runtime/Conversions.h"
#include "settings/Settings.h"
#include "support/Failures.h"
#include "system/Limits.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <limits>

namespace formwizard::apps::cli {
namespace {

using Json = nlohmann::json;
using support::InputError;
using system::LargestDescription;

constexpr int DeepestDescription = 16;

// A value of the description and where it stands, for messages: "FILE: fields[0].rows".
class Value {
 public:
  Value(const Json& json, std::string place, bool isRoot = false)
      : json_(json), path_(std::move(place)), separator_(isRoot ? ": " : ".") {}

  [[noreturn]] void Fail(const std::string& expected) const {
    throw InputError(path_ + ": expected " + expected + ", found " + Shown());
  }

  const Json& Object(std::initializer_list<std::string_view> members) const {
    if (!json_.is_object()) Fail("an object");
    for (const auto& [key, value] : json_.items()) {
      if (std::ranges::find(members, key) == members.end()) FailUnknown(key, members);
    }
    return json_;
  }
  // Nothing when the object has no such member.
  std::optional<Value> Member(const std::string& name) const {
    const auto found = json_.find(name);
    if (found == json_.end()) return std::nullopt;
    return Value(*found, path_ + separator_ + name);
  }
  Value Required(const std::string& name) const {
    const std::optional<Value> member = Member(name);
    if (!member) throw InputError(path_ + ": \"" + name + "\" is missing");
    return *member;
  }

  std::string Text() const {
    std::string text = Line();
    if (text.empty()) Fail("a text that is not empty");
    return text;
  }
  // As one types it: a line break would begin a line of code of its own.
  std::string Line() const {
    if (!json_.is_string()) Fail("a text");
    std::string text = json_.get<std::string>();
    if (text.find_first_of(std::string_view("\r\n\0", 3)) != std::string::npos) Fail("a text without line breaks");
    return text;
  }
  bool Boolean() const {
    if (!json_.is_boolean()) Fail("true or false");
    return json_.get<bool>();
  }
  int Integer() const {
    constexpr int most = std::numeric_limits<std::int16_t>::max();
    if (!json_.is_number_integer() || json_.get<std::int64_t>() < 1 || json_.get<std::int64_t>() > most) {
      Fail("a whole number from 1 to " + std::to_string(most));
    }
    return json_.get<int>();
  }
  // The text that a profile file would hold.
  std::string SettingText() const {
    if (json_.is_string()) return json_.get<std::string>();
    if (json_.is_boolean()) return runtime::Text(json_.get<bool>());
    if (json_.is_number_integer()) return json_.dump();
    Fail("a text, a whole number, true or false");
  }
  template <typename Each>
  void Elements(Each&& each) const {
    if (!json_.is_array()) Fail("an array");
    for (std::size_t i = 0; i < json_.size(); ++i) each(Value(json_[i], path_ + "[" + std::to_string(i) + "]"));
  }
  bool IsText() const { return json_.is_string(); }
  const Json& Raw() const { return json_; }
  const std::string& Path() const { return path_; }

 private:
  [[noreturn]] void FailUnknown(const std::string& key, std::initializer_list<std::string_view> members) const {
    std::string known;
    for (const std::string_view member : members) {
      known += known.empty() ? "\"" : ", \"";
      known += member;
      known += '"';
    }
    throw InputError(path_ + ": unknown member \"" + key + "\"; known members: " + known);
  }

  std::string Shown() const {
    std::string shown = json_.dump(-1, ' ', false, Json::error_handler_t::replace);
    if (shown.size() > 60) shown = shown.substr(0, 57) + "...";
    return shown;
  }

  const Json& json_;
  std::string path_;
  const char* separator_;  // between this place and a member's name
};

FieldChoice ReadField(const Value& value) {
  FieldChoice field;
  if (value.IsText()) {
    field.Property = value.Text();
    return field;
  }
  if (!value.Raw().is_object()) value.Fail("a property's name or an object");
  value.Object({"property", "caption", "readOnly", "updateAfter", "rows", "combo"});
  field.Property = value.Required("property").Text();
  if (const auto member = value.Member("caption")) field.Caption = member->Line();
  if (const auto member = value.Member("readOnly")) field.ReadOnly = member->Boolean();
  if (const auto member = value.Member("updateAfter")) field.UpdateAfter = member->Text();
  if (const auto member = value.Member("rows")) field.Rows = member->Integer();
  if (const auto member = value.Member("combo")) {
    member->Object({"query", "column"});
    field.Combo = ComboChoice{member->Required("query").Text(), member->Required("column").Text()};
  }
  return field;
}

FormDescription ReadDescription(const Value& root, const std::string& file) {
  root.Object({"class", "settings", "fields", "$schema"});
  if (const auto schema = root.Member("$schema")) schema->Line();  // for editors
  FormDescription form;
  form.Source = file;
  form.Class = root.Required("class").Text();
  if (const auto settings = root.Member("settings")) {
    if (!settings->Raw().is_object()) settings->Fail("an object");
    for (const auto& [key, json] : settings->Raw().items()) {
      const Value value(json, settings->Path() + "." + key);
      form.Settings[key] = value.SettingText();
      CheckSetting(value.Path(), key, form.Settings[key]);
    }
  }
  root.Required("fields").Elements([&](const Value& field) { form.Fields.push_back(ReadField(field)); });
  return form;
}

// Finds where a text is no JSON, or is nested too deeply, before anything is made of it.
class Check : public nlohmann::json_sax<Json> {
 public:
  bool null() override { return true; }
  bool boolean(bool) override { return true; }
  bool number_integer(number_integer_t) override { return true; }
  bool number_unsigned(number_unsigned_t) override { return true; }
  bool number_float(number_float_t, const string_t&) override { return true; }
  bool string(string_t&) override { return true; }
  bool binary(binary_t&) override { return true; }
  bool key(string_t&) override { return true; }
  bool start_object(std::size_t) override { return ++depth_ <= DeepestDescription; }
  bool start_array(std::size_t) override { return ++depth_ <= DeepestDescription; }
  bool end_object() override { return --depth_, true; }
  bool end_array() override { return --depth_, true; }
  bool parse_error(std::size_t at, const std::string&, const nlohmann::detail::exception& error) override {
    At = at;
    IsOutOfRange = dynamic_cast<const Json::out_of_range*>(&error) != nullptr;
    return false;
  }

  std::size_t At = 0;  // the byte that ends what is wrong, counted from 1; 0 when nothing is
  bool IsOutOfRange = false;

 private:
  int depth_ = 0;
};

void CheckJson(const std::string& text, const std::string& file) {
  Check check;
  if (Json::sax_parse(text, &check)) return;
  if (check.At == 0) {
    throw InputError(file + ": nested more than " + std::to_string(DeepestDescription) +
                     " deep; a form description is an object with \"class\" and \"fields\"");
  }
  const std::string_view before = std::string_view(text).substr(0, check.At - 1);
  const auto line = 1 + std::ranges::count(before, '\n');
  const auto column = 1 + before.size() - (before.rfind('\n') + 1);
  const std::string place = file + ":" + std::to_string(line) + ":" + std::to_string(column);
  if (check.IsOutOfRange) throw InputError(place + ": this number is out of range; write a smaller one");
  throw InputError(place + ": this is not valid JSON; a form description is an object with \"class\" and \"fields\"");
}

}  // namespace

FormDescription ReadFormDescription(const std::string& file) {
  const std::string text = ReadText(file, "form description", LargestDescription);
  const std::string name = NameOf(file);
  CheckJson(text, name);
  const Json json = Json::parse(text);
  return ReadDescription(Value(json, name, true), name);
}

void CheckSetting(const std::string& where, const std::string& key, const std::string& value) {
  const settings::SettingKey* found = settings::KeyNamed(key);
  if (!found) {
    std::string known;
    for (const settings::SettingKey& each : settings::SettingKeys()) {
      known += (known.empty() ? "" : ", ") + std::string(each.Key);
    }
    throw InputError(where + ": there is no setting \"" + key + "\"; known settings: " + known);
  }
  if (settings::IsAllowed(*found, value)) return;
  throw InputError(where + ": " + std::string(found->Key) + " must be " + settings::AllowedFor(*found) + ", found \"" +
                   value + "\"");
}

}  // namespace formwizard::apps::cli
