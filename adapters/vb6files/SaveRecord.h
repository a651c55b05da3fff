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

  // Of a record with the sums of today.
  std::string Text() const;
  // Nothing for a text that is cut off or no record.
  static std::optional<SaveRecord> Parse(std::string_view text);
};

}  // namespace formwizard::adapters::vb6files
