#include "adapters/sqlite/Dictionary.h"
#include "adapters/sqlite/OpenDictionary.h"
#include "adapters/sqlite/Schema.h"
#include "runtime/Conversions.h"
#include "support/Messages.h"

#include <array>
#include <optional>
#include <utility>
#include <vector>

namespace formwizard::adapters::sqlite {
namespace {

namespace factory = wizard::factory;
using factory::Table;
using runtime::Int16;
using runtime::Int32;
using runtime::Variant;

// A query on the dictionary itself: the table that it shows, how many parameters it takes, and which rows it shows,
// where ?1 is the system and ?2 the parameter.
struct DictionaryQuery {
  std::string_view Class, Query;
  Table Of;
  std::size_t Parameters;
  std::string_view Rows;
};

constexpr std::array DictionaryQueries{
    // Ordered by name, so that the classes of a package stand together.
    DictionaryQuery{"%ClassDefinition", "ClassInfo", Table::Classes, 0, "WHERE system = ?1 ORDER BY name"},
    DictionaryQuery{"%CompiledProperty", "PropertyInfo", Table::Properties, 1,
                    "WHERE class = (SELECT id FROM classes WHERE system = ?1 AND name = ?2) ORDER BY position"},
    DictionaryQuery{"%CompiledQuery", "QueryInfo", Table::Queries, 1,
                    "WHERE class = (SELECT id FROM classes WHERE system = ?1 AND name = ?2) ORDER BY id"},
};

constexpr std::string_view NamesOfQuery = "WHERE query = ?1 ORDER BY position";

// The open file, with a store of prepared statements: a batch runs the same three again and again.
struct Store {
  explicit Store(Database database)
      : File(std::move(database)),
        ListSystems(File.Prepare("SELECT name, connect FROM systems ORDER BY id")),
        FindSystem(File.Prepare("SELECT id FROM systems WHERE connect = ?1")),
        FindQuery(File.Prepare("SELECT id FROM queries WHERE name = ?3 "
                               "AND class = (SELECT id FROM classes WHERE system = ?1 AND name = ?2)")),
        ListColumns(File.Prepare(SelectFrom(Table::QueryColumns, NamesOfQuery))),
        ListParams(File.Prepare(SelectFrom(Table::QueryParams, NamesOfQuery))) {}

  Statement Take(std::size_t query) {
    std::vector<Statement>& free = Free.at(query);
    if (free.empty()) {
      return File.Prepare(SelectFrom(DictionaryQueries.at(query).Of, DictionaryQueries.at(query).Rows));
    }
    Statement statement = std::move(free.back());
    free.pop_back();
    return statement;
  }

  Database File;
  Statement ListSystems, FindSystem, FindQuery, ListColumns, ListParams;
  std::array<std::vector<Statement>, DictionaryQueries.size()> Free;
};

[[noreturn]] void Fail(const std::string& description) { runtime::Raise(runtime::AutomationError, description); }

void CheckParameterCount(std::span<const std::string_view> parameters, std::size_t expected) {
  if (parameters.size() == expected) return;
  Fail("The query takes " + support::Counted(expected, "parameter") + ", not " + std::to_string(parameters.size()));
}

class DictionaryRows : public factory::ResultSet {
 public:
  DictionaryRows(std::shared_ptr<Store> store, std::size_t query, std::int64_t system)
      : store_(std::move(store)), query_(query), system_(system), statement_(store_->Take(query)) {}
  ~DictionaryRows() override { Release(); }

  void Execute(std::span<const std::string_view> parameters) override {
    CheckParameterCount(parameters, Definition().Parameters);
    Open().Reset();
    Open().Bind(1, system_);
    if (!parameters.empty()) Open().Bind(2, parameters[0]);
    state_ = State::Executed;
  }
  bool Next() override {
    if (state_ == State::New) Fail("The query has not been executed");
    if (state_ == State::Ended) return false;
    state_ = Open().Step() ? State::AtRow : State::Ended;
    return state_ == State::AtRow;
  }
  Variant GetDataByName(std::string_view column) override {
    CheckRow();
    return ValueAt(IndexOf(column));
  }
  Variant GetData(const factory::ColumnKey& column) override {
    CheckRow();
    return ValueAt(column.Of == Definition().Of ? column.Index : IndexOf(column.Name));
  }
  Int16 GetColumnCount() override { return Int16(Columns().size()); }
  std::string GetColumnName(Int16 column) override {
    if (column < Int16(1) || column > GetColumnCount()) runtime::Raise(runtime::SubscriptOutOfRange);
    return std::string(Columns()[static_cast<std::size_t>(column.Value()) - 1].Name);
  }
  Int16 GetParamCount() override { return Int16(Definition().Parameters); }
  void Close() override { Release(); }

 private:
  enum class State { New, Executed, AtRow, Ended };

