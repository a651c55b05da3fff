// Feeds bytes to the reader of dictionaries in JSON: it lets nothing through that could become code, and what it let
// through is written out and read again as the same dictionary.
#include "adapters/dictionary/Reader.h"
#include "adapters/dictionary/Writer.h"
#include "fuzz/MemoryDictionary.h"
#include "fuzz/Property.h"

#include <sstream>

using namespace formwizard;
using namespace formwizard::fuzz;
using namespace formwizard::adapters::dictionary;

namespace {

MemoryDictionary Read(const std::string& json) {
  MemoryDictionary dictionary;
  std::istringstream in(json);
  ReadDictionary(in, "fuzz.json", dictionary);
  return dictionary;
}

// Said here once more, in other words than the reader's own rules.
void CheckValue(const factory::Column& column, const MemoryDictionary::Value& value) {
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
void CheckCaption(const MemoryDictionary::Row& property) {
  const std::string& caption = property.Text(1);
  const std::string& collection = property.Text(5);
  Require((collection != "list" && collection != "array") || caption.find('"') == std::string::npos,
          "a caption stays between its quotes");
}

void CheckValues(const MemoryDictionary& dictionary) {
  for (std::size_t table = 0; table < factory::TableCount; ++table) {
    const auto columns = factory::ColumnsOf(static_cast<factory::Table>(table));
    for (const auto& row : dictionary.Tables.at(table)) {
      Require(row.Values.size() == columns.size(), "a row has all its values");
      for (std::size_t i = 0; i < columns.size(); ++i) CheckValue(columns[i], row.Values[i]);
      if (static_cast<factory::Table>(table) == factory::Table::Properties) CheckCaption(row);
    }
  }
}

// A class of one of these names hides the queries of the server by which all are asked.
bool HidesQueries(const MemoryDictionary& dictionary) {
  for (const auto& row : dictionary.Tables.at(static_cast<std::size_t>(factory::Table::Classes))) {
    const std::string& name = row.Text(0);
    if (name == "%ClassDefinition" || name == "%CompiledProperty" || name == "%CompiledQuery") return true;
  }
  return false;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  IsAccepted("fuzz.json:", [&] {
    const MemoryDictionary dictionary = Read(TextOf(data, size));
    CheckValues(dictionary);
    if (HidesQueries(dictionary)) return;
    MemoryServer server(dictionary);
    std::ostringstream out;
    WriteDictionary(server, "", Classes::All, out);
    bool isSame = false;
    const bool isRead = IsAccepted("", [&] { isSame = Read(out.str()).Tables == dictionary.Tables; });
    Require(isRead && isSame, "what is written out is read as the same dictionary");
  });
  return 0;
}
