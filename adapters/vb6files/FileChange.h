// What saving does to one file.
#pragma once

#include <functional>
#include <optional>
#include <string>

namespace formwizard::adapters::vb6files {

// `Old` is nothing for a new file, `New` for one that goes.
struct FileChange {
  std::string Path;
  std::optional<std::string> Old, New;
};

using ChangeListener = std::function<void(FileChange)>;

}  // namespace formwizard::adapters::vb6files
