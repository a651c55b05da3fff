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
  const char separator = folder.empty() || folder.back() == ':' ? Preferred : folder.back();
  std::string path;
  path.reserve(folder.size() + projectPath.size());
  path.append(folder).append(projectPath);
  std::replace(path.begin() + static_cast<std::ptrdiff_t>(folder.size()), path.end(), '\\', separator);
  const std::size_t own = folder.size();
  return system::IsAbsolute(std::string_view(path).substr(own)) ? path.substr(own) : path;
}

}  // namespace formwizard::adapters::vb6files
