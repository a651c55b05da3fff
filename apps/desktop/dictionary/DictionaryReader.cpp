#include "apps/desktop/dictionary/DictionaryReader.h"

#include "adapters/qt/Text.h"
#include "runtime/Conversions.h"

#include <QStringList>

#include <span>

namespace formwizard::apps::desktop {
namespace {

using adapters::qt::Text;
using adapters::qt::Utf8;
using namespace wizard::factory;

QString TextIn(ResultSet& rows, const ColumnKey& column) { return Text(runtime::ToText(rows.GetData(column))); }

bool IsTrue(ResultSet& rows, const ColumnKey& column) {
  return runtime::EqualsNumber(rows.GetData(column), runtime::Int32(1));
}

// "String, 50", "list" or "Address".
QString TypeOf(ResultSet& rows) {
  QString collection = TextIn(rows, PropertyColumn("Collection"));
  if (!collection.isEmpty()) return collection;
  const QString length = TextIn(rows, PropertyColumn("MaxLen"));
  QString type = TextIn(rows, PropertyColumn("Type")).section('.', -1);
  return length.isEmpty() || length == "0" ? type : type + ", " + length;
}

// All columns of a row, the truths by their words.
Facts FactsIn(ResultSet& rows, Table table) {
  Facts facts;
  const std::span<const Column> columns = ColumnsOf(table);
  for (std::size_t i = 0; i < columns.size(); ++i) {
    const bool isTruth = columns[i].Kind == ColumnKind::Number && columns[i].Most == 1;
    const QString value = TextIn(rows, {table, i});
    facts.emplace_back(Text(columns[i].Name), !isTruth ? value : value == "0" ? "False" : "True");
  }
  return facts;
}

}  // namespace

std::unique_ptr<ResultSet> DictionaryReader::Rows(const QString& connect, Table table, const QString& className) {
  classes_.reset();
  if (connected_ != connect || !factory_->IsConnected()) {
    if (factory_->IsConnected()) factory_->Disconnect();
    connected_.clear();
    factory_->Connect(Utf8(connect));
    connected_ = connect;
  }
  if (table == Table::Classes) {
    auto rows = factory_->ResultSet("%ClassDefinition", "ClassInfo");
    rows->Execute({});
    return rows;
  }
  const bool isQuery = table == Table::Queries;
  auto rows =
      factory_->ResultSet(isQuery ? "%CompiledQuery" : "%CompiledProperty", isQuery ? "QueryInfo" : "PropertyInfo");
  const std::string name = Utf8(className);
  rows->Execute({name});
  return rows;
}

std::vector<System> DictionaryReader::Systems() { return SystemsIn(factory_->SystemList()); }

void DictionaryReader::BeginClasses(const QString& connect) { classes_ = Rows(connect, Table::Classes, ""); }

std::optional<QString> DictionaryReader::NextClass() {
  while (classes_ && classes_->Next()) {
    if (IsTrue(*classes_, ClassColumn("Persistent")) && !IsTrue(*classes_, ClassColumn("System"))) {
      return TextIn(*classes_, ClassColumn("Name"));
    }
  }
  classes_.reset();
  return std::nullopt;
}

void DictionaryReader::ForEachMember(const QString& connect, const QString& className, const OnMember& onMember) {
  const auto properties = Rows(connect, Table::Properties, className);
  while (properties->Next()) {
    const bool isValue = IsTrue(*properties, PropertyColumn("Datatype"));
    onMember(isValue ? EntryKind::Property : EntryKind::Object, TextIn(*properties, PropertyColumn("Name")),
             TypeOf(*properties));
  }
  const auto queries = Rows(connect, Table::Queries, className);
  while (queries->Next()) onMember(EntryKind::Query, TextIn(*queries, QueryColumn("Name")), "");
}

Facts DictionaryReader::OfProperty(const QString& connect, const QString& className, const QString& name) {
  const auto rows = Rows(connect, Table::Properties, className);
  while (rows->Next()) {
    if (TextIn(*rows, PropertyColumn("Name")) == name) return FactsIn(*rows, Table::Properties);
  }
  return {};
}

Facts DictionaryReader::OfQuery(const QString& connect, const QString& className, const QString& name) {
  const auto rows = Rows(connect, Table::Queries, className);
  while (rows->Next()) {
    if (TextIn(*rows, QueryColumn("Name")) != name) continue;
    Facts facts = FactsIn(*rows, Table::Queries);
    const auto query = factory_->ResultSet(Utf8(className), Utf8(name));
    QStringList columns;
    for (runtime::Int16 i(1); i <= query->GetColumnCount(); i = i + runtime::Int16(1)) {
      columns << Text(query->GetColumnName(i));
    }
    facts.emplace_back("Columns", columns.join(", "));
    facts.emplace_back("Params", QString::number(query->GetParamCount().Value()));
    return facts;
  }
  return {};
}

Facts DictionaryReader::OfClass(const QString& connect, const QString& className) {
  qsizetype count = 0;
  QStringList required, objects, queries;
  const auto properties = Rows(connect, Table::Properties, className);
  for (; properties->Next(); ++count) {
    const QString name = TextIn(*properties, PropertyColumn("Name"));
    if (IsTrue(*properties, PropertyColumn("Required"))) required << name;
    if (!IsTrue(*properties, PropertyColumn("Datatype"))) objects << name;
  }
  const auto rows = Rows(connect, Table::Queries, className);
  while (rows->Next()) queries << TextIn(*rows, QueryColumn("Name"));
  return {{"Name", className},
          {"Properties", QString::number(count)},
          {"Required", required.join(", ")},
          {"Objects", objects.join(", ")},
          {"Queries", queries.join(", ")}};
}

}  // namespace formwizard::apps::desktop
