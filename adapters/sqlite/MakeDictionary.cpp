#include "adapters/sqlite/Database.h"
#include "adapters/sqlite/Dictionary.h"
#include "adapters/sqlite/OpenDictionary.h"
#include "adapters/sqlite/Schema.h"
#include "support/Failures.h"
#include "system/WholeFile.h"

#include <array>
#include <span>
#include <string>
#include <variant>
#include <vector>

namespace formwizard::adapters::sqlite {
namespace {

using namespace wizard::factory;

// The rows of one table. A statement takes many of them, because to begin and to end it costs more than a row does.
class Inserts {
 public:
  Inserts(Database& database, Table table)
      : table_(table), one_(database.Prepare(InsertInto(table, 1))), many_(database.Prepare(InsertInto(table, Many))) {}

  void Add(const Row& row) {
    KeptRow& kept = rows_.at(count_);
    kept.Keys = {HasId(table_) ? row.Id : row.Owner, HasId(table_) ? row.Owner : row.Position};
    kept.Count = row.Values.size();
    for (std::size_t i = 0; i < kept.Count; ++i) kept.Values.at(i).Take(row.Values[i]);
    if (++count_ == Many) Flush();
  }

  // Inserts what waits.
  void Flush() {
    const std::span<const KeptRow> rows = std::span(rows_).first(count_);
    if (count_ == Many) {
      Insert(many_, rows);
    } else {
      for (std::size_t i = 0; i < count_; ++i) Insert(one_, rows.subspan(i, 1));
    }
    count_ = 0;
  }

 private:
  static constexpr std::size_t Many = 16;

  struct KeptValue {
    bool IsNumber = false;
    std::int32_t Number = 0;
    std::string Text;

    void Take(const Value& value) {
      const auto* number = std::get_if<std::int32_t>(&value);
      IsNumber = number != nullptr;
      if (number) {
        Number = *number;
      } else {
        Text = std::get<std::string_view>(value);
      }
    }
  };
  struct KeptRow {
    std::array<std::int64_t, 2> Keys;
    std::size_t Count;
    std::array<KeptValue, MostColumns> Values;
  };

  void Insert(Statement& insert, std::span<const KeptRow> rows) const {
    insert.Reset();
    int parameter = 0;
    for (const KeptRow& row : rows) Bind(insert, parameter, row);
    insert.Step();
  }
  void Bind(Statement& insert, int& parameter, const KeptRow& row) const {
    insert.Bind(++parameter, row.Keys[0]);
    if (table_ != Table::Systems) insert.Bind(++parameter, row.Keys[1]);
    for (const KeptValue& value : std::span(row.Values).first(row.Count)) {
      if (value.IsNumber) {
        insert.Bind(++parameter, std::int64_t{value.Number});
      } else {
        insert.BindKept(++parameter, value.Text);
      }
    }
  }

  Table table_;
  Statement one_, many_;
  std::array<KeptRow, Many> rows_{};
  std::size_t count_ = 0;
};

class Store : public DictionaryStore {
 public:
  explicit Store(Database& database) {
    tables_.reserve(TableCount);
    for (std::size_t table = 0; table < TableCount; ++table) tables_.emplace_back(database, static_cast<Table>(table));
  }

  void Add(Table table, const Row& row) override { tables_.at(static_cast<std::size_t>(table)).Add(row); }
  void Flush() {
    for (Inserts& table : tables_) table.Flush();
  }

 private:
  std::vector<Inserts> tables_;
};

void Fill(Database& database, const std::function<void(DictionaryStore&)>& fill) {
  // Nobody else sees the file, and it goes as a whole when something fails: no journal, one flush at the end.
  database.Run("PRAGMA journal_mode = OFF; PRAGMA synchronous = OFF; PRAGMA application_id = " +
               std::to_string(ApplicationId) + "; PRAGMA user_version = " + std::to_string(SchemaVersion));
  for (const std::string& sql : CreateTables()) database.Run(sql);
  database.Run("BEGIN");
  {
    Store store(database);
    fill(store);
    store.Flush();
  }
  for (const std::string& sql : CreateIndexes()) database.Run(sql);
  database.Run("COMMIT");
}

void CheckReplaceable(const std::string& target) {
  const system::FileSystem& files = system::RealFileSystem();
  if (files.KindOf(files.BehindLinks(target)) == system::FileKind::None) return;
  if (!LooksLikeDictionary(target)) {
    throw support::InputError(target +
                              ": this file exists and is no class dictionary; choose another name, or replace it with "
                              "\"dictionary import --force\"");
  }
  OpenDictionaryFile(target);  // a damaged one may hold what somebody still wants
}

}  // namespace

Database FilledDatabase(const std::string& shown, const std::function<void(DictionaryStore&)>& fill) {
  Database database = Database::OpenForFilling("", shown);
  Fill(database, fill);
  return database;
}

void MakeDictionary(const std::string& target, Replacing replacing, const std::function<void(DictionaryStore&)>& fill) {
  if (replacing == Replacing::Dictionaries) CheckReplaceable(target);
  system::WholeFile file(system::RealFileSystem(), target);
  {
    Database database = Database::OpenForFilling(file.Lend(), target);
    Fill(database, fill);
  }
  file.Commit();
}

}  // namespace formwizard::adapters::sqlite
