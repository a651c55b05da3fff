#include "adapters/sqlite/Dictionary.h"
#include "adapters/sqlite/JsonFormat.h"
#include "adapters/sqlite/OpenDictionary.h"
#include "adapters/sqlite/Schema.h"
#include "support/Failures.h"
#include "system/Paths.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <array>
#include <filesystem>
#include <istream>
#include <limits>
#include <optional>
#include <unordered_set>
#include <vector>

namespace formwizard::adapters::sqlite {
namespace {

using support::InputError;

// Inserts rows as objects end; an object's id is given when it begins, since its members may come in any order.
class Rows {
 public:
  explicit Rows(Database& database)
      : systems_(database.Prepare("INSERT INTO systems VALUES (?1, ?2, ?3)")),
        classes_(database.Prepare("INSERT INTO classes VALUES (?1, ?2, ?3, ?4, ?5)")),
        properties_(database.Prepare("INSERT INTO properties VALUES (?1, ?2, ?3, ?4, ?5, ?6, ?7, ?8, ?9, ?10, ?11)")),
        queries_(database.Prepare("INSERT INTO queries VALUES (?1, ?2, ?3, ?4)")),
        columns_(database.Prepare("INSERT INTO query_columns VALUES (?1, ?2, ?3)")),
        params_(database.Prepare("INSERT INTO query_params VALUES (?1, ?2, ?3)")) {}

  Statement& For(Shape shape) {
    switch (shape) {
      case Shape::System:
        return systems_;
      case Shape::Class:
        return classes_;
      case Shape::Property:
        return properties_;
      default:
        return queries_;
    }
  }
  Statement& ForNames(std::string_view key) { return key == "columns" ? columns_ : params_; }

 private:
  Statement systems_, classes_, properties_, queries_, columns_, params_;
};

// Walks the document as it is read; holds no more than the path to the current value.
class Reader : public nlohmann::json_sax<nlohmann::json> {
 public:
  Reader(const std::string& source, Database& database) : source_(source), rows_(database) {}

  bool null() override { Fail("null"); }
  bool boolean(bool value) override { Fail(value ? "true" : "false"); }
  bool number_float(number_float_t, const string_t& text) override { Fail(text); }
  bool number_integer(number_integer_t value) override { return Number(value, std::to_string(value)); }
  bool number_unsigned(number_unsigned_t value) override {
    constexpr auto most = static_cast<number_unsigned_t>(std::numeric_limits<std::int64_t>::max());
    return Number(static_cast<std::int64_t>(std::min(value, most)), std::to_string(value));
  }
  bool string(string_t& value) override {
    Frame& frame = Top();
    if (frame.IsArray && frame.Kind == Shape::Names) {
      CheckName(value);
      CheckUnique(frame, value);
      Statement& row = rows_.ForNames(frame.ArrayKey);
      row.Reset();
      row.Bind(1, frame.Id);
      row.Bind(2, static_cast<std::int64_t>(frame.Count));
      row.Bind(3, value);
      row.Step();
      ++frame.Count;
      return true;
    }
    const Member& member = CurrentMember("\"" + value + "\"");
    if (member.Type == MemberType::Name) {
      if (member.Key == "connect") {
        CheckPlain(value);
      } else {
        CheckName(value);
      }
      if (value.empty()) Fail("an empty text");
      if (frame.Kind == Shape::System) CheckSystemText(value);
      if (member.Key == "connect") CheckUnique(frames_[frames_.size() - 2], "\n" + value);
    } else if (member.Type == MemberType::Collection) {
      CheckCollection(value);
    } else if (member.Type == MemberType::Text) {
      CheckPlain(value);
    } else {
      Fail("\"" + value + "\"");
    }
    frame.Values[frame.MemberIndex].Text = value;
    frame.Values[frame.MemberIndex].IsSet = true;
    return true;
  }
  bool binary(binary_t&) override { Fail("binary data"); }

