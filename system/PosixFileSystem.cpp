#include "support/Failures.h"
#include "system/FileSystem.h"
#include "system/Paths.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstring>
#include <ctime>
#include <string_view>
#include <utility>

namespace formwizard::system {
namespace {

using support::InputError;
using support::SaveError;

const char* Remedy(int reason) {
  switch (reason) {
    case EACCES:
    case EPERM:
    case EROFS:
      return "; check the permissions";
    case ENOSPC:
    case EDQUOT:
      return "; make room for it";
    default:
      return "";
  }
}

template <typename Error>
[[noreturn]] void Fail(const std::string& path, const char* action, int reason = errno) {
  throw Error(path + ": " + action + " failed: " + std::strerror(reason) + Remedy(reason));
}

// A call that a signal interrupts is made again.
template <typename Call>
auto Again(Call&& call) {
  auto result = call();
  while (result < 0 && errno == EINTR) result = call();
  return result;
}

bool IsNone(int reason) { return reason == ENOENT || reason == ENOTDIR; }

class Descriptor {
 public:
  explicit Descriptor(int number) : Number(number) {}
  ~Descriptor() {
    if (Number >= 0) ::close(Number);
  }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;

  const int Number;
};

class Lock : public FileLock {
 public:
  explicit Lock(int number) : folder_(number) {}

 private:
  Descriptor folder_;
};

std::int64_t Nanoseconds(const timespec& time) { return time.tv_sec * std::int64_t{1'000'000'000} + time.tv_nsec; }

FileStamp StampFrom(const struct stat& info) {
  return {info.st_dev, info.st_ino, static_cast<std::uint64_t>(info.st_size), Nanoseconds(info.st_mtim),
          Nanoseconds(info.st_ctim)};
}

// Clocks of files tick every few milliseconds, those of some media every two seconds.
bool ShowsChanges(const FileStamp& stamp) {
  constexpr std::int64_t coarsest = 2'500'000'000;
  timespec now{};
  ::clock_gettime(CLOCK_REALTIME, &now);
  return std::max(stamp.Modified, stamp.Changed) + coarsest < Nanoseconds(now);
}

const char* KindName(mode_t mode) {
  if (S_ISDIR(mode)) return "folder";
  return S_ISFIFO(mode) ? "pipe" : S_ISSOCK(mode) ? "socket" : "device";
}

void ReadInto(std::string& bytes, int file, const std::string& path) {
  std::size_t done = 0;
  while (done < bytes.size()) {
    const ssize_t count = Again([&] { return ::read(file, bytes.data() + done, bytes.size() - done); });
    if (count < 0) Fail<InputError>(path, "reading");
    if (count == 0) break;
    done += static_cast<std::size_t>(count);
  }
  bytes.resize(done);
}

// Without waiting for the other end of a pipe. Nothing when there is no such file.
std::optional<FileContent> ReadFile(const std::string& path, std::size_t most, bool mayCut) {
  CheckPath(path);
  const Descriptor file(Again([&] { return ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY); }));
  if (file.Number < 0 && IsNone(errno)) return std::nullopt;
  struct stat info {};
  if (file.Number < 0 || ::fstat(file.Number, &info) != 0) {
    if (errno == ENXIO) throw InputError(path + ": this is a pipe or a device, a file is needed");
    Fail<InputError>(path, "opening the file");
  }
  if (!S_ISREG(info.st_mode)) {
    throw InputError(path + ": this is a " + KindName(info.st_mode) + ", a file is needed");
  }
  const auto size = static_cast<std::size_t>(info.st_size);
  if (size > most && !mayCut) FailTooLarge(path, size, most);
  FileContent content{std::string(std::min(most, size), '\0'), StampFrom(info), false};
  content.ShowsChanges = ShowsChanges(content.Stamp);
  ReadInto(content.Bytes, file.Number, path);
  return content;
}

class PosixOutput : public OutputFile {
 public:
  PosixOutput(int number, std::string path) : file_(number), path_(std::move(path)) {}

  void Write(std::string_view bytes) override {
    while (!bytes.empty()) {
      const ssize_t written = Again([&] { return ::write(file_.Number, bytes.data(), bytes.size()); });
      if (written <= 0) Fail<SaveError>(path_, "writing");
      bytes.remove_prefix(static_cast<std::size_t>(written));
    }
  }
  void Lend() override {}  // an open file stands in nobody's way
  void Flush() override {
    if (Again([&] { return ::fsync(file_.Number); }) != 0) Fail<SaveError>(path_, "flushing");
  }

 private:
  Descriptor file_;
  std::string path_;
};

// Owner and group as far as this user may give them; without them no rights that a foreign owner would bring along.
void TakePermissions(int file, const std::string& path, const struct stat& like) {
  struct stat own {};
  bool isSame = ::fstat(file, &own) == 0 && own.st_uid == like.st_uid && own.st_gid == like.st_gid;
  if (!isSame) isSame = ::fchown(file, like.st_uid, like.st_gid) == 0;
  if (::fchmod(file, like.st_mode & (isSame ? 07777U : 0777U)) != 0) Fail<SaveError>(path, "setting the permissions");
}

// Whoever clears away what a crash has left behind may be faster than the lock; the file is then made again. Where
// files cannot be locked, nobody can take this one for abandoned either.
int CreateLocked(const std::string& path, mode_t mode) {
  for (;;) {
    constexpr int flags = O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC;
    const int file = Again([&] { return ::open(path.c_str(), flags, mode); });
    if (file < 0) Fail<SaveError>(path, "creating the file");
    struct stat open {
    }, named{};
    const bool isLocked = Again([&] { return ::flock(file, LOCK_EX); }) == 0;
    const bool isGone = ::fstat(file, &open) != 0 || ::lstat(path.c_str(), &named) != 0 || open.st_ino != named.st_ino;
    if (!isLocked || !isGone) return file;
    ::close(file);
  }
}

// Without flags by the call that every file system knows.
int Rename(const std::string& from, const std::string& to, unsigned flags) {
  return Again([&] {
    if (flags == 0) return ::rename(from.c_str(), to.c_str());
    return ::renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), flags);
  });
}

class PosixFileSystem : public FileSystem {
 public:
  std::optional<FileContent> ReadWhole(const std::string& path, std::size_t most) const override {
    return ReadFile(path, most, false);
  }
  std::optional<FileContent> ReadHead(const std::string& path, std::size_t count) const override {
    return ReadFile(path, count, true);
  }

