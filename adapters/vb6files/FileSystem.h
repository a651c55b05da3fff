// The file operations by which projects are read and saved, small enough that a test can make each of them fail.
#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace formwizard::adapters::vb6files {

// Held as long as the object lives; a crash releases it.
class FileLock {
 public:
  virtual ~FileLock() = default;
};

// Paths are the operating system's own. Operations that change something raise support::SaveError, naming the file and
// the reason.
class FileSystem {
 public:
  virtual ~FileSystem() = default;

  // The first `limit` bytes of a file; nothing when there is no such file or it cannot be read.
  virtual std::optional<std::string> Read(const std::string& path, std::size_t limit = std::string::npos) const = 0;
  // The names of the files and folders in a folder, in no order; nothing when there is no such folder.
  virtual std::optional<std::vector<std::string>> NamesIn(const std::string& folder) const = 0;

  // Null when another process holds the lock of this folder.
  virtual std::unique_ptr<FileLock> LockFolder(const std::string& folder) = 0;
  virtual void CreateFolder(const std::string& folder) = 0;
  // Creates the file, writes and flushes it. `like`, when not empty, is a file whose permissions it gets.
  virtual void WriteNew(const std::string& path, std::string_view bytes, const std::string& like) = 0;
  // False when `to` exists, which is then left alone.
  virtual bool MoveNew(const std::string& from, const std::string& to) = 0;
  virtual void Replace(const std::string& from, const std::string& to) = 0;
  virtual void FlushFolder(const std::string& folder) = 0;
  // A file that is not there is removed already.
  virtual void Remove(const std::string& path) = 0;
  // The folder with everything in it.
  virtual void RemoveFolder(const std::string& folder) = 0;
};

// The operating system's. Shared by all, it has no state.
FileSystem& RealFileSystem();

}  // namespace formwizard::adapters::vb6files
