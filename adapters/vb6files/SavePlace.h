// Where a save stands: the project's folder, and what lies in it beside the project.
#pragma once

#include "adapters/vb6files/SaveRecord.h"
#include "system/FileSystem.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace formwizard::adapters::vb6files {

class SavePlace {
 public:
  // `files` must outlive this object.
  SavePlace(system::FileSystem& files, const std::string& projectFile);

  system::FileSystem& Files;
  const std::string ProjectFile, Folder, Name;  // the project file, its folder and its name in there
  const std::string KeptFolder;                 // of what the last save replaced

  std::string PathOf(std::string_view name) const { return folderPart_ + std::string(name); }
  // A file of a record, and how a record calls a path.
  std::string PathOf(const SaveRecord::File& file) const;
  std::string Recorded(const std::string& path) const;

  // As records have sums; 0 for no file.
  std::uint64_t SumOf(const std::string& path, const SaveRecord& record = {}) const;

 private:
  std::string folderPart_;
};

// The last part of a path.
std::string_view NameIn(std::string_view path);

// In the folder of one save: the record that is written before anything is changed, that of a set that is in place, the
// new project file where it is no part of a set, what keeps a set out of version control, and a prepared file by its
// number.
constexpr const char* RecordName = "/record";
constexpr const char* CommittedName = "/committed";
constexpr const char* NewProjectName = "/project";
constexpr const char* IgnoreName = "/.gitignore";
std::string PreparedName(std::size_t number);

}  // namespace formwizard::adapters::vb6files
