// Where a file differs from what would be written.
#pragma once

#include "adapters/vb6files/ProjectOnDisk.h"
#include "system/CodePage.h"

#include <cstddef>
#include <string>

namespace formwizard::apps::cli {

// The first one of a file. Texts are UTF-8, shortened to what a line of a screen takes.
struct Difference {
  std::string File;
  bool IsThere = false;
  std::size_t Line = 0;         // counted from 1; 0 for a file that is not there or no text
  std::string Found, Expected;  // that line; empty where a text ends
};

Difference FirstDifference(const adapters::vb6files::FileChange& change, const system::CodePage& codePage);

// As a line for people.
std::string LineOf(const Difference& difference);

}  // namespace formwizard::apps::cli