  const DictionaryQuery& Definition() const { return DictionaryQueries.at(query_); }
  std::span<const factory::Column> Columns() const { return factory::ColumnsOf(Definition().Of); }
  void CheckRow() const {
    if (state_ != State::AtRow) Fail("There is no current row");
  }
  Variant ValueAt(std::size_t index) {
    const int place = static_cast<int>(index);
    if (Columns()[index].Kind == factory::ColumnKind::Number) return Int32(Open().Number(place));
    return std::string(Open().Text(place));
  }
  Statement& Open() {
    if (!statement_) Fail("The result set is closed");
    return *statement_;
  }
  std::size_t IndexOf(std::string_view column) const {
    for (std::size_t i = 0; i < Columns().size(); ++i) {
      const std::string_view name = Columns()[i].Name;
      if (name.size() == column.size() && runtime::EqualIgnoringCase(name, column)) return i;
    }
    Fail("The query has no column '" + std::string(column) + "'");
  }
  void Release() {
    if (!statement_) return;
    statement_->Reset();
    store_->Free.at(query_).push_back(std::move(*statement_));
    statement_.reset();
    state_ = State::Ended;
  }

  std::shared_ptr<Store> store_;
  std::size_t query_;
  std::int64_t system_;
  std::optional<Statement> statement_;
  State state_ = State::New;
};

// A query of one of the classes. A dictionary knows its columns and parameters and holds no objects.
class ClassQueryRows : public factory::ResultSet, public factory::NamedParameters {
 public:
  ClassQueryRows(std::vector<std::string> columns, std::vector<std::string> parameters)
      : columns_(std::move(columns)), parameters_(std::move(parameters)) {}

  void Execute(std::span<const std::string_view> parameters) override {
    CheckParameterCount(parameters, parameters_.size());
  }
  bool Next() override { return false; }
  Variant GetDataByName(std::string_view) override { Fail("There is no current row"); }
  Int16 GetColumnCount() override { return Int16(columns_.size()); }
  std::string GetColumnName(Int16 column) override { return At(columns_, column); }
  Int16 GetParamCount() override { return Int16(parameters_.size()); }
  std::string GetParamName(Int16 parameter) override { return At(parameters_, parameter); }
  void Close() override {}

 private:
  static std::string At(const std::vector<std::string>& names, Int16 number) {
    if (number < Int16(1) || number > Int16(names.size())) runtime::Raise(runtime::SubscriptOutOfRange);
    return names[static_cast<std::size_t>(number.Value()) - 1];
  }

  std::vector<std::string> columns_, parameters_;
};

class DictionaryFactory : public factory::ObjectFactory {
 public:
  explicit DictionaryFactory(std::shared_ptr<Store> store) : store_(std::move(store)) {}

  void Connect(const std::string& connectString) override {
    Statement& find = store_->FindSystem;
    find.Reset();
    find.Bind(1, connectString);
    if (!find.Step()) Fail("The dictionary has no system with the connect string '" + connectString + "'");
    system_ = find.Id(0);
  }
  bool Disconnect() override {
    system_.reset();
    return true;
  }
  std::string SystemList() override {
    std::string list;
    Statement& systems = store_->ListSystems;
    systems.Reset();
    while (systems.Step()) {
      if (!list.empty()) list += ';';
      list += systems.Text(0);
      list += ',';
      list += systems.Text(1);
    }
    return list;
  }
  bool IsConnected() override { return system_.has_value(); }

  std::unique_ptr<factory::ResultSet> ResultSet(std::string_view className, std::string_view query) override {
    if (!system_) Fail("Not connected to a system");
    for (std::size_t i = 0; i < DictionaryQueries.size(); ++i) {
      if (DictionaryQueries[i].Class == className && DictionaryQueries[i].Query == query) {
        return std::make_unique<DictionaryRows>(store_, i, *system_);
      }
    }
    return ClassQuery(className, query);
  }

 private:
  std::unique_ptr<factory::ResultSet> ClassQuery(std::string_view className, std::string_view query) {
    Statement& find = store_->FindQuery;
    find.Reset();
    find.Bind(1, *system_);
    find.Bind(2, className);
    find.Bind(3, query);
    if (!find.Step()) {
      Fail("The class '" + std::string(className) + "' has no query '" + std::string(query) + "'");
    }
    const std::int64_t id = find.Id(0);
    return std::make_unique<ClassQueryRows>(NamesOf(store_->ListColumns, id), NamesOf(store_->ListParams, id));
  }

  static std::vector<std::string> NamesOf(Statement& list, std::int64_t query) {
    std::vector<std::string> names;
    list.Reset();
    list.Bind(1, query);
    while (list.Step()) names.emplace_back(list.Text(0));
    return names;
  }

  std::shared_ptr<Store> store_;
  std::optional<std::int64_t> system_;
};

class DictionaryServer : public factory::FactoryCreator {
 public:
  explicit DictionaryServer(Database database) : store_(std::make_shared<Store>(std::move(database))) {}

  std::unique_ptr<factory::ObjectFactory> Create() override { return std::make_unique<DictionaryFactory>(store_); }

 private:
  std::shared_ptr<Store> store_;
};

}  // namespace

std::unique_ptr<factory::FactoryCreator> OpenDictionary(const std::string& path) {
  return std::make_unique<DictionaryServer>(OpenDictionaryFile(path));
}

std::unique_ptr<factory::FactoryCreator> TemporaryDictionary(
    const std::string& shown, const std::function<void(factory::DictionaryStore&)>& fill) {
  return std::make_unique<DictionaryServer>(FilledDatabase(shown, fill));
}

}  // namespace formwizard::adapters::sqlite