  std::optional<FileStamp> StampOf(const std::string& path) const override {
    struct stat info {};
    if (::stat(path.c_str(), &info) == 0) return StampFrom(info);
    if (IsNone(errno)) return std::nullopt;
    Fail<InputError>(path, "looking for the file");
  }

  FileKind KindOf(const std::string& path) const override {
    CheckPath(path);
    struct stat info {};
    if (::lstat(path.c_str(), &info) != 0) {
      if (IsNone(errno)) return FileKind::None;
      Fail<InputError>(path, "looking for the file");
    }
    if (S_ISLNK(info.st_mode)) return FileKind::Link;
    return S_ISREG(info.st_mode) ? FileKind::File : S_ISDIR(info.st_mode) ? FileKind::Folder : FileKind::Other;
  }

  std::optional<std::vector<std::string>> NamesIn(const std::string& folder) const override {
    CheckPath(folder);
    const std::unique_ptr<DIR, int (*)(DIR*)> entries(::opendir(folder.c_str()), ::closedir);
    if (!entries && IsNone(errno)) return std::nullopt;
    if (!entries) Fail<InputError>(folder, "listing the folder");
    std::vector<std::string> names;
    for (;;) {
      errno = 0;
      const dirent* entry = ::readdir(entries.get());
      if (!entry) break;
      const std::string_view name = entry->d_name;
      if (name != "." && name != "..") names.emplace_back(name);
    }
    if (errno != 0) Fail<InputError>(folder, "listing the folder");
    return names;
  }

  std::string BehindLinks(const std::string& path) const override {
    constexpr int most = 40;  // as the system itself follows
    std::string found(path);
    std::array<char, PATH_MAX> target{};
    for (int links = 0; links <= most; ++links) {
      CheckPath(found);
      const ssize_t length = Again([&] { return ::readlink(found.c_str(), target.data(), target.size()); });
      if (length < 0 && (errno == EINVAL || IsNone(errno))) return found;  // no link, or nothing at all
      if (length < 0) Fail<InputError>(path, "following the link");
      const std::string_view next(target.data(), static_cast<std::size_t>(length));
      found = next.starts_with('/') ? std::string(next) : std::string(FolderPart(found)).append(next);
    }
    Fail<InputError>(path, "following the link", ELOOP);
  }

