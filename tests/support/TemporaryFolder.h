// A folder of its own for a test, gone afterwards.
#pragma once

#include <unistd.h>
#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>
#include <stdexcept>
#include <string>

namespace formwizard::tests {

class TemporaryFolder {
 public:
  TemporaryFolder() {
    std::string pattern = (std::filesystem::temp_directory_path() / "formwizard-XXXXXX").string();
    if (!::mkdtemp(pattern.data())) throw std::runtime_error("cannot create a temporary folder");
    path_ = pattern;
  }
  ~TemporaryFolder() {
    std::error_code error;
    std::filesystem::remove_all(path_, error);
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  std::string operator/(const std::string& name) const { return (path_ / name).string(); }
  const std::filesystem::path& Path() const { return path_; }

 private:
  std::filesystem::path path_;
};

inline std::string ReadFile(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  if (!in) throw std::runtime_error("cannot read " + path);
  std::ostringstream text;
  text << in.rdbuf();
  return text.str();
}

inline void WriteFile(const std::string& path, const std::string& text) {
  std::filesystem::create_directories(std::filesystem::path(path).parent_path());
  std::ofstream(path, std::ios::binary) << text;
}

// Every file below a folder, by its path in it.
inline std::map<std::string, std::string> FilesIn(const std::filesystem::path& folder) {
  std::map<std::string, std::string> files;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
    if (entry.is_regular_file()) {
      files[std::filesystem::relative(entry.path(), folder).generic_string()] = ReadFile(entry.path().string());
    }
  }
  return files;
}

inline void CopySample(const std::string& name, const std::string& to) {
  std::filesystem::copy(std::string(FORMWIZARD_SOURCE_DIR "/samples/") + name, to,
                        std::filesystem::copy_options::recursive);
}

}  // namespace formwizard::tests
