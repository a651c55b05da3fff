#include "adapters/vb6files/FilePath.h"

#include <algorithm>
#include <filesystem>

namespace formwizard::adapters::vb6files {
namespace {

constexpr char Preferred = static_cast<char>(std::filesystem::path::preferred_separator);
constexpr bool HasDrives = Preferred == '\\';
constexpr std::string_view Separators = HasDrives ? "/\\:" : "/";

bool IsAbsolute(std::string_view path) {
  if (path.empty()) return false;
  return path.front() == '/' || (HasDrives && (path.front() == '\\' || path.substr(1, 1) == ":"));
}

}  // namespace

std::string_view FolderPart(std::string_view path) { return path.substr(0, path.find_last_of(Separators) + 1); }

std::string FolderOf(std::string_view path) {
  const std::string_view part = FolderPart(path);
  if (part.empty()) return ".";
  const bool isRoot = part.size() == 1 || part.substr(0, part.size() - 1).ends_with(':');
  if (part.back() == ':') return std::string(part) + ".";  // where the drive is just now
  return std::string(isRoot ? part : part.substr(0, part.size() - 1));
}

std::string FileIn(std::string_view folder, std::string_view projectPath) {
  std::string path(projectPath);
  const char separator = folder.empty() || folder.back() == ':' ? Preferred : folder.back();
  std::ranges::replace(path, '\\', separator);
  return IsAbsolute(path) ? path : std::string(folder) + path;
}

}  // namespace formwizard::adapters::vb6files
