#include "apps/forms/FormDescription.h"

#include "adapters/dictionary/JsonProblem.h"
#include "apps/common/TextInput.h"
#include "apps/forms/DescriptionMembers.h"
#include "apps/forms/UsualProperty.h"
#include "runtime/Conversions.h"
#include "settings/Settings.h"
#include "support/Failures.h"
#include "support/Names.h"
#include "system/Limits.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <cstdint>
#include <functional>
#include <limits>
#include <span>
#include <utility>

namespace formwizard::apps::forms {
namespace {

using Json = nlohmann::json;
using adapters::dictionary::JsonInput;
using adapters::dictionary::JsonIterator;
using support::InputError;

constexpr int DeepestDescription = 16;
constexpr const char* Meant = "a form description is an object with \"class\" and \"fields\", or an array of them";

bool IsSetting(std::string_view key, const std::string& value) {
  const settings::SettingKey* const found = settings::KeyNamed(key);
  return found && settings::IsAllowed(*found, value);
}

// The beginning of a wrong value, written closely.
class ShownValue {
 public:
  void Add(const Token& value) {
    Separate();
    if (HasRoom()) text_ += value.Is == Token::Kind::Text ? Quoted(value.Text) : value.Text;
    if (value.Is == Token::Kind::Object || value.Is == Token::Kind::Array) ++depth_;
  }
  void AddKey(std::string_view key) {
    Separate();
    if (HasRoom()) text_ += Quoted(key) + ":";
  }
  void End(char closing) {
    if (HasRoom()) text_ += closing;
    --depth_;
  }
  bool IsOpen() const { return depth_ > 0; }
  std::string Text() const { return HasRoom() ? text_ : text_.substr(0, Most - 3) + "..."; }

 private:
  static constexpr std::size_t Most = 60;  // bytes

  static std::string Quoted(std::string_view text) {
    return Json(text.substr(0, Most)).dump(-1, ' ', false, Json::error_handler_t::replace);
  }
  bool HasRoom() const { return text_.size() <= Most; }
  void Separate() {
    if (HasRoom() && !text_.empty() && !text_.ends_with('[') && !text_.ends_with('{') && !text_.ends_with(':'))
      text_ += ',';
  }

  std::string text_;
  int depth_ = 0;
};

// Makes form descriptions as their text is read. What is wrong with a value waits until all of the text was found to be
// JSON that is not nested too deeply.
class Reader : public nlohmann::json_sax<Json> {
 public:
  explicit Reader(const DescriptionInput& input) : in_(input) {}

  bool null() override { return Take(Token::Kind::Null, "null"); }
  bool boolean(bool value) override { return Take(Token::Kind::Boolean, value ? "true" : "false", value ? 1 : 0); }
  bool number_integer(number_integer_t value) override {
    return Take(Token::Kind::Integer, std::to_string(value), value);
  }
  bool number_unsigned(number_unsigned_t value) override {
    constexpr number_unsigned_t most = std::numeric_limits<std::int64_t>::max();
    return Take(Token::Kind::Integer, std::to_string(value), static_cast<std::int64_t>(std::min(value, most)));
  }
  bool number_float(number_float_t, const string_t& text) override { return Take(Token::Kind::Float, text); }
  bool string(string_t& text) override { return Take(Token::Kind::Text, text); }
  bool binary(binary_t&) override { return false; }  // JSON has none
  bool start_object(std::size_t) override { return ++depth_ <= DeepestDescription && Take(Token::Kind::Object, "{"); }
  bool start_array(std::size_t) override { return ++depth_ <= DeepestDescription && Take(Token::Kind::Array, "["); }
  bool end_array() override { return End(']'); }
  bool end_object() override { return End('}'); }

  bool key(string_t& key) override {
    if (HasFailed()) {
      if (shown_.IsOpen()) shown_.AddKey(key);
      return Go();
    }
    Frame& object = frames_.back();
    object.Key = std::move(key);
    if (HasAnyKeys(object)) return Go();
    object.Current = std::ranges::find(object.Members, object.Key, &Member::Name);
    if (object.Current == object.Members.end()) {
      const support::Names names(object.Members, std::mem_fn(&Member::Name));
      problem_ = in_.OfValue().Text() + PathTo(frames_.size() - 1) + ": unknown member \"" + object.Key +
                 "\"; known members: " + names.Listed(object.Key);
    }
    return Go();
  }

