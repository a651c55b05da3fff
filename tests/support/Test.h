// What tests of every folder use: cases and checks, the containers of the language, and the errors of the core. A test
// includes besides what it tests and its fixtures, and not again what these bring along.
#pragma once

#include "tests/support/ErrorNumber.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <sstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <tuple>
#include <utility>
#include <vector>

namespace formwizard::tests {

inline bool Has(const std::string& text, const std::string& part) { return text.find(part) != std::string::npos; }

// A base of what stands for something outside of the program, of which there is but one.
struct Pinned {
  Pinned() = default;
  Pinned(const Pinned&) = delete;
  Pinned& operator=(const Pinned&) = delete;
};

}  // namespace formwizard::tests
