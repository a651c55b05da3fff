// Files that are written, replaced or removed as one.
#pragma once

#include "adapters/vb6files/SavePlace.h"
#include "adapters/vb6files/SaveRecord.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace formwizard::adapters::vb6files {

// Each new content stands prepared in the set's folder, under the number that its file has in the record, and changes
// places with the old one, so that the folder holds what was replaced afterwards. The record stands there before the
// first step, and it is called committed after the last one: without that the set is taken back.
class FileSet {
 public:
  // All must outlive this object.
  FileSet(const SavePlace& place, const std::string& folder, const SaveRecord& record)
      : place_(place), folder_(folder), record_(record) {}

  // support::SaveError when a file is not as its old sum says or cannot be moved; the set is then to be taken back.
  void MoveIntoPlace() const;
  // False when a file could not be brought back. One that is neither old nor new is somebody's, and stays.
  bool TakeBack() const;

  // Where the old content of a file stands that was replaced or removed; empty for none.
  std::string OldContentOf(std::size_t number) const;
  // A record may have come with a project from elsewhere. What it says is done in the project's folder, and outside of
  // it to forms only.
  static bool IsWithinReach(const SaveRecord::File& file);

 private:
  void Move(std::size_t number) const;
  bool MoveAway(const std::string& path, const std::string& aside) const;
  void MoveOver(const std::string& aside, const std::string& path, const SaveRecord::File& file) const;
  void BringBack(std::size_t number, const std::string& path) const;
  void FlushFolders() const;

  const SavePlace& place_;
  const std::string& folder_;
  const SaveRecord& record_;
};

// For a file that is not as it was.
[[noreturn]] void FailChanged(const std::string& path);

}  // namespace formwizard::adapters::vb6files
