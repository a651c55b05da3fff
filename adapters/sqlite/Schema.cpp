#include "adapters/sqlite/Schema.h"

#include <array>

namespace formwizard::adapters::sqlite {
namespace {

using namespace wizard::factory;

// Rows stand in the order in which they came: by id, or by position below their owner.
struct Layout {
  std::string_view Name, Owner;
  bool HasId;
};

constexpr std::array<Layout, TableCount> Layouts{
    Layout{"systems", "", true},      Layout{"classes", "system", true},       Layout{"properties", "class", false},
    Layout{"queries", "class", true}, Layout{"query_columns", "query", false}, Layout{"query_params", "query", false}};

constexpr const Layout& LayoutOf(Table table) { return Layouts.at(static_cast<std::size_t>(table)); }

constexpr bool IsUpper(char c) { return c >= 'A' && c <= 'Z'; }

// "max_len" for MaxLen; what a class is said to be or not, "is_system".
std::string SqlName(Table table, const Column& column) {
  std::string name = table == Table::Classes && column.Kind == ColumnKind::Number ? "is_" : "";
  for (std::size_t i = 0; i < column.Name.size(); ++i) {
    const char c = column.Name[i];
    if (i > 0 && IsUpper(c)) name += '_';
    name += IsUpper(c) ? static_cast<char>(c - 'A' + 'a') : c;
  }
  return name;
}

std::string CreateTable(Table table) {
  const Layout& layout = LayoutOf(table);
  const std::string owner(layout.Owner);
  std::string sql = "CREATE TABLE " + std::string(layout.Name) + " (";
  if (layout.HasId) sql += "id INTEGER PRIMARY KEY";
  if (!owner.empty()) sql += (layout.HasId ? ", " : "") + owner + " INTEGER NOT NULL";
  if (!layout.HasId) sql += ", position INTEGER NOT NULL";
  for (const Column& column : ColumnsOf(table)) {
    sql += ", " + SqlName(table, column) + (column.Kind == ColumnKind::Number ? " INTEGER" : " TEXT") + " NOT NULL";
    if (owner.empty()) sql += " UNIQUE";
  }
  return sql + (layout.HasId ? ")" : ", PRIMARY KEY (" + owner + ", position)) WITHOUT ROWID");
}

}  // namespace

std::vector<std::string> CreateTables() {
  std::vector<std::string> all;
  for (std::size_t table = 0; table < TableCount; ++table) all.push_back(CreateTable(static_cast<Table>(table)));
  return all;
}

std::vector<std::string> CreateIndexes() {
  return {"CREATE UNIQUE INDEX classes_by_name ON classes (system, name, is_system, is_persistent)",
          "CREATE UNIQUE INDEX queries_by_class ON queries (class, id, name, contain_id)"};
}

bool HasId(Table table) { return LayoutOf(table).HasId; }

std::string InsertInto(Table table, std::size_t rows) {
  const Layout& layout = LayoutOf(table);
  const std::size_t keys = layout.HasId && layout.Owner.empty() ? 1 : 2;
  std::string row = "(?";
  for (std::size_t i = 1; i < keys + ColumnsOf(table).size(); ++i) row += ", ?";
  std::string sql = "INSERT INTO " + std::string(layout.Name) + " VALUES " + row + ")";
  for (std::size_t i = 1; i < rows; ++i) sql += ", " + row + ")";
  return sql;
}

std::string SelectFrom(Table table, std::string_view rest) {
  std::string sql = "SELECT ";
  for (const Column& column : ColumnsOf(table)) sql += (sql.size() > 7 ? ", " : "") + SqlName(table, column);
  return sql + " FROM " + std::string(LayoutOf(table).Name) + " " + std::string(rest);
}

std::string OneLine(std::string_view sql) {
  constexpr std::string_view space = " \t\r\n";
  std::string line;
  for (const char c : sql) {
    if (space.find(c) == std::string_view::npos) {
      line += c;
    } else if (!line.ends_with(' ')) {
      line += ' ';
    }
  }
  return line;
}

}  // namespace formwizard::adapters::sqlite
