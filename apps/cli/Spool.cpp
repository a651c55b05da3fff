#include "apps/cli/Spool.h"

#include "support/Failures.h"
#include "system/Aside.h"
#include "system/Paths.h"

#include <array>
#include <filesystem>
#include <fstream>
#include <utility>

namespace formwizard::apps::cli {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t Block = 1 << 14;

}  // namespace

Spool::~Spool() { RemoveFile(); }

void Spool::Add(std::string_view text) {
  text_ += text;
  if (text_.size() >= Block) Flush();
}

void Spool::Flush() {
  try {
    if (!file_) {
      const std::string path = system::Utf8(fs::temp_directory_path() / system::AsideName("ostrel-form-wizard"));
      file_ = system::RealFileSystem().Create(path, "");
      path_ = path;
      fs::permissions(system::NativePath(path), fs::perms::owner_read | fs::perms::owner_write);
    }
    file_->Write(text_);
  } catch (const support::SaveError& error) {
    throw support::SaveError(std::string(error.what()) +
                             "; the report is kept there until it is printed: name another folder by TMPDIR");
  }
  text_.clear();
}

void Spool::CopyTo(std::ostream& out) const {
  std::ifstream in(system::NativePath(path_), std::ios::binary);
  std::array<char, Block> part;
  while (in.read(part.data(), part.size()), in.gcount() > 0) out.write(part.data(), in.gcount());
  if (!in.eof()) throw support::SaveError(path_ + ": the report that was kept here cannot be read");
}

void Spool::PrintTo(std::ostream& out) {
  if (file_) {
    file_->Lend();
    CopyTo(out);
    RemoveFile();
  }
  out << std::exchange(text_, "");
}

// What stays behind is nobody's, and its name says whose it was.
void Spool::RemoveFile() {
  file_.reset();
  try {
    if (!path_.empty()) system::RealFileSystem().Remove(std::exchange(path_, ""));
  } catch (const support::SaveError&) {
    return;
  }
}

}  // namespace formwizard::apps::cli
