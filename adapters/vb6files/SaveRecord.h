// What a save is about to do, kept beside its prepared files, so that the next run can take back a save that a crash
// has cut off, and what a save has replaced, so that it can be brought back.
#pragma once

#include "system/ContentSum.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace formwizard::adapters::vb6files {

struct SaveRecord {
  // A file with the sums of its new bytes and of its old ones, each 0 where there is no file; without both it is a
  // folder that is made. A path in the project's folder is written without that folder, so that the project may be
  // found under another path.
  struct File {
    std::string Path;
    std::uint64_t Sum = 0, Old = 0;

    bool IsFolder() const { return Sum == 0 && Old == 0; }
  };

  // How contents were summed when the record was written.
  std::uint64_t (*Sum)(std::string_view bytes) = system::ContentSum;
  // New files, which the new project file makes valid; or a set of any files, which is valid once all of them are in
  // place, and has the project file among them where that changes.
  bool IsSet = false;
  std::uint64_t OldProject = 0, NewProject = 0;  // sums of the project file; not of a set
  std::vector<File> Files;

  // The text of a record with the sums of today, begun by those of the project file; a line for each file and the end
  // are appended.
  static std::string Begin(std::uint64_t oldProject, std::uint64_t newProject);
  static void Append(std::string& text, const File& file);
  static void End(std::string& text);
  static std::string OfSet(const std::vector<File>& files);
  // Nothing for a text that is cut off or no record.
  static std::optional<SaveRecord> Parse(std::string_view text);
};

}  // namespace formwizard::adapters::vb6files
