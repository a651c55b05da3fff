// Saves a project so that at every moment the folder holds the old project or the new one.
#pragma once

#include "system/FileSystem.h"

#include <cstddef>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace formwizard::adapters::vb6files {

// No component file is ever written over: a new or changed form gets a file of its own, prepared aside, and the project
// file that refers to it, prepared aside as well, replaces the old one as the very last step. That one replacement
// makes everything valid; before it the folder holds the old project with at most some files that nothing refers to.
class Saving {
 public:
  // `projectFile` is the path of the project file, `original` its bytes as they were read. All must outlive this
  // object.
  Saving(system::FileSystem& files, const std::string& projectFile, const std::string& original);
  // Without a commit everything that was prepared goes.
  ~Saving();
  Saving(const Saving&) = delete;
  Saving& operator=(const Saving&) = delete;

  // Prepares a new file that shall stand at `path` on the project's volume. support::SaveError when another program is
  // saving into the folder.
  void Stage(const std::string& path, std::string_view bytes);

  // Moves the prepared files into place and replaces the project file by `text`. support::SaveError, with everything as
  // it was before, when a file of another content stands in the way, the project file has changed since it was read, or
  // an operation fails.
  void Commit(std::string_view text);

 private:
  void Open();
  std::set<std::string> TargetFolders() const;
  std::string Aside(std::size_t number) const;
  // False when the very same file was there already.
  bool MoveIntoPlace(std::size_t number);
  void TakeBack(const std::vector<bool>& moved);
  void RemoveStaging();
  void Discard() noexcept;

  system::FileSystem& files_;
  const std::string& projectFile_;
  const std::string& original_;
  std::string folder_, stagingFolder_;
  std::unique_ptr<system::FileLock> lock_;
  std::vector<std::string> targets_;  // of the prepared files, which are called by their numbers
};

}  // namespace formwizard::adapters::vb6files
