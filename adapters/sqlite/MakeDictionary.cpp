#include "adapters/sqlite/Database.h"
#include "adapters/sqlite/Dictionary.h"
#include "adapters/sqlite/OpenDictionary.h"
#include "adapters/sqlite/Schema.h"
#include "support/Failures.h"
#include "system/WholeFile.h"

#include <vector>

namespace formwizard::adapters::sqlite {
namespace {

using namespace wizard::factory;

class Store : public DictionaryStore {
 public:
  explicit Store(Database& database) {
    for (std::size_t table = 0; table < TableCount; ++table) {
      inserts_.push_back(database.Prepare(InsertInto(static_cast<Table>(table))));
    }
  }

  void Add(Table table, const Row& row) override {
    Statement& insert = inserts_.at(static_cast<std::size_t>(table));
    insert.Reset();
    int parameter = 0;
    if (HasId(table)) insert.Bind(++parameter, row.Id);
    if (table != Table::Systems) insert.Bind(++parameter, row.Owner);
    if (!HasId(table)) insert.Bind(++parameter, row.Position);
    for (const Value& value : row.Values) {
      std::visit([&](const auto& it) { insert.Bind(++parameter, it); }, value);
    }
    insert.Step();
  }

 private:
  std::vector<Statement> inserts_;
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
