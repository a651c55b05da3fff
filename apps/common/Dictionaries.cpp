#include "apps/common/Dictionaries.h"

#include "adapters/dictionary/Reader.h"
#include "adapters/dictionary/Writer.h"
#include "adapters/sqlite/Dictionary.h"
#include "support/Failures.h"
#include "system/FileSystem.h"
#include "wizard/factory/CheckedServer.h"

namespace formwizard::apps::common {

namespace dictionary = adapters::dictionary;
namespace sqlite = adapters::sqlite;

std::unique_ptr<wizard::factory::FactoryCreator> OpenDictionary(const std::string& path) {
  return wizard::factory::Checked(sqlite::OpenDictionary(path), path);
}

void ImportDictionary(std::istream& in, const std::string& source, const std::string& target, bool force) {
  sqlite::MakeDictionary(target, force ? sqlite::Replacing::AnyFile : sqlite::Replacing::Dictionaries,
                         [&](auto& store) { dictionary::ReadDictionary(in, source, store); });
}

void ExportDictionary(const std::string& path, std::ostream& out) {
  dictionary::WriteDictionary(*sqlite::OpenDictionary(path), "", dictionary::Classes::All, out);
}

void ExportServer(wizard::factory::FactoryCreator& server, const std::string& system, std::ostream& out) {
  dictionary::WriteDictionary(server, system, dictionary::Classes::NoSystemClasses, out);
}

void CheckIsExport(const std::string& path) {
  const auto head = system::RealFileSystem().ReadHead(path, dictionary::DocumentBegin.size());
  if (!head || head->Bytes == dictionary::DocumentBegin) return;
  throw support::InputError(path +
                            ": this file exists and is no dictionary in JSON; choose another name, or replace it with "
                            "\"dictionary export --force\"");
}

}  // namespace formwizard::apps::common
