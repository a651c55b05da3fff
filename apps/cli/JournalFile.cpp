#include "apps/cli/JournalFile.h"

#include "apps/common/Endings.h"
#include "support/Failures.h"
#include "system/Paths.h"

#include <filesystem>
#include <string_view>
#include <system_error>

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
  for (const std::string& input : inputs) {
    std::error_code error;
    if (!std::filesystem::equivalent(system::NativePath(input), system::NativePath(journal), error)) continue;
    throw common::UsageError(journal + ": the run reads this file, so it cannot be the journal");
  }
}

JournalFile::JournalFile(const std::string& file, bool force) : file_(system::RealFileSystem(), Checked(file, force)) {}

}  // namespace formwizard::apps::cli
