#include "apps/cli/JournalFile.h"

#include "support/Failures.h"
#include "system/Paths.h"

#include <array>
#include <filesystem>
#include <string_view>
#include <system_error>

namespace formwizard::apps::cli {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view FirstBytes = "{\"call\":\"";  // of every line

// A run that stopped early leaves an empty journal.
bool IsJournal(const fs::path& path) {
  std::ifstream in(path, std::ios::binary);
  std::array<char, FirstBytes.size()> head{};
  in.read(head.data(), head.size());
  const std::string_view found(head.data(), static_cast<std::size_t>(in.gcount()));
  return !in.bad() && (found.empty() || found == FirstBytes);
}

}  // namespace

JournalFile::JournalFile(const std::string& file, bool force) : file_(file) {
  const fs::path path = system::NativePath(file);
  std::error_code error;
  const fs::file_type type = fs::status(path, error).type();
  const bool isNew = type == fs::file_type::not_found;
  if (!isNew && type != fs::file_type::regular) {
    throw support::InputError(file + ": a journal needs a file, and this is none; choose another name");
  }
  if (!isNew && !force && !IsJournal(path)) {
    throw support::InputError(file +
                              ": this file exists and is no journal; choose another name, or replace it with "
                              "--force");
  }
  out_.open(path, std::ios::binary | std::ios::trunc);
  if (!out_) throw support::SaveError(file + ": the journal cannot be created");
}

void JournalFile::Keep() {
  if (!out_.flush()) throw support::SaveError(file_ + ": writing the journal failed");
}

}  // namespace formwizard::apps::cli
