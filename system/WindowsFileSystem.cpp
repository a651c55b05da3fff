#include "support/Failures.h"
#include "system/Aside.h"
#include "system/FileSystem.h"
#include "system/Paths.h"
#include "system/Text.h"

#include <windows.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <memory>
#include <utility>

namespace formwizard::system {
namespace {

namespace fs = std::filesystem;
using support::InputError;
using support::SaveError;

constexpr const char* LockName = "/.saving.lock";
constexpr DWORD SharedByAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

// The platform's own words for an error, without the full stop and the line break at their end.
std::string ReasonText(DWORD reason) {
  std::array<wchar_t, 512> text{};
  DWORD length = ::FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr, reason, 0,
                                  text.data(), static_cast<DWORD>(text.size()), nullptr);
  while (length > 0 && (text[length - 1] <= L' ' || text[length - 1] == L'.')) --length;
  if (length == 0) return "error " + std::to_string(reason);
  return Utf8(std::wstring_view(text.data(), length));
}

template <typename Error>
[[noreturn]] void Fail(const std::string& path, const char* action, DWORD reason = ::GetLastError()) {
  throw Error(path + ": " + action + " failed: " + ReasonText(reason));
}

// A name that no file can have, such as "*.frm", is one that none has.
bool IsNone(DWORD reason) {
  return reason == ERROR_FILE_NOT_FOUND || reason == ERROR_PATH_NOT_FOUND || reason == ERROR_INVALID_NAME;
}

// Scanners and indexers open a file that is new or has changed for a moment, and a file that is about to vanish with
// its last handle refuses access; so a call is made again for about half a second.
template <typename Call>
auto Again(Call&& call) {
  constexpr int attempts = 25;
  for (int attempt = 1;; ++attempt) {
    const auto result = call();
    if (result) return result;
    const DWORD reason = ::GetLastError();
    const bool isMomentary = reason == ERROR_SHARING_VIOLATION || reason == ERROR_LOCK_VIOLATION ||
                             reason == ERROR_ACCESS_DENIED || reason == ERROR_USER_MAPPED_FILE;
    if (!isMomentary || attempt == attempts) return result;
    ::Sleep(20);
    ::SetLastError(reason);
  }
}

class Handle {
 public:
  explicit Handle(HANDLE value = INVALID_HANDLE_VALUE) : Value(value) {}
  ~Handle() { Close(); }
  Handle(Handle&& other) noexcept : Value(std::exchange(other.Value, INVALID_HANDLE_VALUE)) {}
  Handle& operator=(Handle&& other) noexcept {
    std::swap(Value, other.Value);
    return *this;
  }

  explicit operator bool() const { return Value != INVALID_HANDLE_VALUE; }
  void Close() {
    if (*this) ::CloseHandle(std::exchange(Value, INVALID_HANDLE_VALUE));
  }

  HANDLE Value;
};

// An open handle, or one that says why not by GetLastError.
Handle Open(const std::string& path, DWORD access, DWORD share, DWORD disposition,
            DWORD attributes = FILE_ATTRIBUTE_NORMAL) {
  const fs::path native = NativePath(path);
  HANDLE opened = INVALID_HANDLE_VALUE;
  Again([&] {
    opened = ::CreateFileW(native.c_str(), access, share, nullptr, disposition, attributes, nullptr);
    return opened != INVALID_HANDLE_VALUE;
  });
  return Handle(opened);
}

// A file that nobody else can open, and that goes with its handle, however the program ends.
class Lock : public FileLock {
 public:
  explicit Lock(Handle file) : file_(std::move(file)) {}

