#include "adapters/sqlite/OpenDictionary.h"

#include "adapters/sqlite/Schema.h"
#include "runtime/RuntimeError.h"
#include "support/Failures.h"
#include "system/Paths.h"

#include <filesystem>

namespace formwizard::adapters::sqlite {

Database OpenDictionaryFile(const std::string& path) {
  std::error_code error;
  if (!std::filesystem::is_regular_file(system::NativePath(path), error)) {
    throw support::InputError(path + ": there is no such file; make a class dictionary with \"dictionary import\"");
  }
  Database database = Database::OpenForReading(path);
  try {
    if (database.Number("PRAGMA application_id") == ApplicationId) {
      const std::int64_t version = database.Number("PRAGMA user_version");
      if (version == SchemaVersion) return database;
      throw support::InputError(path + ": this dictionary has version " + std::to_string(version) + ", expected " +
                                std::to_string(SchemaVersion) + "; make it anew with \"dictionary import\"");
    }
  } catch (const runtime::RuntimeError& failure) {
    throw support::InputError(path + ": the class dictionary is damaged (" + failure.Description() +
                              "); make it anew with \"dictionary import\"");
  }
  throw support::InputError(path + ": this is no class dictionary; make one with \"dictionary import\"");
}

bool IsDictionary(const std::string& path) {
  try {
    OpenDictionaryFile(path);
    return true;
  } catch (const support::InputError&) {
    return false;
  }
}

}  // namespace formwizard::adapters::sqlite
