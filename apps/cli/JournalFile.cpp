#include "apps/cli/JournalFile.h"

#include "apps/common/Endings.h"
#include "support/Failures.h"
#include "system/FileSystem.h"

#include <optional>
#include <string_view>

namespace formwizard::apps::cli {
namespace {

constexpr std::string_view FirstBytes = "{\"call\":\"";  // of every line

// A run that stopped early leaves an empty journal.
const std::string& Checked(const std::string& file, bool force) {
  const auto head = system::RealFileSystem().ReadHead(file, FirstBytes.size());
  if (force || !head || head->Bytes.empty() || head->Bytes == FirstBytes) return file;
  throw support::InputError(file +
                            ": this file exists and is no journal; choose another name, or replace it with --force");
}

}  // namespace

void CheckJournal(const std::string& journal, const std::vector<std::string>& inputs) {
  const auto own = journal.empty() ? std::nullopt : system::RealFileSystem().StampOf(journal);
  for (const std::string& input : own ? inputs : std::vector<std::string>()) {
    const auto stamp = input.empty() ? std::nullopt : system::RealFileSystem().StampOf(input);
    if (!stamp || stamp->Device != own->Device || stamp->File != own->File) continue;
    throw common::UsageError(journal + ": the run reads this file, so it cannot be the journal");
  }
}

JournalFile::JournalFile(const std::string& file, bool force) : file_(system::RealFileSystem(), Checked(file, force)) {}

}  // namespace formwizard::apps::cli
