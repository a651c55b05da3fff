// Feeds bytes to the reader of form descriptions: what it takes keeps to the bounds that a user is told, and is read
// as the same when it is written anew.
#include "apps/forms/FormDescription.h"
#include "fuzz/Property.h"
#include "fuzz/TemporaryInput.h"
#include "settings/Settings.h"

#include <nlohmann/json.hpp>

using namespace formwizard;
using namespace formwizard::fuzz;
using namespace formwizard::apps::forms;
using Json = nlohmann::json;

namespace {

void CheckBounds(const FormDescription& form) {
  Require(!form.Class.Value.empty(), "a description names a class");
  for (const auto& [name, value] : form.Settings) {
    const settings::SettingKey* key = settings::KeyNamed(name);
    Require(key && settings::IsAllowed(*key, value), "a setting has a value that it may have");
  }
  for (const FieldChoice& field : form.Fields) {
    Require(!field.Property.Value.empty(), "a field names a property");
    Require(!field.Rows || (field.Rows->Value >= 1 && field.Rows->Value <= 32767), "rows are within their bounds");
    Require(!field.Combo || (!field.Combo->Query.Value.empty() && !field.Combo->Column.Value.empty()),
            "a combo is specified");
  }
}

Json JsonOf(const FieldChoice& field) {
  Json json{{"property", field.Property.Value}};
  if (field.Caption) json["caption"] = *field.Caption;
  if (field.ReadOnly) json["readOnly"] = field.ReadOnly->Value;
  if (field.UpdateAfter) json["updateAfter"] = field.UpdateAfter->Value;
  if (field.Rows) json["rows"] = field.Rows->Value;
  if (field.Combo) json["combo"] = {{"query", field.Combo->Query.Value}, {"column", field.Combo->Column.Value}};
  return json;
}

std::string OneText(const FormDescription& form) {
  Json json{{"class", form.Class.Value}, {"settings", Json(form.Settings)}, {"fields", Json::array()}};
  for (const FieldChoice& field : form.Fields) json["fields"].push_back(JsonOf(field));
  return json.dump();
}

std::string TextOf(const std::vector<FormDescription>& forms) {
  std::string text;
  for (const FormDescription& form : forms) {
    CheckBounds(form);
    text += (text.empty() ? "[" : ",") + OneText(form);
  }
  return text + "]";
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const TemporaryInput input;
  const std::string file = input.Write(data, size);
  IsAccepted(file + ":", [&] {
    const std::string text = TextOf(ReadFormDescriptions(file));
    const std::string again = input.Write(reinterpret_cast<const std::uint8_t*>(text.data()), text.size());
    bool isSame = false;
    const bool isRead = IsAccepted("", [&] { isSame = TextOf(ReadFormDescriptions(again)) == text; });
    Require(isRead && isSame, "a description that is written anew is read as the same");
  });
  return 0;
}
