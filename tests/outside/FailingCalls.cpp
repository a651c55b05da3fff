// Preloaded into a program: counts its calls on the files below a folder, and makes one of them fail or be the last.
//
// FAULT_UNDER  the folder, as an absolute path
// FAULT_AT     the number of the call that fails, counted from 1
// FAULT_KILL   when not empty, the program is killed at that call instead
// FAULT_LOG    a file that gets a line for every call
#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <climits>
#include <csignal>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

namespace {

using Path = const char*;

int calls = 0;

// The path that an open file of ours was opened by. The texts outlive everything else in the program.
std::string& Opened(int file) {
  static auto& names = *new std::array<std::string, 1024>;
  return names.at(static_cast<std::size_t>(file));
}

std::string_view Variable(Path name) {
  Path const value = std::getenv(name);
  return value ? value : "";
}

bool IsOurs(Path path) {
  std::string name(path);
  std::array<char, PATH_MAX> folder{};
  if (!name.starts_with('/')) name = std::string(::getcwd(folder.data(), folder.size())) + "/" + name;
  return name.starts_with(Variable("FAULT_UNDER"));
}
bool IsOurs(int file) { return file >= 0 && !Opened(file).empty(); }
bool IsOurs(DIR* folder) { return IsOurs(::dirfd(folder)); }

std::string NameOf(Path path) { return path; }
std::string NameOf(int file) { return Opened(file); }
std::string NameOf(DIR* folder) { return NameOf(::dirfd(folder)); }

void Log(const std::string& line) {
  const std::string file(Variable("FAULT_LOG"));
  if (file.empty()) return;
  const long out = ::syscall(SYS_openat, AT_FDCWD, file.c_str(), O_WRONLY | O_APPEND | O_CREAT, 0666);
  ::syscall(SYS_write, out, line.data(), line.size());
  ::syscall(SYS_close, out);
}

// Whether a call is the one that fails; `reason` is its errno then.
template <typename Subject>
bool Fails(Path call, Subject subject, int reason) {
  if (!IsOurs(subject)) return false;
  ++calls;
  Log(call + (" " + NameOf(subject)) + "\n");
  if (Variable("FAULT_AT") != std::to_string(calls)) return false;
  if (!Variable("FAULT_KILL").empty()) std::raise(SIGKILL);
  errno = reason;
  return true;
}

template <typename Function>
Function* Next(Path name) {
  return reinterpret_cast<Function*>(::dlsym(RTLD_NEXT, name));
}

void Note(int file, Path path) {
  if (file >= 0) Opened(file) = IsOurs(path) ? path : "";
}

int OpenedFile(Path name, Path path, int flags, int mode) {
  if (Fails(name, path, (flags & O_CREAT) != 0 ? ENOSPC : EACCES)) return -1;
  const int file = Next<int(Path, int, ...)>(name)(path, flags, mode);
  Note(file, path);
  return file;
}

std::FILE* OpenedStream(Path name, Path path, Path how) {
  if (Fails(name, path, *how == 'r' ? EACCES : ENOSPC)) return nullptr;
  std::FILE* const stream = Next<std::FILE*(Path, Path)>(name)(path, how);
  Note(stream ? ::fileno(stream) : -1, path);
  return stream;
}

}  // namespace

// Defines the C library's `name`, under another one, since these definitions need not know all about its declaration.
#define DEFINING(result, name, ...)                         \
  extern "C" result Own_##name(__VA_ARGS__) __asm__(#name); \
  result Own_##name(__VA_ARGS__)

// NOLINTBEGIN(bugprone-macro-parentheses): lists of parameters and arguments