  bool parse_error(std::size_t, const std::string&, const nlohmann::detail::exception& error) override {
    if (dynamic_cast<const Json::out_of_range*>(&error)) {
      throw InputError(in_.OfValue().Text() + ": this number is out of range; write a smaller one");
    }
    adapters::dictionary::FailNoJson(in_.Text, *in_.Name, error, Meant);
  }

  // support::InputError for what is wrong in the text, which was read when `isWhole`.
  std::vector<FormDescription> Take(bool isWhole) {
    if (!isWhole) {
      throw InputError(in_.Here().Text() + ": nested more than " + std::to_string(DeepestDescription) + " deep; " +
                       Meant);
    }
    if (HasFailed()) throw InputError(problem_ + shown_.Text());
    if (forms_.empty()) throw InputError(*in_.Name + ": no form is described in this array; write one object a form");
    return std::move(forms_);
  }

 private:
  // An object or array that has begun.
  struct Frame {
    Part Is;
    std::span<const Member> Members;
    std::span<const Member>::iterator Current;  // the member whose value comes next or has begun
    std::string Key;                            // of that member
    std::size_t Count;                          // elements of an array before the current one
    unsigned Seen;                              // a bit a member
  };

  bool HasFailed() const { return !problem_.empty(); }

  // The next value begins behind what was read.
  bool Go() {
    in_.Text.EndValue();
    return true;
  }

  bool Take(Token::Kind kind, std::string_view text, std::int64_t integer = 0) {
    const Token value{kind, text, integer, in_};
    if (HasFailed()) {
      if (shown_.IsOpen()) shown_.Add(value);
      return Go();
    }
    const bool isFirst = frames_.empty();
    if (isFirst && kind == Token::Kind::Array) {
      Begin(Part::Forms);
      return Go();
    }
    switch (isFirst ? Part::Forms : frames_.back().Is) {
      case Part::Forms:
        TakeForm(value);
        break;
      case Part::Settings:
        TakeSetting(value);
        break;
      case Part::Fields:
        TakeField(value);
        break;
      case Part::Class:
        TakeProperty(value);
        break;
      default:
        TakeMember(value);
    }
    return Go();
  }

  void TakeForm(const Token& value) {
    if (value.Is != Token::Kind::Object) return Fail(frames_.empty() ? "an object or an array" : "an object", value);
    forms_.emplace_back().Source = frames_.empty() ? *in_.Name : value.From().Text();
    Begin(Part::Form);
  }

  void TakeMember(const Token& value) {
    Frame& object = frames_.back();
    const Member& member = *object.Current;
    const std::string expected = ExpectedInsteadOf(value, member.Value);
    if (!expected.empty()) return Fail(expected, value);
    object.Seen |= 1U << static_cast<unsigned>(object.Current - object.Members.begin());
    member.Set(forms_.back(), value);
    if (member.Opens) Begin(*member.Opens);
  }

  // The text that a profile file would hold.
  void TakeSetting(const Token& value) {
    const std::string& key = frames_.back().Key;
    if (value.Is != Token::Kind::Text && value.Is != Token::Kind::Boolean && value.Is != Token::Kind::Integer) {
      return Fail("a text, a whole number, true or false", value);
    }
    std::string& text = forms_.back().Settings[key];
    text = value.Is == Token::Kind::Boolean ? runtime::Text(value.Integer != 0) : std::string(value.Text);
    if (IsSetting(key, text)) return;
    try {
      CheckSetting(value.From().Text() + PathTo(frames_.size()), key, text);
    } catch (const InputError& error) {
      problem_ = error.what();
    }
  }

