#include "apps/cli/FilesAround.h"

#include "adapters/vb6files/FilePath.h"
#include "runtime/Conversions.h"
#include "system/FileSystem.h"
#include "system/Paths.h"
#include "system/Text.h"

#include <algorithm>
#include <limits>

namespace formwizard::apps::cli {

namespace vb6files = adapters::vb6files;

const ListedFolders::Names& ListedFolders::NamesIn(const std::string& folder) {
  const auto [found, isNew] = folders_.try_emplace(folder);
  if (isNew) {
    for (std::string& name : system::RealFileSystem().NamesIn(folder).value_or(std::vector<std::string>())) {
      found->second.emplace(runtime::LowerCase(name), std::move(name));
    }
  }
  return found->second;
}

std::optional<std::string> ListedFolders::Find(const std::string& path) {
  if (system::RealFileSystem().StampOf(path)) return path;
  const std::string_view parent = system::FolderPart(path);
  const std::string name = path.substr(parent.size());
  if (name.empty()) return std::nullopt;
  std::string folder(parent);
  if (system::RealFileSystem().KindOf(system::FolderOf(path)) == system::FileKind::None) {
    const std::optional<std::string> there = Find(std::string(parent.substr(0, parent.size() - 1)));
    if (!there) return std::nullopt;
    folder = *there + parent.back();
  }
  const Names& names = NamesIn(system::FolderOf(folder + name));
  const auto found = names.find(runtime::LowerCase(name));
  return found == names.end() ? std::nullopt : std::optional(folder + found->second);
}

FilesAround::FilesAround(std::string_view path, const system::CodePage* codePage, ListedFolders& folders)
    : folder_(system::FolderPart(path)), codePage_(codePage), folders_(folders) {}

std::optional<std::string> FilesAround::Find(std::string_view file) const {
  if (vb6files::IsForeign(file)) return std::nullopt;
  const bool isEncoded = codePage_ && !system::IsUtf8(file);
  return folders_.Find(vb6files::FileIn(folder_, isEncoded ? codePage_->Decode(file) : std::string(file)));
}

std::optional<std::uintmax_t> FilesAround::SizeOf(std::string_view file) const {
  const bool isAscii = std::ranges::all_of(file, [](char c) { return static_cast<unsigned char>(c) < 0x80; });
  const std::optional<std::string> path = Find(file);
  const bool isUncertain = vb6files::IsForeign(file) || (!codePage_ && !isAscii);
  if (!path && isUncertain) return std::numeric_limits<std::uintmax_t>::max();
  if (!path) return std::nullopt;
  const auto stamp = system::RealFileSystem().StampOf(*path);
  return stamp ? std::optional<std::uintmax_t>(stamp->Size) : std::nullopt;
}

}  // namespace formwizard::apps::cli
