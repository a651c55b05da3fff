// Paths of the operating system from texts.
#pragma once

#include <filesystem>
#include <string>

namespace formwizard::adapters::sqlite {

inline std::filesystem::path NativePath(const std::string& utf8) {
  return std::filesystem::path(std::u8string(utf8.begin(), utf8.end()));
}

}  // namespace formwizard::adapters::sqlite
