// Saves a project so that at every moment the folder holds the old project or the new one.
#pragma once

#include "adapters/vb6files/SaveRecord.h"
#include "system/FileSystem.h"
#include "system/FilesRead.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace formwizard::adapters::vb6files {

// No component file is ever written over: a new or changed form gets a file of its own, prepared aside, and the project
// file that refers to it, prepared aside as well, replaces the old one as the very last step. That one replacement
// makes everything valid; before it the folder holds the old project with at most some files that nothing refers to,
// and these the next save takes back, by the record that stands beside the prepared files.
class Saving {
 public:
  // `projectFile` is the path of the project file, `original` its bytes as they were read, `read` the other files that
  // the new project rests on. All must outlive this object.
  Saving(system::FileSystem& files, const std::string& projectFile, const std::string& original,
         const system::FilesRead& read);
  // Without a commit everything that was prepared goes.
  ~Saving();
  Saving(const Saving&) = delete;
  Saving& operator=(const Saving&) = delete;

  // Prepares a new file that shall stand at `path` on the project's volume. support::SaveError when another program is
  // saving into the folder.
  void Stage(const std::string& path, std::string_view bytes);

  // Moves the prepared files into place and replaces the project file by `text`. support::SaveError, with everything as
  // it was before, when a file of another content or of a name in other letter cases stands in the way, a file has
  // changed since it was read, or an operation fails.
  void Commit(std::string_view text);

 private:
  struct Target {
    SaveRecord::File File;
    bool IsThere = false;  // the very same file
    bool IsMoved = false;  // into place
  };

  void Open();
  void Recover(const std::string& folder);
  void CheckTargets();
  void CheckTarget(Target& target, std::size_t number, const std::vector<std::string>& sameNames);
  void Prepare(std::string_view text);
  void MoveIntoPlace();
  bool IsAsRead(const std::string& project, std::string& changed) const;
  std::string Aside(std::size_t number) const;
  std::string PathOf(const SaveRecord::File& file) const;
  std::uint64_t SumOf(const std::string& path, const SaveRecord& record) const;
  bool RollBack(const SaveRecord& record);
  bool RollBackMoved();
  void RemoveStaging(const std::string& folder);
  void Discard() noexcept;

  system::FileSystem& files_;
  const std::string& projectFile_;
  const std::string& original_;
  const system::FilesRead& read_;
  std::string folder_, folderPart_, name_, stagingFolder_;
  std::unique_ptr<system::FileLock> lock_;
  std::deque<Target> targets_;  // of the prepared files, which are called by their numbers
};

}  // namespace formwizard::adapters::vb6files
