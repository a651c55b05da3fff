#include "apps/cli/KeptListing.h"

#include "support/Messages.h"
#include "system/Text.h"

#include <string_view>

namespace formwizard::apps::cli {
namespace {

using Json = nlohmann::ordered_json;
using vbtext::Difference;

class Lines {
 public:
  explicit Lines(const std::string& form) : text_(form + ":") {}

  void AddWord(std::string_view word) { text_ += (text_.ends_with(':') ? " " : ", ") + std::string(word); }
  void Add(const std::string& line) { text_ += "\n  " + line; }
  std::string Text() const {
    std::string shown;
    for (std::size_t from = 0; from <= text_.size();) {
      const std::size_t end = std::min(text_.find('\n', from), text_.size());
      shown += support::Escaped(text_.substr(from, end - from)) + '\n';
      from = end + 1;
    }
    return shown;
  }

 private:
  std::string text_;
};

std::string LineOf(const Difference& difference, const system::CodePage& codePage) {
  return std::string(difference.What) + (difference.Name.empty() ? "" : " " + Readable(difference.Name, codePage)) +
         " " + std::string(vbtext::Word(difference.Kind));
}

std::string Shown(const std::string& value) { return value.empty() ? "none" : value; }

Json AsJson(const Difference& difference, const system::CodePage& codePage) {
  Json json{{"change", vbtext::Word(difference.Kind)},
            {"what", difference.What},
            {"name", Readable(difference.Name, codePage)}};
  if (difference.B) json["line"] = difference.B->First + 1;
  return json;
}

Json AsJson(const kept::Property& property) {
  return {{"property", property.Path},       {"kind", property.Kind},   {"type", property.Type},
          {"required", property.IsRequired}, {"width", property.Width}, {"caption", property.Caption}};
}

Json ListOf(const auto& things, auto&& asJson) {
  Json list = Json::array();
  for (const auto& thing : things) list.push_back(asJson(thing));
  return list;
}

}  // namespace

std::string Readable(const std::string& bytes, const system::CodePage& codePage) {
  return system::IsUtf8(bytes) ? bytes : codePage.Decode(bytes);
}

std::vector<std::string> ReasonsIn(const kept::ClassChanges& changes) {
  std::vector<std::string> reasons;
  for (const kept::Property& property : changes.New) {
    reasons.push_back("the class has " + property.Path + " (" + property.Type + "), which is new");
  }
  for (const std::string& property : changes.Lost) {
    reasons.push_back("the class has no " + property + " any longer, which the form shows");
  }
  for (const kept::PropertyChange& change : changes.Changed) {
    reasons.push_back(change.Property + ": " + std::string(change.What) + " was " + Shown(change.Was) + ", is " +
                      Shown(change.Is));
  }
  return reasons;
}

void AddTo(Json& json, const kept::ClassChanges& changes) {
  json["new"] = ListOf(changes.New, [](const kept::Property& property) { return AsJson(property); });
  json["lost"] = changes.Lost;
  json["changed"] = ListOf(changes.Changed, [](const kept::PropertyChange& change) {
    return Json{{"property", change.Property}, {"what", change.What}, {"was", change.Was}, {"is", change.Is}};
  });
}

std::string LinesOf(const std::string& form, const kept::State& state, const system::CodePage& codePage) {
  Lines lines(form);
  for (const std::string_view word : state.Words()) lines.AddWord(word);
  for (const Difference& edit : state.Edits) lines.Add(LineOf(edit, codePage));
  if (!state.Reason.empty()) lines.Add(state.Reason);
  for (const std::string& reason : ReasonsIn(state.Class)) lines.Add(reason);
  if (state.AsksOtherwise) lines.Add("the description asks for other fields than the form was made with");
  if (state.IsOutdated() && state.Class.IsEmpty() && !state.AsksOtherwise) {
    for (const Difference& each : state.Output) lines.Add("comes out otherwise now: " + LineOf(each, codePage));
  }
  if (!state.Problem.empty()) lines.Add("it cannot be made any longer: " + state.Problem);
  return lines.Text();
}

nlohmann::ordered_json JsonOf(const std::string& form, const kept::State& state, const system::CodePage& codePage) {
  const auto difference = [&](const Difference& each) { return AsJson(each, codePage); };
  Json json{{"form", form}, {"state", state.Words()}, {"outdated", state.IsOutdated()}};
  json["edits"] = ListOf(state.Edits, difference);
  AddTo(json, state.Class);
  json["asksOtherwise"] = state.AsksOtherwise;
  json["output"] = ListOf(state.Output, difference);
  if (!state.Reason.empty()) json["reason"] = state.Reason;
  if (!state.Problem.empty()) json["problem"] = state.Problem;
  return json;
}

}  // namespace formwizard::apps::cli
