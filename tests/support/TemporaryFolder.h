// A folder of its own for a test, gone afterwards. Paths as texts are UTF-8.
#pragma once

#include "tests/support/BuildTree.h"
#include "tests/support/Test.h"

#include <filesystem>
#include <fstream>
#include <random>

namespace formwizard::tests {

inline std::filesystem::path NativePath(const std::string& utf8) {
  return std::filesystem::path(std::u8string(utf8.begin(), utf8.end()));
}

inline std::string Utf8(const std::filesystem::path& path) {
  const std::u8string text = path.u8string();
  return std::string(text.begin(), text.end());
}

class TemporaryFolder : Pinned {
 public:
  TemporaryFolder() {
    std::random_device random;
    do {
      path_ = std::filesystem::temp_directory_path() / ("formwizard-" + std::to_string(random()));
    } while (!std::filesystem::create_directory(path_));
  }
  ~TemporaryFolder() {
    std::error_code error;
    std::filesystem::remove_all(path_, error);
  }

  std::string operator/(const std::string& name) const { return Utf8(path_ / NativePath(name)); }
  const std::filesystem::path& Path() const { return path_; }

 private:
  std::filesystem::path path_;
};

inline std::string ReadFile(const std::string& path) {
  std::ifstream in(NativePath(path), std::ios::binary);
  if (!in) throw std::runtime_error("cannot read " + path);
  std::ostringstream text;
  text << in.rdbuf();
  return text.str();
}

inline void WriteFile(const std::string& path, const std::string& text) {
  std::filesystem::create_directories(NativePath(path).parent_path());
  std::ofstream(NativePath(path), std::ios::binary) << text;
}

// Every file below a folder, by its path in it.
inline std::map<std::string, std::string> FilesIn(const std::filesystem::path& folder) {
  std::map<std::string, std::string> files;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
    if (!entry.is_regular_file()) continue;
    const std::u8string name = entry.path().lexically_relative(folder).generic_u8string();
    files[std::string(name.begin(), name.end())] = ReadFile(Utf8(entry.path()));
  }
  return files;
}

inline void CopySample(const std::string& name, const std::string& to) {
  std::filesystem::copy(NativePath(SourceFolder() + "/samples/" + name), NativePath(to),
                        std::filesystem::copy_options::recursive);
}

}  // namespace formwizard::tests