// `subject` is the path or the open file that the call is about.
#define FAILING(result, name, parameters, arguments, subject, reason)  \
  extern "C" result Own_##name parameters __asm__(#name);              \
  result Own_##name parameters {                                       \
    if (Fails(#name, subject, reason)) return static_cast<result>(-1); \
    return Next<result parameters>(#name) arguments;                   \
  }

#define OPENING(name)                                                \
  DEFINING(int, name, Path path, int flags, ...) {                   \
    std::va_list rest;                                               \
    va_start(rest, flags);                                           \
    const int mode = (flags & O_CREAT) != 0 ? va_arg(rest, int) : 0; \
    va_end(rest);                                                    \
    return OpenedFile(#name, path, flags, mode);                     \
  }

// NOLINTEND(bugprone-macro-parentheses)

OPENING(open)
OPENING(open64)
DEFINING(std::FILE*, fopen, Path path, Path how) { return OpenedStream("fopen", path, how); }
DEFINING(std::FILE*, fopen64, Path path, Path how) { return OpenedStream("fopen64", path, how); }

DEFINING(DIR*, opendir, Path path) {
  if (Fails("opendir", path, EACCES)) return nullptr;
  DIR* const folder = Next<DIR*(Path)>("opendir")(path);
  Note(folder ? ::dirfd(folder) : -1, path);
  return folder;
}
DEFINING(dirent*, readdir, DIR* folder) {
  return Fails("readdir", folder, EIO) ? nullptr : Next<dirent*(DIR*)>("readdir")(folder);
}
DEFINING(int, close, int file) {
  const bool fails = Fails("close", file, EIO);
  if (file >= 0) Opened(file).clear();
  const int result = Next<int(int)>("close")(file);
  return fails ? errno = EIO, -1 : result;
}

FAILING(long, read, (int file, void* to, std::size_t size), (file, to, size), file, EIO)
FAILING(long, pread, (int file, void* to, std::size_t size, long at), (file, to, size, at), file, EIO)
FAILING(long, pread64, (int file, void* to, std::size_t size, long at), (file, to, size, at), file, EIO)
FAILING(long, write, (int file, const void* from, std::size_t size), (file, from, size), file, ENOSPC)
FAILING(long, writev, (int file, const void* parts, int count), (file, parts, count), file, ENOSPC)
FAILING(long, pwrite, (int file, const void* from, std::size_t size, long at), (file, from, size, at), file, ENOSPC)
FAILING(long, pwrite64, (int file, const void* from, std::size_t size, long at), (file, from, size, at), file, ENOSPC)
// Waiting for the disk is what would take the longest.
DEFINING(int, fsync, int file) { return Fails("fsync", file, EIO) ? -1 : 0; }
DEFINING(int, fdatasync, int file) { return Fails("fdatasync", file, EIO) ? -1 : 0; }
FAILING(int, ftruncate, (int file, long size), (file, size), file, EIO)
FAILING(int, ftruncate64, (int file, long size), (file, size), file, EIO)
FAILING(int, fchmod, (int file, unsigned mode), (file, mode), file, EPERM)
FAILING(int, fchown, (int file, unsigned user, unsigned group), (file, user, group), file, EPERM)
FAILING(int, flock, (int file, int operation), (file, operation), file, ENOLCK)
FAILING(int, fstat, (int file, void* info), (file, info), file, EIO)
FAILING(int, fstat64, (int file, void* info), (file, info), file, EIO)
FAILING(int, stat, (Path path, void* info), (path, info), path, EACCES)
FAILING(int, stat64, (Path path, void* info), (path, info), path, EACCES)
FAILING(int, lstat, (Path path, void* info), (path, info), path, EACCES)
FAILING(int, lstat64, (Path path, void* info), (path, info), path, EACCES)
FAILING(int, access, (Path path, int how), (path, how), path, EACCES)
FAILING(long, readlink, (Path path, char* to, std::size_t size), (path, to, size), path, EACCES)
FAILING(int, mkdir, (Path path, unsigned mode), (path, mode), path, ENOSPC)
FAILING(int, rmdir, (Path path), (path), path, EACCES)
FAILING(int, unlink, (Path path), (path), path, EACCES)
FAILING(int, remove, (Path path), (path), path, EACCES)
FAILING(int, chmod, (Path path, unsigned mode), (path, mode), path, EPERM)
FAILING(int, link, (Path path, Path other), (path, other), other, EPERM)
FAILING(int, rename, (Path path, Path other), (path, other), other, EACCES)
FAILING(int, renameat2, (int from, Path path, int to, Path other, unsigned how), (from, path, to, other, how), other,
        EACCES)

// Nobody has a home folder but the one that the environment names.
DEFINING(void*, getpwuid, unsigned) { return nullptr; }
