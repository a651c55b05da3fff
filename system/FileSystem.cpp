#include "system/FileSystem.h"

#include <utility>

namespace formwizard::system {

std::optional<std::string> FileSystem::Read(const std::string& path, std::size_t most) const {
  std::optional<FileContent> content = ReadWhole(path, most);
  if (!content) return std::nullopt;
  return std::move(content->Bytes);
}

}  // namespace formwizard::system
