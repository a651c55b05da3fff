// Tables that take names without regard to the case of their letters, as the environment does.
#pragma once

#include "runtime/Conversions.h"

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace formwizard::adapters::vb6files {

struct CaselessHash {
  using is_transparent = void;
  std::size_t operator()(std::string_view text) const {
    std::uint64_t hash = text.size();
    for (; text.size() > WordSize; text.remove_prefix(WordSize)) hash = Joined(hash, FirstWord(text));
    hash = Joined(hash, FirstWord(text));
    return static_cast<std::size_t>(hash ^ (hash >> 32));
  }

 private:
  static constexpr std::size_t WordSize = 8;

  // With the bit set in each of its bytes that tells small letters from capitals.
  static std::uint64_t FirstWord(std::string_view text) {
    std::array<char, WordSize> word{};
    text.copy(word.data(), WordSize);
    return std::bit_cast<std::uint64_t>(word) | 0x2020202020202020;
  }
  static std::uint64_t Joined(std::uint64_t hash, std::uint64_t word) {
    hash = (hash ^ word) * 0x9E3779B97F4A7C15;
    return hash ^ (hash >> 29);
  }
};

struct CaselessEqual {
  using is_transparent = void;
  bool operator()(std::string_view a, std::string_view b) const { return runtime::EqualIgnoringCase(a, b); }
};

}  // namespace formwizard::adapters::vb6files
