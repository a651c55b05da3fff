#include "adapters/vb6files/FilePath.h"

#include "system/Paths.h"

#include <algorithm>
#include <filesystem>

namespace formwizard::adapters::vb6files {

namespace {

constexpr char Preferred = static_cast<char>(std::filesystem::path::preferred_separator);

}  // namespace

bool IsForeign(std::string_view path) {
  if (Preferred == '\\') return false;
  const bool hasDrive = path.size() > 2 && path[1] == ':' && path[2] == '\\';
  return hasDrive || path.starts_with("\\\\");
}

std::string FileIn(std::string_view folder, std::string_view projectPath) {
  if (IsForeign(projectPath)) return std::string(projectPath);
  std::string path(projectPath);
  const char separator = folder.empty() || folder.back() == ':' ? Preferred : folder.back();
  std::ranges::replace(path, '\\', separator);
  return system::IsAbsolute(path) ? path : std::string(folder) + path;
}

}  // namespace formwizard::adapters::vb6files