  bool start_object(std::size_t) override {
    if (frames_.empty()) {
      Push(Shape::Root, 0);
      return true;
    }
    Frame& frame = Top();
    if (!frame.IsArray || frame.Kind == Shape::Names) Fail("an object");
    const Shape element = ElementOf(frame.Kind);
    const std::int64_t owner = frame.Id;
    Push(element, owner);
    return true;
  }
  bool key(string_t& key) override {
    Frame& frame = Top();
    const auto members = MembersOf(frame.Kind);
    const auto found = std::ranges::find(members, key, &Member::Key);
    if (found == members.end()) {
      std::string known;
      for (const Member& member : members) known += (known.empty() ? "\"" : ", \"") + std::string(member.Key) + "\"";
      throw InputError(Where() + ": unknown member \"" + key + "\"; known are " + known);
    }
    frame.MemberIndex = static_cast<std::size_t>(found - members.begin());
    if (frame.Values[frame.MemberIndex].IsSet) throw InputError(Where() + ": the member stands twice");
    return true;
  }
  bool end_object() override {
    Frame& frame = Top();
    CheckRequired(frame);
    if (frame.Kind != Shape::Root) Insert(frame);
    std::string name = frame.Kind == Shape::Root ? "" : frame.Values[0].Text;
    frames_.pop_back();
    if (frames_.empty()) return true;
    CheckUnique(Top(), name);
    ++Top().Count;
    return true;
  }
  bool start_array(std::size_t) override {
    if (frames_.empty()) Fail("an array");
    Frame& frame = Top();
    if (frame.IsArray) Fail("an array");
    const Member& member = CurrentMember("an array");
    if (member.Type != MemberType::Array) Fail("an array");
    frame.Values[frame.MemberIndex].IsSet = true;
    Frame array{member.ArrayShape, frame.Id};
    array.IsArray = true;
    array.ArrayKey = member.Key;
    frames_.push_back(std::move(array));
    return true;
  }
  bool end_array() override {
    frames_.pop_back();
    return true;
  }
  bool parse_error(std::size_t, const std::string&, const nlohmann::detail::exception& error) override {
    // The library's text says where: "... at line 3, column 7: ...".
    const std::string text = error.what();
    const std::size_t at = text.find("line ");
    const std::size_t colon = text.find(':', at);
    std::string place = at == std::string::npos ? "" : ":" + text.substr(at + 5, colon - at - 5);
    const std::size_t comma = place.find(", column ");
    if (comma != std::string::npos) place.replace(comma, 9, ":");
    const std::string found = colon == std::string::npos ? text : text.substr(colon + 2);
    throw InputError(source_ + place + ": this is no valid JSON: " + found);
  }

 private:
  struct Value {
    bool IsSet = false;
    std::int64_t Number = 0;
    std::string Text;
  };
  struct Frame {
    Shape Kind;
    std::int64_t Id = 0;     // of the object, or of the object that an array belongs to
    std::int64_t Owner = 0;  // id of the object that this one belongs to
    bool IsArray = false;
    std::string_view ArrayKey = {};
    std::size_t Count = 0;  // of an array: elements so far
    std::size_t MemberIndex = 0;
    std::array<Value, 9> Values = {};
    std::unordered_set<std::string> Names = {};  // of an array: of its elements
  };

  Frame& Top() { return frames_.back(); }

  void Push(Shape shape, std::int64_t owner) {
    Frame frame{shape, ++lastId_[static_cast<std::size_t>(shape)], owner};
    frames_.push_back(std::move(frame));
  }

  // "FILE: systems[0].classes[3].Name"
  std::string Where() const {
    std::string path;
    for (const Frame& frame : frames_) {
      if (frame.IsArray) {
        path += "[" + std::to_string(frame.Count) + "]";
      } else if (!MembersOf(frame.Kind).empty() && frame.MemberIndex < MembersOf(frame.Kind).size()) {
        path += (path.empty() ? "" : ".") + std::string(MembersOf(frame.Kind)[frame.MemberIndex].Key);
      }
    }
    return source_ + ": " + path;
  }
  std::string Expected() const {
    if (frames_.empty()) return "an object with \"systems\"";
    const Frame& frame = frames_.back();
    if (frame.IsArray) return frame.Kind == Shape::Names ? "a text" : "an object";
    switch (MembersOf(frame.Kind)[frame.MemberIndex].Type) {
      case MemberType::Name:
      case MemberType::Text:
        return "a text";
      case MemberType::Collection:
        return R"("", "list", "array", "binarystream" or "characterstream")";
      case MemberType::Flag:
        return "0 or 1";
      case MemberType::Count:
        return "a whole number from 0 to 32767";
      case MemberType::Array:
        return "an array";
    }
    return "another value";
  }
  [[noreturn]] void Fail(const std::string& found) const {
    throw InputError(Where() + ": expected " + Expected() + ", found " + found.substr(0, 60));
  }
  const Member& CurrentMember(const std::string& found) {
    if (frames_.empty() || Top().IsArray) Fail(found);
    return MembersOf(Top().Kind)[Top().MemberIndex];
  }

  bool Number(std::int64_t value, const std::string& shown) {
    const Member& member = CurrentMember(shown);
    const bool fits = (member.Type == MemberType::Flag && value >= 0 && value <= 1) ||
                      (member.Type == MemberType::Count && value >= 0 && value <= MostOf(member));
    if (!fits) Fail(shown);
    Top().Values[Top().MemberIndex].Number = value;
    Top().Values[Top().MemberIndex].IsSet = true;
    return true;
  }
  // A length may be larger than a column number.
  static std::int64_t MostOf(const Member& member) {
    return member.Key == "MaxLen" ? std::numeric_limits<std::int32_t>::max() : std::numeric_limits<std::int16_t>::max();
  }

