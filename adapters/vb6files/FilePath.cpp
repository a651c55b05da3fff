#include "adapters/vb6files/FilePath.h"

#include "system/Paths.h"

#include <algorithm>
#include <filesystem>

namespace formwizard::adapters::vb6files {

std::string FileIn(std::string_view folder, std::string_view projectPath) {
  constexpr char preferred = static_cast<char>(std::filesystem::path::preferred_separator);
  std::string path(projectPath);
  const char separator = folder.empty() || folder.back() == ':' ? preferred : folder.back();
  std::ranges::replace(path, '\\', separator);
  return system::IsAbsolute(path) ? path : std::string(folder) + path;
}

}  // namespace formwizard::adapters::vb6files
