// Comparison with the checked-in expected texts.
#pragma once

#include "tests/support/TemporaryFolder.h"

#include <string>

namespace formwizard::tests {

// The bytes of a file below tests/golden.
inline std::string Golden(const std::string& name) { return ReadFile(FORMWIZARD_SOURCE_DIR "/tests/golden/" + name); }

}  // namespace formwizard::tests
