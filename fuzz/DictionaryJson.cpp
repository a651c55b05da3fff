// Feeds bytes to the reader of dictionaries in JSON: it lets nothing through that could become code, and what it let
// through is kept, written out and read again as the same dictionary.
#include "adapters/dictionary/Reader.h"
#include "apps/common/Dictionaries.h"
#include "fuzz/Property.h"
#include "fuzz/TemporaryInput.h"
#include "wizard/factory/Dictionary.h"

#include <array>
#include <cstdint>
#include <map>
#include <sstream>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

using namespace formwizard;
using namespace formwizard::fuzz;
namespace factory = wizard::factory;

namespace {

using Value = std::variant<std::int32_t, std::string>;

struct Row {
  std::int64_t Id, Owner, Position;
  std::vector<Value> Values;

  const std::string& Text(std::size_t column) const { return std::get<std::string>(Values.at(column)); }
};

// The rows that the reader adds.
class MemoryDictionary : public factory::DictionaryStore {
 public:
  void Add(factory::Table table, const factory::Row& row) override {
    Row& kept = Tables.at(static_cast<std::size_t>(table)).emplace_back(Row{row.Id, row.Owner, row.Position, {}});
    for (const factory::Value& value : row.Values) {
      kept.Values.push_back(std::visit([](const auto& it) { return Value(Kept(it)); }, value));
    }
  }

  // By where they stand. The order of the classes is the store's own.
  std::map<std::string, std::vector<Value>> Rows() const {
    constexpr std::array<std::size_t, factory::TableCount> owners{0, 0, 1, 1, 3, 3};
    std::array<std::map<std::int64_t, std::string>, factory::TableCount> places;
    std::map<std::string, std::vector<Value>> rows;
    for (std::size_t table = 0; table < factory::TableCount; ++table) {
      for (const Row& row : Tables.at(table)) {
        const bool isClass = static_cast<factory::Table>(table) == factory::Table::Classes;
        const std::string place = places.at(owners.at(table))[row.Owner] + "/" + std::to_string(table) + ":" +
                                  (isClass ? row.Text(0) : std::to_string(row.Position));
        if (row.Id != 0) places.at(table)[row.Id] = place;
        Require(rows.emplace(place, row.Values).second, "each row has a place of its own");
      }
    }
    return rows;
  }

  std::array<std::vector<Row>, factory::TableCount> Tables;

 private:
  static std::int32_t Kept(std::int32_t number) { return number; }
  static std::string Kept(std::string_view text) { return std::string(text); }
};

MemoryDictionary Read(const std::string& json) {
  MemoryDictionary dictionary;
  std::istringstream in(json);
  adapters::dictionary::ReadDictionary(in, "fuzz.json", dictionary);
  return dictionary;
}

// Said here once more, in other words than the reader's own rules.
void CheckValue(const factory::Column& column, const Value& value) {
  if (const auto* number = std::get_if<std::int32_t>(&value)) {
    Require(*number >= 0 && *number <= column.Most, "a number is within its bounds");
    return;
  }
  const auto& text = std::get<std::string>(value);
  const bool isInCode = column.Kind == factory::ColumnKind::Name || column.Kind == factory::ColumnKind::Type;
  Require(!HasControlCharacter(text), "a text has no control character");
  Require(!isInCode || text.find_first_of(" !\"#$&'()*+,-/:;<=>?@[\\]^`{|}~") == std::string::npos,
          "a name is nothing but a name");
  Require(!column.IsRequired() || !text.empty(), "a required text is there");
  Require(column.Kind != factory::ColumnKind::SystemText || text.find_first_of(",;") == std::string::npos,
          "a system stays one entry of the list of systems");
}

// The code for these asks for an element under the caption, as it is.
void CheckCaption(const Row& property) {
  const std::string& caption = property.Text(1);
  const std::string& collection = property.Text(5);
  Require((collection != "list" && collection != "array") || caption.find('"') == std::string::npos,
          "a caption stays between its quotes");
}

void CheckValues(const MemoryDictionary& dictionary) {
  for (std::size_t table = 0; table < factory::TableCount; ++table) {
    const auto columns = factory::ColumnsOf(static_cast<factory::Table>(table));
    for (const Row& row : dictionary.Tables.at(table)) {
      Require(row.Values.size() == columns.size(), "a row has all its values");
      for (std::size_t i = 0; i < columns.size(); ++i) CheckValue(columns[i], row.Values[i]);
      if (static_cast<factory::Table>(table) == factory::Table::Properties) CheckCaption(row);
    }
  }
}

// A class of one of these names hides the queries of the server by which all are asked.
bool HidesQueries(const MemoryDictionary& dictionary) {
  for (const Row& row : dictionary.Tables.at(static_cast<std::size_t>(factory::Table::Classes))) {
    const std::string& name = row.Text(0);
    if (name == "%ClassDefinition" || name == "%CompiledProperty" || name == "%CompiledQuery") return true;
  }
  return false;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string json = TextOf(data, size);
  IsAccepted("fuzz.json:", [&] {
    const MemoryDictionary dictionary = Read(json);
    CheckValues(dictionary);
    if (HidesQueries(dictionary)) return;
    static const TemporaryInput file;
    bool isSame = false;
    const bool isKept = IsAccepted("", [&] {
      std::istringstream in(json);
      apps::common::ImportDictionary(in, "fuzz.json", file.Path(), true);
      std::ostringstream out;
      apps::common::ExportDictionary(file.Path(), out);
      isSame = Read(out.str()).Rows() == dictionary.Rows();
    });
    Require(isKept && isSame, "what is kept and written out is read as the same dictionary");
  });
  return 0;
}