 private:
  Handle file_;
};

std::uint64_t Joined(DWORD high, DWORD low) { return (std::uint64_t{high} << 32) | low; }

FileStamp StampFrom(const BY_HANDLE_FILE_INFORMATION& info) {
  const auto modified =
      static_cast<std::int64_t>(Joined(info.ftLastWriteTime.dwHighDateTime, info.ftLastWriteTime.dwLowDateTime));
  return {info.dwVolumeSerialNumber, Joined(info.nFileIndexHigh, info.nFileIndexLow),
          Joined(info.nFileSizeHigh, info.nFileSizeLow), modified, modified};
}

// Clocks of files tick at once here, every two seconds on some media.
bool ShowsChanges(const FileStamp& stamp) {
  constexpr std::int64_t coarsest = 25'000'000;  // of 100 ns
  FILETIME now{};
  ::GetSystemTimeAsFileTime(&now);
  return stamp.Modified + coarsest < static_cast<std::int64_t>(Joined(now.dwHighDateTime, now.dwLowDateTime));
}

void ReadInto(std::string& bytes, HANDLE file, const std::string& path) {
  std::size_t done = 0;
  while (done < bytes.size()) {
    const DWORD wanted = static_cast<DWORD>(std::min<std::size_t>(bytes.size() - done, 1U << 30));
    DWORD count = 0;
    if (!Again([&] { return ::ReadFile(file, bytes.data() + done, wanted, &count, nullptr); })) {
      Fail<InputError>(path, "reading");
    }
    if (count == 0) break;
    done += count;
  }
  bytes.resize(done);
}

// Nothing when there is no such file.
std::optional<FileContent> ReadFrom(const std::string& path, std::size_t most, bool mayCut) {
  CheckPath(path);
  const Handle file = Open(path, GENERIC_READ, SharedByAll, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS);
  if (!file && IsNone(::GetLastError())) return std::nullopt;
  if (!file) Fail<InputError>(path, "opening the file");
  if (::GetFileType(file.Value) != FILE_TYPE_DISK) {
    throw InputError(path + ": this is a pipe or a device, a file is needed");
  }
  BY_HANDLE_FILE_INFORMATION info{};
  if (!::GetFileInformationByHandle(file.Value, &info)) Fail<InputError>(path, "reading");
  if ((info.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
    throw InputError(path + ": this is a folder, a file is needed");
  }
  FileContent content{"", StampFrom(info), false};
  if (content.Stamp.Size > most && !mayCut) FailTooLarge(path, content.Stamp.Size, most);
  content.Bytes.resize(static_cast<std::size_t>(std::min<std::uint64_t>(most, content.Stamp.Size)));
  content.ShowsChanges = ShowsChanges(content.Stamp);
  ReadInto(content.Bytes, file.Value, path);
  return content;
}

// The rights of a file that it does not have from its folder go with it. False when they cannot be given; a volume that
// knows no rights has none to give.
bool CopyRights(const fs::path& from, const fs::path& to) {
  DWORD size = 0;
  ::GetFileSecurityW(from.c_str(), DACL_SECURITY_INFORMATION, nullptr, 0, &size);
  std::vector<unsigned char> rights(size);
  if (size == 0 || !::GetFileSecurityW(from.c_str(), DACL_SECURITY_INFORMATION, rights.data(), size, &size)) {
    return true;
  }
  return ::SetFileSecurityW(to.c_str(), DACL_SECURITY_INFORMATION, rights.data()) != 0;
}

// Nobody can remove the file while it is open.
class WindowsOutput : public OutputFile {
 public:
  WindowsOutput(Handle file, std::string path) : file_(std::move(file)), path_(std::move(path)) {}

  void Write(std::string_view bytes) override {
    while (!bytes.empty()) {
      const DWORD wanted = static_cast<DWORD>(std::min<std::size_t>(bytes.size(), 1U << 30));
      DWORD written = 0;
      if (!::WriteFile(file_.Value, bytes.data(), wanted, &written, nullptr)) Fail<SaveError>(path_, "writing");
      bytes.remove_prefix(written);
    }
  }
  void Lend() override { file_.Close(); }
  void Flush() override {
    if (!file_) file_ = Open(path_, GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE, OPEN_EXISTING);
    if (!::FlushFileBuffers(file_.Value)) Fail<SaveError>(path_, "flushing");
  }

 private:
  Handle file_;
  std::string path_;
};

class WindowsFileSystem : public FileSystem {
 public:
  std::optional<FileContent> ReadWhole(const std::string& path, std::size_t most) const override {
    return ReadFrom(path, most, false);
  }
  std::optional<FileContent> ReadHead(const std::string& path, std::size_t count) const override {
    return ReadFrom(path, count, true);
  }

  std::optional<FileStamp> StampOf(const std::string& path) const override {
    const Handle file = Open(path, 0, SharedByAll, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS);
    BY_HANDLE_FILE_INFORMATION info{};
    if (file && ::GetFileInformationByHandle(file.Value, &info)) return StampFrom(info);
    if (IsNone(::GetLastError())) return std::nullopt;
    Fail<InputError>(path, "looking for the file");
  }

  FileKind KindOf(const std::string& path) const override {
    CheckPath(path);
    const Handle file =
        Open(path, 0, SharedByAll, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS | FILE_FLAG_OPEN_REPARSE_POINT);
    if (!file && IsNone(::GetLastError())) return FileKind::None;
    if (file && ::GetFileType(file.Value) != FILE_TYPE_DISK) return FileKind::Other;
    FILE_ATTRIBUTE_TAG_INFO info{};
    if (!file || !::GetFileInformationByHandleEx(file.Value, FileAttributeTagInfo, &info, sizeof info)) {
      Fail<InputError>(path, "looking for the file");
    }
    // What else is no plain file, such as one that is still in a cloud, is read like one.
    const bool isMarked = (info.FileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0;
    if (isMarked && info.ReparseTag == IO_REPARSE_TAG_SYMLINK) return FileKind::Link;
    return (info.FileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0 ? FileKind::Folder : FileKind::File;
  }

  std::optional<std::vector<std::string>> NamesIn(const std::string& folder) const override {
    CheckPath(folder);
    WIN32_FIND_DATAW entry{};
    const HANDLE search = ::FindFirstFileW(NativePath(folder + "/*").c_str(), &entry);
    const DWORD reason = ::GetLastError();
    if (search == INVALID_HANDLE_VALUE) {
      if (IsNone(reason) || reason == ERROR_DIRECTORY) return std::nullopt;
      Fail<InputError>(folder, "listing the folder", reason);
    }
    const std::unique_ptr<void, decltype(&::FindClose)> closed(search, ::FindClose);
    std::vector<std::string> names;
    do {
      const std::wstring_view name = entry.cFileName;
      if (name != L"." && name != L"..") names.push_back(Utf8(name));
    } while (::FindNextFileW(search, &entry));
    if (::GetLastError() != ERROR_NO_MORE_FILES) Fail<InputError>(folder, "listing the folder");
    return names;
  }

  std::string BehindLinks(const std::string& path) const override {
    if (KindOf(path) != FileKind::Link) return path;
    const Handle file = Open(path, 0, SharedByAll, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS);
    std::wstring found(LongestPath + 1, L'\0');
    const DWORD length =
        file ? ::GetFinalPathNameByHandleW(file.Value, found.data(), static_cast<DWORD>(found.size()), VOLUME_NAME_DOS)
             : 0;
    if (length == 0 || length >= found.size()) Fail<InputError>(path, "following the link");
    found.resize(length);
    return Utf8(std::wstring_view(found));
  }

  std::unique_ptr<FileLock> LockFolder(const std::string& folder) override {
    Handle file(::CreateFileW(NativePath(folder + LockName).c_str(), GENERIC_WRITE | DELETE, 0, nullptr, OPEN_ALWAYS,
                              FILE_ATTRIBUTE_HIDDEN | FILE_FLAG_DELETE_ON_CLOSE, nullptr));
    if (!file && ::GetLastError() == ERROR_ACCESS_DENIED) {
      file = Open(folder + LockName, GENERIC_WRITE | DELETE, 0, OPEN_ALWAYS,
                  FILE_ATTRIBUTE_HIDDEN | FILE_FLAG_DELETE_ON_CLOSE);
    }
    if (file) return std::make_unique<Lock>(std::move(file));
    const DWORD reason = ::GetLastError();
    if (reason != ERROR_SHARING_VIOLATION) Fail<SaveError>(folder, "locking the folder", reason);
    return nullptr;
  }

  void CreateFolder(const std::string& folder) override {
    if (!::CreateDirectoryW(NativePath(folder).c_str(), nullptr)) Fail<SaveError>(folder, "creating the folder");
  }

  void CreateFolders(const std::string& folder) override {
    std::vector<std::string> missing;
    for (std::string next = folder; KindOf(next) == FileKind::None; next = FolderOf(missing.back())) {
      missing.push_back(next);
      if (FolderOf(next) == next) break;  // a drive that is not there
    }
    for (; !missing.empty(); missing.pop_back()) {
      if (::CreateDirectoryW(NativePath(missing.back()).c_str(), nullptr)) continue;
      if (::GetLastError() != ERROR_ALREADY_EXISTS) Fail<SaveError>(missing.back(), "creating the folder");
    }
  }

  std::unique_ptr<OutputFile> Create(const std::string& path, const std::string& like) override {
    const DWORD attributes = like.empty() ? 0 : ::GetFileAttributesW(NativePath(like).c_str());
    if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_READONLY) != 0) {
      Fail<SaveError>(like, "changing the file", ERROR_ACCESS_DENIED);
    }
    Handle file = Open(path, GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE, CREATE_NEW);
    if (!file) Fail<SaveError>(path, "creating the file");
    if (!like.empty() && !CopyRights(NativePath(like), NativePath(path))) {
      Fail<SaveError>(path, "setting the access rights");
    }
    return std::make_unique<WindowsOutput>(std::move(file), path);
  }

  bool MoveNew(const std::string& from, const std::string& to) override {
    if (Again(
            [&] { return ::MoveFileExW(NativePath(from).c_str(), NativePath(to).c_str(), MOVEFILE_WRITE_THROUGH); })) {
      return true;
    }
    const DWORD reason = ::GetLastError();
    if (reason != ERROR_ALREADY_EXISTS && reason != ERROR_FILE_EXISTS) {
      Fail<SaveError>(to, "moving the new file into place", reason);
    }
    return false;
  }

  void Replace(const std::string& from, const std::string& to) override {
    if (!Again([&] {
          return ::MoveFileExW(NativePath(from).c_str(), NativePath(to).c_str(),
                               MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH);
        })) {
      Fail<SaveError>(to, "replacing the file");
    }
  }

  // The step itself is one; the old file then still has to get its name.
  bool Exchange(const std::string& path, const std::string& other) override {
    const std::string name = other.substr(FolderPart(other).size());
    const std::string kept = std::string(FolderPart(path)) + AsideName(name);
    const bool isDone = Again([&] {
      return ::ReplaceFileW(NativePath(other).c_str(), NativePath(path).c_str(), NativePath(kept).c_str(), 0, nullptr,
                            nullptr);
    });
    const bool isHalfDone = !isDone && ::GetLastError() == ERROR_UNABLE_TO_MOVE_REPLACEMENT_2;
    if (isDone || isHalfDone) Replace(kept, isDone ? path : other);
    return isDone;
  }

  // Moves are written through, so that nothing is left to flush.
  void FlushFolder(const std::string& folder) override {
    if (::GetFileAttributesW(NativePath(folder).c_str()) == INVALID_FILE_ATTRIBUTES) {
      Fail<SaveError>(folder, "flushing the folder");
    }
  }

  void Remove(const std::string& path) override {
    if (Again([&] { return ::DeleteFileW(NativePath(path).c_str()); })) return;
    if (!IsNone(::GetLastError())) Fail<SaveError>(path, "removing the file");
  }

  void RemoveAbandoned(const std::string& path) override {
    const DWORD attributes = ::GetFileAttributesW(NativePath(path).c_str());
    constexpr DWORD noFile = FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_REPARSE_POINT;
    if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & noFile) == 0) ::DeleteFileW(NativePath(path).c_str());
  }

  bool RemoveFolder(const std::string& folder) override {
    if (Again([&] { return ::RemoveDirectoryW(NativePath(folder).c_str()); })) return true;
    const DWORD reason = ::GetLastError();
    if (reason == ERROR_DIR_NOT_EMPTY) return false;
    if (!IsNone(reason)) Fail<SaveError>(folder, "removing the folder", reason);
    return true;
  }
};

}  // namespace

FileSystem& RealFileSystem() {
  static WindowsFileSystem files;
  return files;
}

}  // namespace formwizard::system
