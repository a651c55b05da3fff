// Which elements of two sequences are the same ones.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace formwizard::vbtext {

struct Pair {
  std::size_t A, B;  // places in the two sequences
};

// Pairs of equal elements that ascend on both sides. Elements that stand once on each side come first; between them it
// is the longest series, as far as it is found in a number of steps that grows with the lengths only.
std::vector<Pair> Align(const std::vector<std::uint32_t>& a, const std::vector<std::uint32_t>& b);

// Of pairs in the order of A those whose B ascend too, as many as there can be.
std::vector<Pair> LongestAscending(const std::vector<Pair>& pairs);

}  // namespace formwizard::vbtext
