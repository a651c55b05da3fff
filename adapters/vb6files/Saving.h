// Saves a project so that the folder holds the old project or the new one, if need be once the next run has opened it.
#pragma once

#include "adapters/vb6files/SavePlace.h"
#include "adapters/vb6files/SaveRecord.h"
#include "system/FileSystem.h"
#include "system/FilesRead.h"

#include <cstddef>
#include <deque>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace formwizard::adapters::vb6files {

// A save of new forms writes over no file but the project's: each gets a file of its own, prepared aside, and the
// project file that refers to it, prepared aside as well, replaces the old one as the very last step. That one
// replacement makes everything valid; before it the folder holds the old project with at most some files that nothing
// refers to, and these the next save takes back, by the record that stands beside the prepared files.
//
// With any other file (Put) all are one set: they change places with the old ones, and the last step is that the record
// is called committed. What was cut off before that is taken back by the next run that opens the project. What was
// replaced is kept beside the project (Undo) until the next save.
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

  // The same for any file: `bytes` shall stand there in place of `old`; without bytes the file goes, without old ones
  // it is new. Its folder is made where there is none.
  void Put(const std::string& path, const std::optional<std::string_view>& bytes,
           const std::optional<std::string_view>& old);

  // Moves the prepared files into place and replaces the project file by `text`, which may be the text that it has when
  // there are others. support::SaveError, with everything as it was before, when a file of another content or of a name
  // in other letter cases stands in the way, a file has changed since it was read, or an operation fails.
  void Commit(std::string_view text);

 private:
  struct Target {
    SaveRecord::File File;
    bool IsThere = false;  // the very same file
    bool IsMoved = false;  // into place
  };

  void Open();
  void Add(const std::string& path, const std::optional<std::string_view>& bytes,
           const std::optional<std::string_view>& old);
  void CheckTargets();
  void CheckTarget(Target& target, std::size_t number, const std::vector<std::string>& sameNames);
  void Prepare(const std::string& aside, std::string_view bytes, const std::string& path, const std::string& like = "");
  void PrepareProject(std::string_view text);
  void MoveIntoPlace();
  void CommitProject(std::string_view text);
  bool IsAsRead(const std::string& project, std::string& changed) const;
  std::string Aside(std::size_t number) const;
  void RollBackMoved();
  void CommitSet(std::string_view text);
  SaveRecord PrepareSet(std::string_view text);
  void Settle();
  void Discard() noexcept;

  system::FileSystem& files_;
  const std::string& projectFile_;
  const std::string& original_;
  const system::FilesRead& read_;
  SavePlace place_;
  std::string stagingFolder_;
  std::unique_ptr<system::FileLock> lock_;
  std::deque<Target> targets_;  // of the prepared files, which are called by their numbers
  bool isSet_ = false;
};

}  // namespace formwizard::adapters::vb6files
