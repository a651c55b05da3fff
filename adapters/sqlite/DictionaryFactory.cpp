#include "adapters/sqlite/Dictionary.h"
#include "adapters/sqlite/OpenDictionary.h"
#include "runtime/Conversions.h"

#include <array>
#include <optional>
#include <utility>
#include <vector>

namespace formwizard::adapters::sqlite {
namespace {

namespace factory = wizard::factory;
using runtime::Int16;
using runtime::Int32;
using runtime::Variant;

// A query on the dictionary itself: the columns it delivers and the statement behind it, whose first parameter is the
// system and whose second one is the class, when it takes one.
struct DictionaryQuery {
  std::string_view Class, Query;
  int Parameters;
  std::array<std::string_view, 9> Columns;
  std::string_view Sql;
};

constexpr std::array DictionaryQueries{
    // Ordered by name, so that the classes of a package stand together.
    DictionaryQuery{"%ClassDefinition",
                    "ClassInfo",
                    0,
                    {"Name", "System", "Persistent"},
                    "SELECT name, is_system, is_persistent FROM classes WHERE system = ?1 ORDER BY name"},
    DictionaryQuery{"%CompiledProperty",
                    "PropertyInfo",
                    1,
                    {"Name", "Caption", "Type", "Datatype", "Serial", "Collection", "Required", "Editable", "MaxLen"},
                    "SELECT name, caption, type, datatype, serial, collection, required, editable, max_len "
                    "FROM properties WHERE class = (SELECT id FROM classes WHERE system = ?1 AND name = ?2) "
                    "ORDER BY position"},
    DictionaryQuery{"%CompiledQuery",
                    "QueryInfo",
                    1,
                    {"Name", "ContainId"},
                    "SELECT name, contain_id FROM queries "
                    "WHERE class = (SELECT id FROM classes WHERE system = ?1 AND name = ?2) ORDER BY id"},
};

// The open file, with a store of prepared statements: a batch runs the same three again and again.
struct Store {
  explicit Store(Database database)
      : File(std::move(database)),
        ListSystems(File.Prepare("SELECT name, connect FROM systems ORDER BY id")),
        FindSystem(File.Prepare("SELECT id FROM systems WHERE connect = ?1")) {}

  Statement Take(std::size_t query) {
    std::vector<Statement>& free = Free[query];
    if (free.empty()) return File.Prepare(DictionaryQueries[query].Sql);
    Statement statement = std::move(free.back());
    free.pop_back();
    return statement;
  }

  Database File;
  Statement ListSystems, FindSystem;
  std::array<std::vector<Statement>, DictionaryQueries.size()> Free;
};

[[noreturn]] void Fail(const std::string& description) { runtime::Raise(runtime::AutomationError, description); }

void CheckParameterCount(std::span<const std::string_view> parameters, std::size_t expected) {
  if (parameters.size() == expected) return;
  Fail("The query takes " + std::to_string(expected) + " parameters, not " + std::to_string(parameters.size()));
}

class DictionaryRows : public factory::ResultSet {
 public:
  DictionaryRows(std::shared_ptr<Store> store, std::size_t query, std::int64_t system)
      : store_(std::move(store)), query_(query), system_(system), statement_(store_->Take(query)) {}
  ~DictionaryRows() override { Release(); }

  void Execute(std::span<const std::string_view> parameters) override {
    CheckParameterCount(parameters, static_cast<std::size_t>(Definition().Parameters));
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
    if (state_ != State::AtRow) Fail("There is no current row");
    const int index = IndexOf(column);
    if (Open().IsText(index)) return std::string(Open().Text(index));
    return Int32(Open().Number(index));
  }
  Int16 GetColumnCount() override {
    Int16 count;
    for (const std::string_view name : Definition().Columns) count += Int16(name.empty() ? 0 : 1);
    return count;
  }
  std::string GetColumnName(Int16 column) override {
    if (column < Int16(1) || column > GetColumnCount()) runtime::Raise(runtime::SubscriptOutOfRange);
    return std::string(Definition().Columns[static_cast<std::size_t>(column.Value()) - 1]);
  }
  Int16 GetParamCount() override { return Int16(Definition().Parameters); }
  void Close() override { Release(); }

 private:
  enum class State { New, Executed, AtRow, Ended };

  const DictionaryQuery& Definition() const { return DictionaryQueries[query_]; }
  Statement& Open() {
    if (!statement_) Fail("The result set is closed");
    return *statement_;
  }
  int IndexOf(std::string_view column) const {
    const auto& columns = Definition().Columns;
    for (std::size_t i = 0; i < columns.size(); ++i) {
      if (columns[i].size() == column.size() && runtime::EqualIgnoringCase(columns[i], column)) {
        return static_cast<int>(i);
      }
    }
    Fail("The query has no column '" + std::string(column) + "'");
  }
  void Release() {
    if (!statement_) return;
    statement_->Reset();
    store_->Free[query_].push_back(std::move(*statement_));
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
class ClassQueryRows : public factory::ResultSet {
 public:
  ClassQueryRows(std::vector<std::string> columns, std::size_t parameters)
      : columns_(std::move(columns)), parameters_(parameters) {}

  void Execute(std::span<const std::string_view> parameters) override { CheckParameterCount(parameters, parameters_); }
  bool Next() override { return false; }
  Variant GetDataByName(std::string_view) override { Fail("There is no current row"); }
  Int16 GetColumnCount() override { return Int16(columns_.size()); }
  std::string GetColumnName(Int16 column) override {
    if (column < Int16(1) || column > GetColumnCount()) runtime::Raise(runtime::SubscriptOutOfRange);
    return columns_[static_cast<std::size_t>(column.Value()) - 1];
  }
  Int16 GetParamCount() override { return Int16(parameters_); }
  void Close() override {}

 private:
  std::vector<std::string> columns_;
  std::size_t parameters_;
};

class DictionaryFactory : public factory::ObjectFactory {
 public:
  explicit DictionaryFactory(std::shared_ptr<Store> store) : store_(std::move(store)) {}

  void Connect(const std::string& connectString) override {
    Statement& find = store_->FindSystem;
    find.Reset();
    find.Bind(1, connectString);
    if (!find.Step()) Fail("The dictionary has no system with the connect string '" + connectString + "'");
    system_ = find.Number(0);
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
    Statement find = store_->File.Prepare(
        "SELECT id FROM queries WHERE name = ?3 "
        "AND class = (SELECT id FROM classes WHERE system = ?1 AND name = ?2)");
    find.Bind(1, *system_);
    find.Bind(2, className);
    find.Bind(3, query);
    if (!find.Step()) {
      Fail("The class '" + std::string(className) + "' has no query '" + std::string(query) + "'");
    }
    const std::int64_t id = find.Number(0);
    std::vector<std::string> columns;
    Statement names = store_->File.Prepare("SELECT name FROM query_columns WHERE query = ?1 ORDER BY position");
    names.Bind(1, id);
    while (names.Step()) columns.emplace_back(names.Text(0));
    Statement parameters = store_->File.Prepare("SELECT count(*) FROM query_params WHERE query = ?1");
    parameters.Bind(1, id);
    parameters.Step();
    return std::make_unique<ClassQueryRows>(std::move(columns), static_cast<std::size_t>(parameters.Number(0)));
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

}  // namespace formwizard::adapters::sqlite
