// What a save is about to do, kept beside its prepared files, so that the next run can take back a save that a crash
// has cut off.
#pragma once

#include "system/ContentSum.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace formwizard::adapters::vb6files {

struct SaveRecord {
  // A new file and the sum of its bytes. A path in the project's folder is written without that folder, so that the
  // project may be found under another path.
  struct File {
    std::string Path;
    std::uint64_t Sum;
  };

  // How contents were summed when the record was written.
  std::uint64_t (*Sum)(std::string_view bytes) = system::ContentSum;
  std::uint64_t OldProject = 0, NewProject = 0;  // sums of the project file
  std::vector<File> Files;

  // The text of a record with the sums of today, begun by those of the project file; a line for each file and the end
  // are appended.
  static std::string Begin(std::uint64_t oldProject, std::uint64_t newProject);
  static void Append(std::string& text, const File& file);
  static void End(std::string& text);
  // Nothing for a text that is cut off or no record.
  static std::optional<SaveRecord> Parse(std::string_view text);
};

}  // namespace formwizard::adapters::vb6files
