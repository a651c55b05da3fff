#include "adapters/sqlite/OpenDictionary.h"

#include "adapters/sqlite/Dictionary.h"
#include "adapters/sqlite/Schema.h"
#include "support/Failures.h"
#include "system/FileSystem.h"

#include <algorithm>
#include <set>
#include <string_view>

namespace formwizard::adapters::sqlite {
namespace {

using support::InputError;

constexpr std::size_t HeadSize = 100;
constexpr std::string_view Signature("SQLite format 3\0", 16);
constexpr std::size_t ApplicationIdAt = 68;

// support::InputError for what is no file, such as a folder or a pipe, or cannot be read.
std::string HeadOf(const std::string& path, const char* remedy) {
  const auto head = system::RealFileSystem().ReadHead(path, HeadSize);
  if (!head) throw InputError(path + ": there is no such file; " + remedy);
  return head->Bytes;
}

bool HasApplicationId(std::string_view head) {
  if (!head.starts_with(Signature) || head.size() < HeadSize) return false;
  std::int64_t id = 0;
  for (std::size_t i = 0; i < 4; ++i) id = id * 256 + static_cast<unsigned char>(head[ApplicationIdAt + i]);
  return id == ApplicationId;
}

// Tables of another making could be views or run code of their own.
bool HasOurTables(Database& database) {
  std::set<std::string> expected;
  for (const auto& statements : {CreateTables(), CreateIndexes()}) {
    for (const std::string& sql : statements) expected.insert(OneLine(sql));
  }
  Statement rows = database.Prepare("SELECT sql FROM sqlite_master WHERE sql IS NOT NULL");
  while (rows.Step()) {
    if (expected.erase(OneLine(rows.Text(0))) == 0) return false;
  }
  return expected.empty();
}

}  // namespace

bool LooksLikeDictionary(const std::string& path) { return HasApplicationId(HeadOf(path, "name another one")); }

Database OpenDictionaryFile(const std::string& path) {
  constexpr const char* remedy = "make a class dictionary with \"dictionary import\"";
  if (!HasApplicationId(HeadOf(path, remedy))) throw InputError(path + ": this is not a class dictionary; " + remedy);
  Database database = Database::OpenForReading(path);
  const std::int64_t version = database.Number("PRAGMA user_version");
  if (version != SchemaVersion) {
    throw InputError(path + ": this dictionary has version " + std::to_string(version) + ", expected " +
                     std::to_string(SchemaVersion) + "; create it again with \"dictionary import --force\"");
  }
  if (!HasOurTables(database)) {
    throw InputError(path +
                     ": its tables are not those of a class dictionary; create it again with \"dictionary import "
                     "--force\"");
  }
  return database;
}

}  // namespace formwizard::adapters::sqlite
