// Tables that take names without regard to the case of their letters, as the environment does.
#pragma once

#include "runtime/Conversions.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace formwizard::adapters::vb6files {

struct CaselessHash {
  using is_transparent = void;
  std::size_t operator()(std::string_view text) const {
    std::uint64_t hash = 0xCBF29CE484222325;
    for (const char c : text) {
      const bool isCapital = c >= 'A' && c <= 'Z';
      hash = (hash ^ (static_cast<unsigned char>(c) | (isCapital ? 0x20U : 0U))) * 0x100000001B3;
    }
    return static_cast<std::size_t>(hash ^ (hash >> 32));
  }
};

struct CaselessEqual {
  using is_transparent = void;
  bool operator()(std::string_view a, std::string_view b) const { return runtime::EqualIgnoringCase(a, b); }
};

}  // namespace formwizard::adapters::vb6files
