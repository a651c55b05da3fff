#include "adapters/vb6files/FileSystem.h"
#include "support/Failures.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <utility>

namespace formwizard::adapters::vb6files {
namespace {

[[noreturn]] void Fail(const std::string& path, const char* action) {
  const int reason = errno;
  throw support::SaveError(path + ": " + action + " failed: " + std::strerror(reason) +
                           "; the project is as it was before");
}

class Descriptor {
 public:
  explicit Descriptor(int number) : Number(number) {}
  ~Descriptor() { Close(); }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;

  bool Close() {
    if (Number < 0) return true;
    return ::close(std::exchange(Number, -1)) == 0;
  }

  int Number;
};

class Lock : public FileLock {
 public:
  explicit Lock(int number) : folder_(number) {}

 private:
  Descriptor folder_;
};

bool WriteAll(int file, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t written = ::write(file, bytes.data(), bytes.size());
    if (written < 0 && errno == EINTR) continue;
    if (written <= 0) return false;
    bytes.remove_prefix(static_cast<std::size_t>(written));
  }
  return true;
}

class PosixFileSystem : public FileSystem {
 public:
  std::optional<std::string> Read(const std::string& path, std::size_t limit) const override {
    const Descriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
    struct stat info {};
    if (file.Number < 0 || ::fstat(file.Number, &info) != 0 || !S_ISREG(info.st_mode)) return std::nullopt;
    std::string bytes(std::min(limit, static_cast<std::size_t>(info.st_size)), '\0');
    std::size_t done = 0;
    while (done < bytes.size()) {
      const ssize_t count = ::read(file.Number, bytes.data() + done, bytes.size() - done);
      if (count < 0 && errno == EINTR) continue;
      if (count < 0) return std::nullopt;
      if (count == 0) break;
      done += static_cast<std::size_t>(count);
    }
    bytes.resize(done);
    return bytes;
  }

  std::optional<std::vector<std::string>> NamesIn(const std::string& folder) const override {
    std::error_code error;
    std::filesystem::directory_iterator entries(folder, error);
    if (error) return std::nullopt;
    std::vector<std::string> names;
    for (; entries != std::filesystem::directory_iterator(); entries.increment(error)) {
      names.push_back(entries->path().filename().string());
    }
    return names;
  }

  std::unique_ptr<FileLock> LockFolder(const std::string& folder) override {
    const int number = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (number < 0) Fail(folder, "opening the folder");
    auto lock = std::make_unique<Lock>(number);
    if (::flock(number, LOCK_EX | LOCK_NB) == 0) return lock;
    if (errno != EWOULDBLOCK) Fail(folder, "locking the folder");
    return nullptr;
  }

  void CreateFolder(const std::string& folder) override {
    if (::mkdir(folder.c_str(), 0777) != 0) Fail(folder, "creating the folder");
  }

  void WriteNew(const std::string& path, std::string_view bytes, const std::string& like) override {
    Descriptor file(::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666));
    if (file.Number < 0) Fail(path, "creating the file");
    struct stat info {};
    if (!like.empty() && ::stat(like.c_str(), &info) == 0 && ::fchmod(file.Number, info.st_mode & 07777) != 0) {
      Fail(path, "setting the permissions");
    }
    if (!WriteAll(file.Number, bytes)) Fail(path, "writing");
    if (::fsync(file.Number) != 0) Fail(path, "flushing");
    if (!file.Close()) Fail(path, "closing");
  }

  bool MoveNew(const std::string& from, const std::string& to) override {
    if (::renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0) return true;
    if (errno == EEXIST) return false;
    if (errno != EINVAL && errno != ENOSYS) Fail(to, "moving the new file into place");
    // A file system without that operation: a second name for the file, then the first one goes.
    if (::link(from.c_str(), to.c_str()) != 0) {
      if (errno == EEXIST) return false;
      Fail(to, "moving the new file into place");
    }
    ::unlink(from.c_str());
    return true;
  }

  void Replace(const std::string& from, const std::string& to) override {
    if (::rename(from.c_str(), to.c_str()) != 0) Fail(to, "replacing the file");
  }

  void FlushFolder(const std::string& folder) override {
    const Descriptor handle(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (handle.Number < 0 || ::fsync(handle.Number) != 0) Fail(folder, "flushing the folder");
  }

  void Remove(const std::string& path) override {
    if (::unlink(path.c_str()) != 0 && errno != ENOENT) Fail(path, "removing the file");
  }

  void RemoveFolder(const std::string& folder) override {
    std::error_code error;
    std::filesystem::remove_all(folder, error);
    if (error) throw support::SaveError(folder + ": removing the folder failed: " + error.message());
  }
};

}  // namespace

FileSystem& RealFileSystem() {
  static PosixFileSystem files;
  return files;
}

}  // namespace formwizard::adapters::vb6files