  void CheckPlain(const std::string& text) const {
    const bool plain = std::ranges::none_of(text, [](char c) { return static_cast<unsigned char>(c) < ' '; });
    if (!plain) throw InputError(Where() + ": a line break or control character must not stand here");
  }
  void CheckName(const std::string& name) const {
    if (name.empty()) throw InputError(Where() + ": a name must not be empty");
    CheckPlain(name);
    if (name.find_first_of("/\\:*?\"<>|") != std::string::npos) {
      throw InputError(Where() + ": a name must hold none of / \\ : * ? \" < > |, found \"" + name + "\"");
    }
  }
  // The list of systems separates entries by ";" and their halves by ",".
  void CheckSystemText(const std::string& text) const {
    if (text.find_first_of(",;") != std::string::npos) {
      throw InputError(Where() + ": must hold neither \",\" nor \";\", found \"" + text + "\"");
    }
  }
  void CheckCollection(const std::string& text) const {
    for (const char* known : {"", "list", "array", "binarystream", "characterstream"}) {
      if (text == known) return;
    }
    Fail("\"" + text + "\"");
  }
  void CheckUnique(Frame& array, const std::string& name) {
    if (array.IsArray && !array.Names.insert(name).second) {
      throw InputError(Where() + ": \"" + name.substr(name.find_first_not_of('\n')) + "\" stands twice");
    }
  }
  void CheckRequired(const Frame& frame) {
    const auto members = MembersOf(frame.Kind);
    for (std::size_t i = 0; i < members.size(); ++i) {
      if (!members[i].IsRequired || frame.Values[i].IsSet) continue;
      Top().MemberIndex = i;
      throw InputError(Where() + ": this member is missing");
    }
  }

  void Insert(Frame& frame) {
    const auto members = MembersOf(frame.Kind);
    Statement& row = rows_.For(frame.Kind);
    row.Reset();
    int parameter = 0;
    if (frame.Kind == Shape::Property) {
      row.Bind(++parameter, frame.Owner);
      row.Bind(++parameter, static_cast<std::int64_t>(frames_[frames_.size() - 2].Count));
    } else {
      row.Bind(++parameter, frame.Id);
      if (frame.Kind != Shape::System) row.Bind(++parameter, frame.Owner);
    }
    for (std::size_t i = 0; i < members.size(); ++i) {
      const Member& member = members[i];
      const Value& value = frame.Values[i];
      if (member.Type == MemberType::Array) continue;
      if (member.Type == MemberType::Flag || member.Type == MemberType::Count) {
        row.Bind(++parameter, value.IsSet ? value.Number : member.DefaultNumber);
      } else if (value.IsSet) {
        row.Bind(++parameter, value.Text);
      } else {
        row.Bind(++parameter, member.Default == "=Name" ? std::string_view(frame.Values[0].Text) : member.Default);
      }
    }
    row.Step();
  }

  const std::string& source_;
  Rows rows_;
  std::vector<Frame> frames_;
  std::array<std::int64_t, 10> lastId_{};
};

// The new dictionary beside its final place; gone unless it was moved there.
class TemporaryFile {
 public:
  explicit TemporaryFile(std::string target) : target_(std::move(target)), Path(target_ + ".importing") { Remove(); }
  ~TemporaryFile() { Remove(); }
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;

  void MoveIntoPlace() {
    std::error_code error;
    std::filesystem::rename(system::NativePath(Path), system::NativePath(target_), error);
    if (error) throw support::SaveError(target_ + ": replacing the dictionary failed: " + error.message());
  }

 private:
  void Remove() const {
    std::error_code error;
    std::filesystem::remove(system::NativePath(Path), error);
  }

  std::string target_;

 public:
  std::string Path;
};

void Fill(Database& database, std::istream& in, const std::string& source) {
  // Nobody else sees the file, and it goes as a whole when the import fails: no journal, one flush at the end.
  database.Run("PRAGMA journal_mode = OFF; PRAGMA synchronous = FULL; PRAGMA application_id = " +
               std::to_string(ApplicationId) + "; PRAGMA user_version = " + std::to_string(SchemaVersion));
  database.Run(Schema);
  database.Run("BEGIN");
  {
    Reader reader(source, database);
    nlohmann::json::sax_parse(in, &reader);
  }
  database.Run(Indexes);
  database.Run("COMMIT");
}

}  // namespace

void ImportDictionary(std::istream& in, const std::string& source, const std::string& target) {
  std::error_code error;
  if (std::filesystem::exists(system::NativePath(target), error) && !IsDictionary(target)) {
    throw InputError(target + ": this file exists and is no class dictionary; choose another name");
  }
  TemporaryFile temporary(target);
  {
    Database database = Database::CreateForFilling(temporary.Path);
    try {
      Fill(database, in, source);
    } catch (const runtime::RuntimeError& failure) {
      throw support::SaveError(target + ": writing the dictionary failed: " + failure.Description());
    }
  }
  temporary.MoveIntoPlace();
}

}  // namespace formwizard::adapters::sqlite
