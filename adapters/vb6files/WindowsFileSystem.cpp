#include "adapters/vb6files/FileSystem.h"
#include "support/Failures.h"

#include <windows.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <system_error>
#include <utility>

namespace formwizard::adapters::vb6files {
namespace {

namespace fs = std::filesystem;

constexpr const char* LockName = "/.saving.lock";

fs::path Native(const std::string& utf8) { return fs::path(std::u8string(utf8.begin(), utf8.end())); }

std::string Utf8(const fs::path& path) {
  const std::u8string text = path.u8string();
  return std::string(text.begin(), text.end());
}

// The platform's own words for an error, without the full stop and the line break at their end.
std::string ReasonText(DWORD reason) {
  std::array<wchar_t, 512> text{};
  DWORD length = ::FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr, reason, 0,
                                  text.data(), static_cast<DWORD>(text.size()), nullptr);
  while (length > 0 && (text[length - 1] <= L' ' || text[length - 1] == L'.')) --length;
  if (length == 0) return "error " + std::to_string(reason);
  return Utf8(fs::path(std::wstring(text.data(), length)));
}

[[noreturn]] void Fail(const std::string& path, const char* action, DWORD reason) {
  throw support::SaveError(path + ": " + action + " failed: " + ReasonText(reason) +
                           "; the project is as it was before");
}
[[noreturn]] void Fail(const std::string& path, const char* action) { Fail(path, action, ::GetLastError()); }

class Handle {
 public:
  explicit Handle(HANDLE value) : Value(value) {}
  ~Handle() {
    if (IsOpen()) ::CloseHandle(Value);
  }
  Handle(const Handle&) = delete;
  Handle& operator=(const Handle&) = delete;

  bool IsOpen() const { return Value != INVALID_HANDLE_VALUE; }

  const HANDLE Value;
};

// A file that nobody else can open, and that goes with its handle, however the program ends.
class Lock : public FileLock {
 public:
  explicit Lock(HANDLE file) : File(file) {}

  Handle File;
};

// A file that is about to vanish with its last handle refuses access for a moment.
HANDLE OpenLockFile(const fs::path& path) {
  constexpr int attempts = 20;
  for (int attempt = 1;; ++attempt) {
    const HANDLE file = ::CreateFileW(path.c_str(), GENERIC_WRITE | DELETE, 0, nullptr, OPEN_ALWAYS,
                                      FILE_ATTRIBUTE_HIDDEN | FILE_FLAG_DELETE_ON_CLOSE, nullptr);
    if (file != INVALID_HANDLE_VALUE || ::GetLastError() != ERROR_ACCESS_DENIED || attempt == attempts) return file;
    ::Sleep(10);
  }
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

bool WriteAll(HANDLE file, std::string_view bytes) {
  while (!bytes.empty()) {
    const DWORD wanted = static_cast<DWORD>(std::min<std::size_t>(bytes.size(), 1U << 30));
    DWORD written = 0;
    if (!::WriteFile(file, bytes.data(), wanted, &written, nullptr)) return false;
    bytes.remove_prefix(written);
  }
  return true;
}

class WindowsFileSystem : public FileSystem {
 public:
  std::optional<std::string> Read(const std::string& path, std::size_t limit) const override {
    const Handle file(::CreateFileW(Native(path).c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                    OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    LARGE_INTEGER size{};
    if (!file.IsOpen() || !::GetFileSizeEx(file.Value, &size)) return std::nullopt;
    std::string bytes(std::min(limit, static_cast<std::size_t>(size.QuadPart)), '\0');
    std::size_t done = 0;
    while (done < bytes.size()) {
      const DWORD wanted = static_cast<DWORD>(std::min<std::size_t>(bytes.size() - done, 1U << 30));
      DWORD count = 0;
      if (!::ReadFile(file.Value, bytes.data() + done, wanted, &count, nullptr)) return std::nullopt;
      if (count == 0) break;
      done += count;
    }
    bytes.resize(done);
    return bytes;
  }

  std::optional<std::vector<std::string>> NamesIn(const std::string& folder) const override {
    std::error_code error;
    fs::directory_iterator entries(Native(folder), error);
    if (error) return std::nullopt;
    std::vector<std::string> names;
    for (; entries != fs::directory_iterator(); entries.increment(error)) {
      names.push_back(Utf8(entries->path().filename()));
    }
    return names;
  }

  std::unique_ptr<FileLock> LockFolder(const std::string& folder) override {
    auto lock = std::make_unique<Lock>(OpenLockFile(Native(folder + LockName)));
    if (lock->File.IsOpen()) return lock;
    const DWORD reason = ::GetLastError();
    if (reason != ERROR_SHARING_VIOLATION) Fail(folder, "locking the folder", reason);
    return nullptr;
  }

  void CreateFolder(const std::string& folder) override {
    if (!::CreateDirectoryW(Native(folder).c_str(), nullptr)) Fail(folder, "creating the folder");
  }

  void WriteNew(const std::string& path, std::string_view bytes, const std::string& like) override {
    const Handle file(
        ::CreateFileW(Native(path).c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file.IsOpen()) Fail(path, "creating the file");
    if (!WriteAll(file.Value, bytes)) Fail(path, "writing");
    if (!::FlushFileBuffers(file.Value)) Fail(path, "flushing");
    if (!like.empty() && !CopyRights(Native(like), Native(path))) Fail(path, "setting the access rights");
  }

  bool MoveNew(const std::string& from, const std::string& to) override {
    if (::MoveFileExW(Native(from).c_str(), Native(to).c_str(), MOVEFILE_WRITE_THROUGH)) return true;
    const DWORD reason = ::GetLastError();
    if (reason != ERROR_ALREADY_EXISTS && reason != ERROR_FILE_EXISTS) {
      Fail(to, "moving the new file into place", reason);
    }
    return false;
  }

  void Replace(const std::string& from, const std::string& to) override {
    if (!::MoveFileExW(Native(from).c_str(), Native(to).c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH)) {
      Fail(to, "replacing the file");
    }
  }

  // Moves are written through, so that nothing is left to flush.
  void FlushFolder(const std::string& folder) override {
    if (::GetFileAttributesW(Native(folder).c_str()) == INVALID_FILE_ATTRIBUTES) Fail(folder, "flushing the folder");
  }

  void Remove(const std::string& path) override {
    if (::DeleteFileW(Native(path).c_str())) return;
    const DWORD reason = ::GetLastError();
    if (reason != ERROR_FILE_NOT_FOUND && reason != ERROR_PATH_NOT_FOUND) Fail(path, "removing the file", reason);
  }

  void RemoveFolder(const std::string& folder) override {
    std::error_code error;
    fs::remove_all(Native(folder), error);
    if (!error) return;
    const bool isPlatforms = error.category() == std::system_category();
    throw support::SaveError(folder + ": removing the folder failed: " +
                             (isPlatforms ? ReasonText(static_cast<DWORD>(error.value())) : error.message()));
  }
};

}  // namespace

FileSystem& RealFileSystem() {
  static WindowsFileSystem files;
  return files;
}

}  // namespace formwizard::adapters::vb6files
