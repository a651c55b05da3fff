// Comparison with the checked-in expected texts.
#pragma once

#include "tests/support/TemporaryFolder.h"

namespace formwizard::tests {

// The bytes of a file below tests/golden.
inline std::string Golden(const std::string& name) { return ReadFile(SourceFolder() + "/tests/golden/" + name); }

// Two folders, as FilesIn gives them. Every file that differs is named.
inline void CheckSameFiles(const std::map<std::string, std::string>& made,
                           const std::map<std::string, std::string>& expected) {
  for (const auto& [name, text] : expected) {
    CAPTURE(name);
    CHECK(made.contains(name));
    if (made.contains(name)) CHECK(made.at(name) == text);
  }
  CHECK(made.size() == expected.size());
}

}  // namespace formwizard::tests
