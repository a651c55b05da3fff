#include "adapters/dictionary/Reader.h"

#include "adapters/dictionary/JsonFormat.h"
#include "adapters/dictionary/JsonInput.h"
#include "adapters/dictionary/JsonProblem.h"
#include "adapters/dictionary/ValueRules.h"
#include "support/Failures.h"
#include "support/Names.h"
#include "wizard/factory/DictionaryText.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <array>
#include <functional>
#include <unordered_set>
#include <utility>

namespace formwizard::adapters::dictionary {
namespace {

using namespace wizard::factory;

constexpr std::size_t Deepest = 8;  // from the document to the columns of a query
constexpr std::size_t FewNames = 1'000;
constexpr int NumberOutOfRange = 406;  // of the library

// An object or array that has begun and not ended.
struct Frame {
  struct Value {
    bool IsSet;
    std::int32_t Number;
    std::string Text;
  };

  Shape Kind;
  std::span<const Member> Members;  // of an object
  bool IsArray;
  std::int64_t Id;              // of the object, or of the object that an array belongs to
  std::size_t Count;            // elements of an array so far
  const Member* CurrentMember;  // of an object, null before the first
  std::array<Value, MostColumns + 2> Values;
  std::unordered_set<std::string> Names, Connects;  // of the elements of an array

  void Begin(Shape kind, bool isArray, std::int64_t id) {
    Kind = kind;
    Members = MembersOf(kind);
    IsArray = isArray;
    Id = id;
    Count = 0;
    CurrentMember = nullptr;
    for (Value& value : std::span(Values).first(Members.size())) value.IsSet = false;
    // A large set is made anew: clearing takes as long as it once was large.
    if (Names.bucket_count() > FewNames) Names = {};
    Names.clear();
    Connects.clear();
  }
  Value& CurrentValue() { return Values.at(static_cast<std::size_t>(CurrentMember - Members.data())); }
};

// Walks the document as it is read; holds no more than the path to the current value.
class Reader : public nlohmann::json_sax<nlohmann::json> {
 public:
  Reader(JsonInput& input, const std::string& source, DictionaryStore& store)
      : input_(input), source_(source), store_(store) {}

  bool null() override { Unexpected("null"); }
  bool boolean(bool value) override { Unexpected(value ? "true" : "false"); }
  bool number_float(number_float_t, const string_t& text) override { Unexpected(text.substr(0, 40)); }
  bool number_integer(number_integer_t value) override { return Number(value); }
  bool number_unsigned(number_unsigned_t value) override { return Number(value); }
  bool binary(binary_t&) override { Unexpected("binary data"); }

  bool string(string_t& text) override {
    if (depth_ > 0 && Top().IsArray && !ElementOf(Top().Kind)) {
      AddText(text);
    } else {
      const Column* column = CurrentColumn();
      if (!column) Unexpected(Shown(text));
      Check(*column, text);
      if (column->Kind == ColumnKind::Name || column->Kind == ColumnKind::SystemText) CheckUnique(*column, text);
      Top().CurrentValue().Text.swap(text);
      Top().CurrentValue().IsSet = true;
    }
    input_.EndValue();
    return true;
  }

  bool start_object(std::size_t) override {
    if (depth_ == 0) {
      Push(Shape::Root, false, 0);
    } else {
      const auto element = Top().IsArray ? ElementOf(Top().Kind) : std::nullopt;
      if (!element) Unexpected("an object");
      CheckLength(LongestList);
      Push(*element, false, ++lastIds_.at(static_cast<std::size_t>(*element)));
    }
    input_.EndValue();
    return true;
  }
  bool key(string_t& key) override {
    Frame& frame = Top();
    const auto found = std::ranges::find(frame.Members, key, &Member::Key);
    if (found == frame.Members.end()) {
      const support::Names names(frame.Members, std::mem_fn(&Member::Key));
      frame.CurrentMember = nullptr;
      Fail("unknown member " + Shown(key) + "; known members: " + names.Listed(key));
    }
    frame.CurrentMember = &*found;
    if (frame.CurrentValue().IsSet) Fail("the member is given twice");
    input_.EndValue();
    return true;
  }
  bool end_object() override {
    Frame& object = Top();
    for (const Member& member : object.Members) {
      object.CurrentMember = &member;
      if (member.IsRequired && !object.CurrentValue().IsSet) Fail("this member is missing", input_.Here());
    }
    if (object.Kind == Shape::Property) CheckCaption();
    if (const auto table = TableOf(object.Kind)) AddRow(*table);
    Pop();
    return true;
  }
  bool start_array(std::size_t) override {
    if (depth_ == 0 || Top().IsArray || Top().CurrentMember->Of) Unexpected("an array");
    Top().CurrentValue().IsSet = true;
    Push(Top().CurrentMember->Array, true, Top().Id);
    input_.EndValue();
    return true;
  }
  bool end_array() override {
    Pop();
    return true;
  }
  bool parse_error(std::size_t, const std::string& token, const nlohmann::detail::exception& error) override {
    if (error.id == NumberOutOfRange) Unexpected(token.substr(0, 40));
    FailNoJson(input_, source_, error, "a dictionary is an object with \"systems\"");
  }

 private:
  Frame& Top() { return frames_.at(depth_ - 1); }

