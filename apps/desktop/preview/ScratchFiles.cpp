#include "apps/desktop/preview/ScratchFiles.h"

#include "support/Failures.h"

namespace formwizard::apps::desktop {
namespace {

[[noreturn]] void Refuse(const std::string& path) { throw support::SaveError(path + ": a preview writes nothing"); }

}  // namespace

std::optional<system::FileContent> ScratchFiles::ReadWhole(const std::string& path, std::size_t most) const {
  return path == path_ ? ReadHead(path, bytes_.size()) : files_.ReadWhole(path, most);
}

std::optional<system::FileContent> ScratchFiles::ReadHead(const std::string& path, std::size_t count) const {
  if (path != path_) return files_.ReadHead(path, count);
  return system::FileContent{bytes_.substr(0, count), *StampOf(path), true};
}

std::optional<system::FileStamp> ScratchFiles::StampOf(const std::string& path) const {
  return path == path_ ? system::FileStamp{.Size = bytes_.size()} : files_.StampOf(path);
}

system::FileKind ScratchFiles::KindOf(const std::string& path) const {
  return path == path_ ? system::FileKind::File : files_.KindOf(path);
}

std::optional<std::vector<std::string>> ScratchFiles::NamesIn(const std::string& folder) const {
  return files_.NamesIn(folder);
}

std::string ScratchFiles::BehindLinks(const std::string& path) const {
  return path == path_ ? path : files_.BehindLinks(path);
}

std::unique_ptr<system::FileLock> ScratchFiles::LockFolder(const std::string& folder) { Refuse(folder); }
void ScratchFiles::CreateFolder(const std::string& folder) { Refuse(folder); }
void ScratchFiles::CreateFolders(const std::string& folder) { Refuse(folder); }
std::unique_ptr<system::OutputFile> ScratchFiles::Create(const std::string& path, const std::string&) { Refuse(path); }
bool ScratchFiles::MoveNew(const std::string&, const std::string& to) { Refuse(to); }
void ScratchFiles::Replace(const std::string&, const std::string& to) { Refuse(to); }
bool ScratchFiles::Exchange(const std::string& path, const std::string&) { Refuse(path); }
void ScratchFiles::FlushFolder(const std::string& folder) { Refuse(folder); }
void ScratchFiles::Remove(const std::string& path) { Refuse(path); }
void ScratchFiles::RemoveAbandoned(const std::string& path) { Refuse(path); }
bool ScratchFiles::RemoveFolder(const std::string& folder) { Refuse(folder); }

}  // namespace formwizard::apps::desktop
