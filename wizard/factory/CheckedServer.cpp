#include "wizard/factory/CheckedServer.h"

#include "support/Failures.h"
#include "wizard/factory/Dictionary.h"
#include "wizard/factory/DictionaryText.h"

#include <array>
#include <utility>

namespace formwizard::wizard::factory {
namespace {

// A query on the dictionary and what each of its rows is.
struct CheckedQuery {
  std::string_view Class, Thing;
  Table Of;
};

constexpr std::array Queries{CheckedQuery{"%ClassDefinition", "class", Table::Classes},
                             CheckedQuery{"%CompiledProperty", "property", Table::Properties},
                             CheckedQuery{"%CompiledQuery", "query", Table::Queries}};

bool IsHarmless(ColumnKind kind, std::string_view text) {
  if (kind == ColumnKind::Name) return IsName(text);
  if (kind == ColumnKind::Type) return text.empty() || IsName(text);
  return kind != ColumnKind::Caption || IsLine(text);
}

class CheckedRows : public ResultSet {
 public:
  CheckedRows(std::unique_ptr<ResultSet> rows, const std::string& source, std::string_view className,
              std::string_view query)
      : rows_(std::move(rows)), source_(source), class_(className), query_(query) {
    for (const CheckedQuery& checked : Queries) {
      if (checked.Class == className) definition_ = &checked;
    }
  }

  using ResultSet::Execute;
  void Execute(std::span<const std::string_view> parameters) override {
    if (definition_ && !parameters.empty()) class_ = parameters[0];
    rows_->Execute(parameters);
  }
  bool Next() override {
    if (!rows_->Next()) return false;
    if (definition_) CheckRow();
    return true;
  }
  Variant GetDataByName(std::string_view column) override { return rows_->GetDataByName(column); }
  Variant GetData(const ColumnKey& column) override { return rows_->GetData(column); }
  Int16 GetColumnCount() override { return rows_->GetColumnCount(); }
  std::string GetColumnName(Int16 column) override {
    std::string name = rows_->GetColumnName(column);
    if (!definition_ && !IsName(name)) Refuse("a column of the query " + Shown(query_), name);
    return name;
  }
  Int16 GetParamCount() override { return rows_->GetParamCount(); }
  void Close() override { rows_->Close(); }

 private:
  void CheckRow() {
    const auto columns = ColumnsOf(definition_->Of);
    for (std::size_t i = 0; i < columns.size(); ++i) {
      const Column& column = columns[i];
      if (column.Kind == ColumnKind::Number || column.Kind == ColumnKind::Collection) continue;
      const Variant value = rows_->GetData({definition_->Of, i});
      const auto* text = std::get_if<std::string>(&value);
      if (text && !IsHarmless(column.Kind, *text)) {
        Refuse("the " + std::string(column.Name) + " of a " + std::string(definition_->Thing), *text);
      }
    }
    if (definition_->Of == Table::Properties) CheckCaption();
  }
  void CheckCaption() {
    const std::string caption = ToText(rows_->GetData(PropertyColumn("Caption")));
    if (StaysQuoted(caption, "list")) return;  // then it does whatever the property is
    if (!StaysQuoted(caption, ToText(rows_->GetData(PropertyColumn("Collection"))))) {
      Refuse("the Caption of a property", caption);
    }
  }
  [[noreturn]] void Refuse(const std::string& what, std::string_view text) const {
    const bool hasClass = !definition_ || definition_->Of != Table::Classes;
    throw support::InputError(source_ + ": " + (hasClass ? "class " + Shown(class_) + ": " : "") + what + " is " +
                              Shown(text) +
                              ", which would become code of its own; write the dictionary to JSON with \"dictionary "
                              "export\", correct it there and import it again");
  }

  std::unique_ptr<ResultSet> rows_;
  std::string source_, class_, query_;
  const CheckedQuery* definition_ = nullptr;  // of a query on the dictionary
};

class CheckedFactory : public ObjectFactory {
 public:
  CheckedFactory(std::unique_ptr<ObjectFactory> factory, std::string source)
      : factory_(std::move(factory)), source_(std::move(source)) {}

  void Connect(const std::string& connectString) override { factory_->Connect(connectString); }
  bool Disconnect() override { return factory_->Disconnect(); }
  std::string SystemList() override { return factory_->SystemList(); }
  bool IsConnected() override { return factory_->IsConnected(); }
  std::unique_ptr<factory::ResultSet> ResultSet(std::string_view className, std::string_view query) override {
    return std::make_unique<CheckedRows>(factory_->ResultSet(className, query), source_, className, query);
  }

 private:
  std::unique_ptr<ObjectFactory> factory_;
  std::string source_;
};

class CheckedServer : public FactoryCreator {
 public:
  CheckedServer(std::unique_ptr<FactoryCreator> server, std::string source)
      : server_(std::move(server)), source_(std::move(source)) {}

  std::unique_ptr<ObjectFactory> Create() override {
    return std::make_unique<CheckedFactory>(server_->Create(), source_);
  }

 private:
  std::unique_ptr<FactoryCreator> server_;
  std::string source_;
};

}  // namespace

std::unique_ptr<FactoryCreator> Checked(std::unique_ptr<FactoryCreator> server, const std::string& source) {
  return std::make_unique<CheckedServer>(std::move(server), source);
}

}  // namespace formwizard::wizard::factory
