// The file operations on which all reading and saving of whole files rests, small enough that a test can make each of
// them fail.
#pragma once

#include "system/Limits.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace formwizard::system {

// What tells one state of a file from another without reading it. Times are the system's own.
struct FileStamp {
  std::uint64_t Device = 0, File = 0, Size = 0;
  std::int64_t Modified = 0, Changed = 0;

  bool operator==(const FileStamp&) const = default;
};

struct FileContent {
  std::string Bytes;
  FileStamp Stamp;
  // Whether every later change shows in the stamp. It may not in a file that was changed just before it was read,
  // because clocks of files are coarse.
  bool ShowsChanges = true;
};

enum class FileKind { None, File, Folder, Link, Other };

// Held as long as the object lives; a crash releases it.
class FileLock {
 public:
  virtual ~FileLock() = default;
};

// A file that is being written. While it is open, nobody takes it for abandoned.
class OutputFile {
 public:
  virtual ~OutputFile() = default;
  virtual void Write(std::string_view bytes) = 0;
  // Lets others write or move the file by its path, where an open file stands in their way.
  virtual void Lend() = 0;
  // What was written, by whomever, is on the disk afterwards.
  virtual void Flush() = 0;
};

// Paths are UTF-8 on Windows and the operating system's own bytes elsewhere. What only looks raises
// support::InputError, what changes something support::SaveError; both name the file and the reason. "There is none" is
// never an error.
class FileSystem {
 public:
  virtual ~FileSystem() = default;

  // A file as a whole, or its first `count` bytes; nothing when there is none. support::InputError for what is no file
  // (a folder, a pipe, a device), holds more than `most` bytes or cannot be read.
  virtual std::optional<FileContent> ReadWhole(const std::string& path, std::size_t most) const = 0;
  virtual std::optional<FileContent> ReadHead(const std::string& path, std::size_t count) const = 0;
  std::optional<std::string> Read(const std::string& path, std::size_t most = LargestFile) const;

  // Nothing when there is no such file.
  virtual std::optional<FileStamp> StampOf(const std::string& path) const = 0;
  // What stands there itself: a link is a link, wherever it leads.
  virtual FileKind KindOf(const std::string& path) const = 0;
  // The names of the files and folders in a folder, in no order; nothing when there is no such folder.
  virtual std::optional<std::vector<std::string>> NamesIn(const std::string& folder) const = 0;
  // What the links lead to when the path is one, also when nothing is there; the path itself otherwise.
  virtual std::string BehindLinks(const std::string& path) const = 0;

  // Null when another process holds the lock of this folder.
  virtual std::unique_ptr<FileLock> LockFolder(const std::string& folder) = 0;
  virtual void CreateFolder(const std::string& folder) = 0;
  // With the folders above it; those that are there are no error.
  virtual void CreateFolders(const std::string& folder) = 0;
  // A new and empty file; anything of that name, also a link, is an error. `like`, when not empty, is a file whose
  // permissions it gets and that this user must be allowed to change.
  virtual std::unique_ptr<OutputFile> Create(const std::string& path, const std::string& like) = 0;
  // False when `to` exists, which is then left alone.
  virtual bool MoveNew(const std::string& from, const std::string& to) = 0;
  // Moves a folder as well, where nothing is in its place.
  virtual void Replace(const std::string& from, const std::string& to) = 0;
  // The two files change places in one step; false, with nothing changed, where that cannot be done.
  virtual bool Exchange(const std::string& path, const std::string& other) = 0;
  virtual void FlushFolder(const std::string& folder) = 0;
  // A file that is not there is removed already.
  virtual void Remove(const std::string& path) = 0;
  // Removes a file unless somebody has it open for writing or it is no file.
  virtual void RemoveAbandoned(const std::string& path) = 0;
  // False when something is still in it.
  virtual bool RemoveFolder(const std::string& folder) = 0;
};

// The operating system's. Shared by all, it has no state.
FileSystem& RealFileSystem();

}  // namespace formwizard::system
