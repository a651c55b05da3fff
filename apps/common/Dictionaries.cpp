#include "apps/common/Dictionaries.h"

#include "adapters/dictionary/Reader.h"
#include "adapters/dictionary/Writer.h"
#include "adapters/sqlite/Dictionary.h"
#include "apps/common/TextInput.h"
#include "support/Failures.h"
#include "system/FileSystem.h"
#include "wizard/factory/CheckedServer.h"

#include <utility>

namespace formwizard::apps::common {

namespace dictionary = adapters::dictionary;
namespace sqlite = adapters::sqlite;

namespace {

class CountingStore : public wizard::factory::DictionaryStore {
 public:
  CountingStore(DictionaryStore& store, RowCounts& counts) : store_(store), counts_(counts) {}

  void Add(wizard::factory::Table table, const wizard::factory::Row& row) override {
    ++counts_.at(static_cast<std::size_t>(table));
    store_.Add(table, row);
  }

 private:
  DictionaryStore& store_;
  RowCounts& counts_;
};

}  // namespace

std::unique_ptr<wizard::factory::FactoryCreator> OpenDictionary(const std::string& path) {
  return wizard::factory::Checked(sqlite::OpenDictionary(path), path);
}

std::unique_ptr<wizard::factory::FactoryCreator> OpenAnyDictionary(const std::string& path,
                                                                   std::function<void(std::size_t)> onRead) {
  const system::FileSystem& files = system::RealFileSystem();
  const bool isFile = path != "-" && files.KindOf(files.BehindLinks(path)) == system::FileKind::File;
  if (isFile && sqlite::LooksLikeDictionary(path)) return sqlite::OpenDictionary(path);
  const auto in = OpenText(path, std::move(onRead));
  if (!in) throw support::InputError(path + ": there is no such file; give a class dictionary or its JSON");
  return sqlite::TemporaryDictionary(NameOf(path), [&](wizard::factory::DictionaryStore& store) {
    dictionary::ReadDictionary(*in, NameOf(path), store);
  });
}

RowCounts ImportDictionary(std::istream& in, const std::string& source, const std::string& target, bool force) {
  RowCounts counts{};
  sqlite::MakeDictionary(target, force ? sqlite::Replacing::AnyFile : sqlite::Replacing::Dictionaries,
                         [&](wizard::factory::DictionaryStore& store) {
                           CountingStore counting(store, counts);
                           dictionary::ReadDictionary(in, source, counting);
                         });
  return counts;
}

void ExportDictionary(const std::string& path, std::ostream& out, const std::function<void(double part)>& onProgress) {
  dictionary::WriteDictionary(*sqlite::OpenDictionary(path), "", dictionary::Classes::All, out, onProgress);
}

void ExportServer(wizard::factory::FactoryCreator& server, const std::string& system, std::ostream& out,
                  const std::function<void(double part)>& onProgress) {
  dictionary::WriteDictionary(server, system, dictionary::Classes::NoSystemClasses, out, onProgress);
}

void CheckIsExport(const std::string& path) {
  const auto head = system::RealFileSystem().ReadHead(path, dictionary::DocumentBegin.size());
  if (!head || head->Bytes == dictionary::DocumentBegin) return;
  throw support::InputError(path +
                            ": this file exists and is no dictionary in JSON; choose another name, or replace it with "
                            "\"dictionary export --force\"");
}

}  // namespace formwizard::apps::common
