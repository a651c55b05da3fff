#include "adapters/profile/ProfileFile.h"

#include "adapters/profile/ProfileText.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <sstream>

namespace formwizard::adapters::profile {
namespace {

namespace fs = std::filesystem;

std::string ReadAll(const std::string& file) {
  std::ifstream in(file, std::ios::binary);
  std::ostringstream text;
  if (in) text << in.rdbuf();
  return text.str();
}

// Creates the file with these bytes, flushed to the disk.
bool WriteNew(const fs::path& path, std::string_view text, mode_t mode) {
  const int file = ::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, mode);
  if (file < 0) return false;
  bool done = true;
  while (done && !text.empty()) {
    const ssize_t written = ::write(file, text.data(), text.size());
    done = written > 0;
    if (done) text.remove_prefix(static_cast<std::size_t>(written));
  }
  done = done && ::fchmod(file, mode) == 0 && ::fsync(file) == 0;
  return ::close(file) == 0 && done;
}

bool ReplaceFile(const std::string& file, std::string_view text) {
  std::error_code error;
  fs::path target(file);
  if (fs::is_symlink(target, error)) target = fs::canonical(target, error);
  if (target.has_parent_path()) fs::create_directories(target.parent_path(), error);
  struct stat info {};
  const mode_t mode = ::stat(target.c_str(), &info) == 0 ? info.st_mode & 07777 : 0644;
  const fs::path aside = target.string() + "." + std::to_string(::getpid()) + ".tmp";
  if (WriteNew(aside, text, mode)) {
    fs::rename(aside, target, error);
    if (!error) return true;
  }
  fs::remove(aside, error);
  return false;
}

}  // namespace

std::string ProfileFiles::GetProfileString(std::string_view section, std::string_view key, std::string_view defaultText,
                                           std::size_t size, const std::string& file) const {
  std::string value = ProfileText(ReadAll(file)).Get(section, key).value_or(std::string(defaultText));
  if (value == defaultText) value.erase(value.find_last_not_of(' ') + 1);
  return value.substr(0, size == 0 ? 0 : size - 1);
}

bool ProfileFiles::WriteProfileString(std::string_view section, std::string_view key, std::string_view value,
                                      const std::string& file) {
  const std::string old = ReadAll(file);
  ProfileText text(old);
  text.Set(section, key, value);
  return text.Text() == old || ReplaceFile(file, text.Text());
}

}  // namespace formwizard::adapters::profile
