#include "apps/cli/JournalFile.h"

#include "support/Failures.h"

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

JournalFile::JournalFile(const std::string& file, bool force) : file_(system::RealFileSystem(), Checked(file, force)) {}

}  // namespace formwizard::apps::cli
