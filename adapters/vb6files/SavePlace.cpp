#include "adapters/vb6files/SavePlace.h"

#include "system/Paths.h"

#include <optional>

namespace formwizard::adapters::vb6files {

SavePlace::SavePlace(system::FileSystem& files, const std::string& projectFile)
    : Files(files),
      ProjectFile(projectFile),
      Folder(system::FolderOf(projectFile)),
      Name(NameIn(projectFile)),
      KeptFolder(projectFile.substr(0, projectFile.size() - Name.size()) + Name.substr(0, Name.rfind('.')) + ".undo"),
      folderPart_(system::FolderPart(projectFile)) {}

std::string SavePlace::PathOf(const SaveRecord::File& file) const {
  return system::IsAbsolute(file.Path) ? file.Path : PathOf(std::string_view(file.Path));
}

std::string SavePlace::Recorded(const std::string& path) const {
  return path.substr(path.starts_with(folderPart_) ? folderPart_.size() : 0);
}

std::uint64_t SavePlace::SumOf(const std::string& path, const SaveRecord& record) const {
  const std::optional<std::string> bytes = Files.Read(path);
  return bytes ? record.Sum(*bytes) : 0;
}

std::string_view NameIn(std::string_view path) { return path.substr(system::FolderPart(path).size()); }

std::string PreparedName(std::size_t number) { return "/" + std::to_string(number); }

}  // namespace formwizard::adapters::vb6files