  void Push(Shape shape, bool isArray, std::int64_t id) { frames_.at(depth_++).Begin(shape, isArray, id); }
  void Pop() {
    --depth_;
    if (depth_ > 0 && Top().IsArray) ++Top().Count;
    input_.EndValue();
  }

  bool Number(auto value) {
    const Column* column = CurrentColumn();
    if (!column || column->Kind != ColumnKind::Number || std::cmp_less(value, 0) ||
        std::cmp_greater(value, column->Most)) {
      Unexpected(std::to_string(value));
    }
    Top().CurrentValue().Number = static_cast<std::int32_t>(value);
    Top().CurrentValue().IsSet = true;
    input_.EndValue();
    return true;
  }

  // Null where no text or number may stand.
  const Column* CurrentColumn() { return depth_ == 0 || Top().IsArray ? nullptr : Top().CurrentMember->Of; }
  void Check(const Column& column, std::string_view text) {
    const std::string problem = ProblemOf(column, text);
    if (!problem.empty()) Fail(problem);
  }
  void CheckCaption() {
    const auto textOf = [&](std::string_view key) -> std::string_view {
      Top().CurrentMember = &*std::ranges::find(Top().Members, key, &Member::Key);
      return Top().CurrentValue().IsSet ? Top().CurrentValue().Text : std::string_view();
    };
    const std::string_view collection = textOf("Collection"), caption = textOf("Caption");
    if (StaysQuoted(caption, collection)) return;
    Fail("a quotation mark is not allowed in the caption of a list or an array, found " + Shown(caption),
         input_.Here());
  }
  void CheckLength(std::size_t most) {
    if (Top().Count >= most) Fail("this list has at most " + std::to_string(most) + " elements");
  }
  void CheckUnique(const Column& column, const std::string& text) {
    Frame& list = frames_.at(depth_ - 2);
    const bool isFirst = &column == ColumnsOf(*TableOf(Top().Kind)).data();
    if (!(isFirst ? list.Names : list.Connects).insert(text).second) Fail(Shown(text) + " is given twice");
  }

  void AddText(const std::string& text) {
    Frame& list = Top();
    const Table table = *TableOf(list.Kind);
    Check(ColumnsOf(table).front(), text);
    CheckLength(static_cast<std::size_t>(Most16));  // a server counts them in 16 bits
    if (!list.Names.insert(text).second) Fail(Shown(text) + " is given twice");
    const Value value = text;
    store_.Add(table, {0, list.Id, static_cast<std::int64_t>(list.Count), {&value, 1}});
    ++list.Count;
  }

  // What is left out has its default.
  void AddRow(Table table) {
    Frame& frame = Top();
    const auto columns = ColumnsOf(table);
    std::array<Value, MostColumns> values;
    for (std::size_t i = 0; i < columns.size(); ++i) {
      const Column& column = columns[i];
      const Frame::Value& value = frame.Values.at(i);
      if (column.Kind == ColumnKind::Number) {
        values.at(i) = value.IsSet ? value.Number : column.Default;
      } else if (value.IsSet) {
        values.at(i) = value.Text;
      } else {
        values.at(i) = column.Kind == ColumnKind::Caption ? std::string_view(frame.Values[0].Text) : column.DefaultText;
      }
    }
    const Frame& list = frames_.at(depth_ - 2);
    store_.Add(table, {frame.Id, list.Id, static_cast<std::int64_t>(list.Count),
                       std::span<const Value>(values).first(columns.size())});
  }

  // "systems[0].classes[3].Name"
  std::string Path() const {
    std::string path;
    for (const Frame& frame : std::span(frames_).first(depth_)) {
      if (frame.IsArray) {
        path += "[" + std::to_string(frame.Count) + "]";
      } else if (frame.CurrentMember) {
        path += (path.empty() ? "" : ".") + std::string(frame.CurrentMember->Key);
      }
    }
    return path;
  }
  std::string At(Place place) const {
    return source_ + ":" + std::to_string(place.Line) + ":" + std::to_string(place.Column) + ": ";
  }
  [[noreturn]] void Fail(const std::string& problem, Place place) const {
    const std::string path = Path();
    throw support::InputError(At(place) + path + (path.empty() ? "" : ": ") + problem);
  }
  [[noreturn]] void Fail(const std::string& problem) { Fail(problem, input_.BeginOfValue()); }
  [[noreturn]] void Unexpected(const std::string& found) { Fail("expected " + Expected() + ", found " + found); }

  std::string Expected() {
    if (depth_ == 0) return "an object with \"systems\"";
    if (Top().IsArray) return ElementOf(Top().Kind) ? "an object" : "a text";
    return Top().CurrentMember->Of ? ExpectedIn(*Top().CurrentMember->Of) : "an array";
  }

  JsonInput& input_;
  const std::string& source_;
  DictionaryStore& store_;
  std::array<Frame, Deepest> frames_{};
  std::size_t depth_ = 0;
  std::array<std::int64_t, 16> lastIds_{};  // by shape
};

}  // namespace

void ReadDictionary(std::istream& in, const std::string& source, DictionaryStore& store) {
  JsonInput input(in, source);
  Reader reader(input, source, store);
  nlohmann::json::sax_parse(JsonIterator(input), JsonIterator(), &reader);
}

}  // namespace formwizard::adapters::dictionary
