// Comparison with the checked-in expected texts.
#pragma once

#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string>

namespace formwizard::tests {

// The bytes of a file below tests/golden.
inline std::string Golden(const std::string& name) {
  const std::string path = FORMWIZARD_SOURCE_DIR "/tests/golden/" + name;
  std::ifstream in(path, std::ios::binary);
  if (!in) throw std::runtime_error("cannot read " + path);
  std::ostringstream text;
  text << in.rdbuf();
  return text.str();
}

}  // namespace formwizard::tests
