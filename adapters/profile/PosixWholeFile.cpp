#include "adapters/profile/WholeFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <string>
#include <system_error>

namespace formwizard::adapters::profile {
namespace {

namespace fs = std::filesystem;

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

}  // namespace

bool WriteWholeFile(const fs::path& file, std::string_view text) {
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

}  // namespace formwizard::adapters::profile