  std::unique_ptr<FileLock> LockFolder(const std::string& folder) override {
    const int number = Again([&] { return ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC); });
    if (number < 0) Fail<SaveError>(folder, "opening the folder");
    auto lock = std::make_unique<Lock>(number);
    if (Again([&] { return ::flock(number, LOCK_EX | LOCK_NB); }) == 0) return lock;
    if (errno != EWOULDBLOCK) Fail<SaveError>(folder, "locking the folder");
    return nullptr;
  }

  void CreateFolder(const std::string& folder) override {
    if (Again([&] { return ::mkdir(folder.c_str(), 0777); }) != 0) Fail<SaveError>(folder, "creating the folder");
  }

  void CreateFolders(const std::string& folder) override {
    if (::mkdir(folder.c_str(), 0777) == 0 || errno == EEXIST) return;
    const std::string above = FolderOf(folder);
    if (errno != ENOENT || above == folder || above == ".") Fail<SaveError>(folder, "creating the folder");
    CreateFolders(above);
    if (::mkdir(folder.c_str(), 0777) != 0 && errno != EEXIST) Fail<SaveError>(folder, "creating the folder");
  }

  std::unique_ptr<OutputFile> Create(const std::string& path, const std::string& like) override {
    struct stat model {};
    const bool hasModel = !like.empty() && ::stat(like.c_str(), &model) == 0;
    if (hasModel && ::faccessat(AT_FDCWD, like.c_str(), W_OK, AT_EACCESS) != 0)
      Fail<SaveError>(like, "changing the file");
    const int number = CreateLocked(path, hasModel ? 0600 : 0666);
    auto file = std::make_unique<PosixOutput>(number, path);
    if (hasModel) TakePermissions(number, path, model);
    return file;
  }

  bool MoveNew(const std::string& from, const std::string& to) override {
    if (Rename(from, to, RENAME_NOREPLACE) == 0) return true;
    if (errno == EEXIST) return false;
    if (errno != EINVAL && errno != ENOSYS) Fail<SaveError>(to, "moving the new file into place");
    // A file system without that operation: a second name for the file, then the first one goes.
    if (::link(from.c_str(), to.c_str()) != 0) {
      if (errno == EEXIST) return false;
      Fail<SaveError>(to, "moving the new file into place");
    }
    ::unlink(from.c_str());
    return true;
  }

  void Replace(const std::string& from, const std::string& to) override {
    if (Rename(from, to, 0) != 0) Fail<SaveError>(to, "replacing the file");
  }

  bool Exchange(const std::string& path, const std::string& other) override {
    if (Rename(path, other, RENAME_EXCHANGE) == 0) return true;
    if (errno == EINVAL || errno == ENOSYS) return false;
    Fail<SaveError>(other, "replacing the file");
  }

  void FlushFolder(const std::string& folder) override {
    const Descriptor handle(Again([&] { return ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC); }));
    const bool isFlushed = handle.Number >= 0 && Again([&] { return ::fsync(handle.Number); }) == 0;
    if (!isFlushed && errno != EINVAL) Fail<SaveError>(folder, "flushing the folder");  // some know no such thing
  }

  void Remove(const std::string& path) override {
    if (Again([&] { return ::unlink(path.c_str()); }) != 0 && !IsNone(errno))
      Fail<SaveError>(path, "removing the file");
  }

  void RemoveAbandoned(const std::string& path) override {
    const Descriptor file(Again([&] { return ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOFOLLOW); }));
    struct stat info {};
    const bool isFile = file.Number >= 0 && ::fstat(file.Number, &info) == 0 && S_ISREG(info.st_mode);
    if (isFile && Again([&] { return ::flock(file.Number, LOCK_EX | LOCK_NB); }) == 0) Remove(path);
  }

  bool RemoveFolder(const std::string& folder) override {
    if (Again([&] { return ::rmdir(folder.c_str()); }) == 0 || IsNone(errno)) return true;
    if (errno == ENOTEMPTY || errno == EEXIST) return false;
    Fail<SaveError>(folder, "removing the folder");
  }
};

}  // namespace

FileSystem& RealFileSystem() {
  static PosixFileSystem files;
  return files;
}

}  // namespace formwizard::system
