// What a class dictionary consists of: its tables and their columns, and the port through which a store is filled.
#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <limits>
#include <span>
#include <string_view>
#include <variant>

namespace formwizard::wizard::factory {

// What may stand in a column.
enum class ColumnKind : std::uint8_t {
  Name,        // becomes part of code: see IsName
  SystemText,  // stands in the list of systems, which separates by "," and ";"
  Label,       // one line, never empty
  Caption,     // one line; the name when it is left out
  Type,        // the name of a class, or empty
  Collection,  // one of CollectionKinds
  Number,      // from 0 to Most
};

struct Column {
  std::string_view Name;
  ColumnKind Kind;
  std::int32_t Most = 0;
  std::int32_t Default = 0;           // of a number
  std::string_view DefaultText = {};  // of a type or collection

  // Whoever leaves it out has left out the thing itself.
  constexpr bool IsRequired() const {
    return Kind == ColumnKind::Name || Kind == ColumnKind::SystemText || Kind == ColumnKind::Label;
  }
};

enum class Table : std::uint8_t { Systems, Classes, Properties, Queries, QueryColumns, QueryParams };
inline constexpr std::size_t TableCount = 6;

inline constexpr std::array<std::string_view, 5> CollectionKinds{"", "list", "array", "binarystream",
                                                                 "characterstream"};

inline constexpr std::int32_t Most16 = std::numeric_limits<std::int16_t>::max();
inline constexpr std::int32_t Most32 = std::numeric_limits<std::int32_t>::max();

inline constexpr std::array SystemColumns{Column{"name", ColumnKind::SystemText},
                                          Column{"connect", ColumnKind::SystemText}};
// Those of the classes, properties and queries are the columns of the server's own queries on them.
inline constexpr std::array ClassColumns{Column{"Name", ColumnKind::Name}, Column{"System", ColumnKind::Number, 1, 0},
                                         Column{"Persistent", ColumnKind::Number, 1, 1}};
inline constexpr std::array PropertyColumns{
    Column{"Name", ColumnKind::Name},
    Column{"Caption", ColumnKind::Caption},
    Column{"Type", ColumnKind::Type, 0, 0, "%Library.String"},
    Column{"Datatype", ColumnKind::Number, 1, 1},
    Column{"Serial", ColumnKind::Number, 1, 0},
    Column{"Collection", ColumnKind::Collection},
    Column{"Required", ColumnKind::Number, 1, 0},
    Column{"Editable", ColumnKind::Number, 1, 1},
    Column{"MaxLen", ColumnKind::Number, Most32, 0},
};
inline constexpr std::array QueryColumns{Column{"Name", ColumnKind::Name},
                                         Column{"ContainId", ColumnKind::Number, Most16, 1}};
inline constexpr std::array QueryColumnColumns{Column{"Name", ColumnKind::Name}};
inline constexpr std::array QueryParamColumns{Column{"Name", ColumnKind::Label}};  // only their number is ever asked

inline constexpr std::size_t MostColumns = PropertyColumns.size();

constexpr std::span<const Column> ColumnsOf(Table table) {
  constexpr std::array<std::span<const Column>, TableCount> columns{
      SystemColumns, ClassColumns, PropertyColumns, QueryColumns, QueryColumnColumns, QueryParamColumns};
  return columns.at(static_cast<std::size_t>(table));
}

// A column of a table by its number, which the compiler finds by a name that stands in the source, or refuses. Names
// are compared without regard to case and kept as they are spelled, because that is how a server is asked.
struct ColumnKey {
  Table Of;
  std::size_t Index;  // in ColumnsOf
  std::string_view Name;

  constexpr ColumnKey(Table table, std::size_t index) : Of(table), Index(index), Name(ColumnsOf(table)[index].Name) {}
  consteval ColumnKey(Table table, std::string_view name) : Of(table), Index(0), Name(name) {
    while (!IsSame(ColumnsOf(table)[Index].Name, name)) ++Index;  // past the end nothing compiles
  }

 private:
  static constexpr char Lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }
  static constexpr bool IsSame(std::string_view a, std::string_view b) {
    return std::ranges::equal(a, b, {}, Lower, Lower);
  }
};

// One that stands in the source, of a table that its type tells.
template <Table Of>
class KeyOf {
 public:
  template <std::size_t Size>
  consteval KeyOf(const char (&name)[Size]) : key_(Of, std::string_view(name, Size - 1)) {}
  constexpr operator const ColumnKey&() const { return key_; }

 private:
  ColumnKey key_;
};
using ClassColumn = KeyOf<Table::Classes>;
using PropertyColumn = KeyOf<Table::Properties>;
using QueryColumn = KeyOf<Table::Queries>;

using Value = std::variant<std::int32_t, std::string_view>;

// One row of a table, below its owner: a class below a system, properties and queries below a class, columns and
// parameters below a query.
struct Row {
  std::int64_t Id, Owner;         // counted from 1 within their tables; a system has the owner 0
  std::int64_t Position;          // counted from 0 within the owner
  std::span<const Value> Values;  // in the order of ColumnsOf, all of them
};

// Takes a dictionary row by row. The rows of an owner come by position; a row may come before its owner's.
class DictionaryStore {
 public:
  virtual ~DictionaryStore() = default;
  virtual void Add(Table table, const Row& row) = 0;
};

}  // namespace formwizard::wizard::factory
