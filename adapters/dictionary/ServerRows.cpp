#include "adapters/dictionary/ServerRows.h"

#include "runtime/Conversions.h"
#include "support/Failures.h"

#include <utility>
#include <variant>

namespace formwizard::adapters::dictionary {

using namespace wizard::factory;
using runtime::Int16;

namespace {

constexpr const char* ClassesOf = "%ClassDefinition";

TextRow RowOf(Table table, ResultSet& rows) {
  const auto columns = ColumnsOf(table);
  TextRow row(columns.size());
  for (std::size_t i = 0; i < columns.size(); ++i) row[i] = ValueText(columns[i], rows.GetData({table, i}));
  return row;
}

}  // namespace

std::string ValueText(const Column& column, const Variant& value) {
  if (std::holds_alternative<runtime::Null>(value)) return "";
  if (column.Kind != ColumnKind::Number) return ToText(value);
  const std::string number = Text(runtime::RoundToInt32(runtime::NumericValue(value)));
  return column.Most > 1 || number == "0" ? number : "1";  // true is -1
}

std::unique_ptr<ObjectFactory> Connected(FactoryCreator& server, const System& system) {
  auto factory = server.Create();
  if (!system.Connect.empty()) factory->Connect(system.Connect);
  if (factory->IsConnected()) return factory;
  throw support::InputError("system \"" + system.Name + "\": the server refuses the connection");
}

void ClassRows::Fail(const std::string& reason) const {
  throw support::InputError(source_ + ": system \"" + system_ + "\"" + (class_.empty() ? "" : ", class " + class_[0]) +
                            ": " + reason);
}

template <typename Action>
auto ClassRows::Try(Action&& action) const {
  try {
    return action();
  } catch (const runtime::RuntimeError& error) {
    Fail(error.Description());
  }
}

ClassRows::ClassRows(FactoryCreator& server, const System& system, std::string source)
    : source_(std::move(source)), system_(system.Name) {
  Try([&] {
    server_ = Connected(server, system);
    classes_ = server_->ResultSet(ClassesOf, "ClassInfo");
    classes_->Execute({});
  });
}

std::size_t ClassRows::Count() {
  return Try([&] {
    const auto rows = server_->ResultSet(ClassesOf, "ClassInfo");
    rows->Execute({});
    std::size_t count = 0;
    while (rows->Next()) ++count;
    return count;
  });
}

// A damaged dictionary could tell of one class again and again.
bool ClassRows::Next() {
  return Try([&] {
    if (!classes_->Next()) return false;
    TextRow next = RowOf(Table::Classes, *classes_);
    if (!class_.empty() && next[0] <= class_[0]) Fail("the class " + next[0] + " comes out of order");
    class_ = std::move(next);
    return true;
  });
}

std::vector<TextRow> ClassRows::RowsOf(const char* ofClass, const char* query, Table table) {
  return Try([&] {
    const auto rows = server_->ResultSet(ofClass, query);
    rows->Execute({class_[0]});
    std::vector<TextRow> texts;
    while (rows->Next()) texts.push_back(RowOf(table, *rows));
    return texts;
  });
}

std::vector<TextRow> ClassRows::Properties() { return RowsOf("%CompiledProperty", "PropertyInfo", Table::Properties); }

std::vector<QueryRow> ClassRows::Queries() {
  std::vector<QueryRow> queries;
  for (TextRow& row : RowsOf("%CompiledQuery", "QueryInfo", Table::Queries)) {
    queries.push_back(WithNames(std::move(row)));
  }
  return queries;
}

QueryRow ClassRows::WithNames(TextRow values) {
  return Try([&] {
    const auto query = server_->ResultSet(class_[0], values[0]);
    auto* const named = dynamic_cast<NamedParameters*>(query.get());
    QueryRow row{std::move(values), {}, {}};
    for (Int16 i(1); i <= query->GetColumnCount(); i += Int16(1)) row.Columns.push_back(query->GetColumnName(i));
    for (Int16 i(1); i <= query->GetParamCount(); i += Int16(1)) {
      row.Params.push_back(named ? named->GetParamName(i) : "param" + Text(i));
    }
    return row;
  });
}

}  // namespace formwizard::adapters::dictionary