  // A name alone is a property.
  void TakeField(const Token& value) {
    const bool isText = value.Is == Token::Kind::Text;
    const std::string expected = isText                            ? ExpectedInsteadOf(value, Takes::Text)
                                 : value.Is == Token::Kind::Object ? ""
                                                                   : "a property's name or an object";
    if (!expected.empty()) return Fail(expected, value);
    std::vector<FieldChoice>& fields = forms_.back().Fields;
    fields.emplace_back();
    if (isText) {
      fields.back().Property = value.Given();
      ++frames_.back().Count;
    } else {
      Begin(Part::Field);
    }
  }

  void TakeProperty(const Token& value) {
    if (value.Is != Token::Kind::Object) return Fail("an object", value);
    forms_.back().Made->Class.push_back(UsualProperty(frames_.back().Key));
    Begin(Part::Property);
  }

  void Begin(Part part) {
    const std::span<const Member> members = MembersOf(part);
    frames_.push_back({part, members, members.begin(), {}, 0, 0});
  }

  bool End(char closing) {
    --depth_;
    if (HasFailed()) {
      if (shown_.IsOpen()) shown_.End(closing);
      return Go();
    }
    const Frame& ending = frames_.back();
    for (std::size_t i = 0; i < ending.Members.size() && !HasFailed(); ++i) {
      if (!ending.Members[i].IsRequired || (ending.Seen >> i & 1U) != 0) continue;
      problem_ = in_.Here().Text() + PathTo(frames_.size() - 1) + ": \"" + std::string(ending.Members[i].Name) +
                 "\" is missing";
    }
    frames_.pop_back();
    if (!frames_.empty() && IsArray(frames_.back())) ++frames_.back().Count;
    return Go();
  }

  static bool HasAnyKeys(const Frame& frame) { return frame.Is == Part::Settings || frame.Is == Part::Class; }
  static bool IsArray(const Frame& frame) { return frame.Is == Part::Forms || frame.Is == Part::Fields; }

  // ": fields[0].rows" or ": [1].fields[0].rows", down to the member or element that so many frames are at.
  std::string PathTo(std::size_t frameCount) const {
    std::string path;
    for (std::size_t i = 0; i < frameCount; ++i) {
      const Frame& frame = frames_[i];
      if (i == 0) path += ": ";
      path += IsArray(frame) ? "[" + std::to_string(frame.Count) + "]" : (i == 0 ? "" : ".") + frame.Key;
    }
    return path;
  }
  void Fail(const std::string& expected, const Token& value) {
    problem_ = value.From().Text() + PathTo(frames_.size()) + ": expected " + expected + ", found ";
    shown_.Add(value);
  }

  std::vector<FormDescription> forms_;
  const DescriptionInput& in_;
  std::vector<Frame> frames_;
  int depth_ = 0;
  std::string problem_;  // empty when there is none; `shown_` follows
  ShownValue shown_;
};

}  // namespace

std::string Origin::Text() const {
  if (!Name) return "the description";
  return Line == 0 ? *Name : *Name + ":" + std::to_string(Line) + ":" + std::to_string(Column);
}

std::vector<FormDescription> ReadFormDescriptions(const std::string& file) {
  const std::string text = common::ReadText(file, "form description", system::LargestDescription);
  return FormDescriptionsIn(text, common::NameOf(file));
}

std::vector<FormDescription> FormDescriptionsIn(const std::string& text, const std::string& name) {
  JsonInput json(text, name);
  const DescriptionInput input{json, std::make_shared<const std::string>(name)};
  Reader reader(input);
  const bool isWhole = Json::sax_parse(JsonIterator(json), JsonIterator(), &reader);
  return reader.Take(isWhole);
}

void CheckSetting(const std::string& where, const std::string& key, const std::string& value) {
  if (IsSetting(key, value)) return;
  const settings::SettingKey* found = settings::KeyNamed(key);
  if (!found) {
    const support::Names names(settings::SettingKeys(), std::mem_fn(&settings::SettingKey::Key));
    throw InputError(where + ": there is no setting \"" + key + "\"; " + names.Answer(key));
  }
  throw InputError(where + ": " + std::string(found->Key) + " must be " + settings::AllowedFor(*found) + ", found \"" +
                   value + "\"");
}

}  // namespace formwizard::apps::forms
