#include "system/ContentSum.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>

namespace formwizard::system {
namespace {

constexpr std::uint64_t Start = 0xCBF29CE484222325;

// The first bytes of a text as a number, the least first; what is missing of eight counts as 0.
std::uint64_t WordAt(std::string_view bytes) {
  std::array<unsigned char, 8> word{};
  std::copy_n(bytes.begin(), std::min(bytes.size(), word.size()), word.begin());
  std::uint64_t number = 0;
  for (std::size_t i = 0; i < word.size(); ++i) number |= std::uint64_t{word[i]} << (8 * i);
  return number;
}

// One to one in each of the two, so that what differs once stays different. The rotation brings high bits down to where
// the multiplication spreads them.
std::uint64_t Joined(std::uint64_t sum, std::uint64_t word) { return std::rotl(sum ^ word, 29) * 0x9E3779B97F4A7C15; }

}  // namespace

std::uint64_t ContentSum(std::string_view bytes) {
  std::uint64_t sum = Joined(Start, bytes.size());
  // Four sums that do not wait for each other.
  std::array<std::uint64_t, 4> lanes{Start, Start + 1, Start + 2, Start + 3};
  for (; bytes.size() >= 32; bytes.remove_prefix(32)) {
    for (std::size_t lane = 0; lane < lanes.size(); ++lane)
      lanes[lane] = Joined(lanes[lane], WordAt(bytes.substr(8 * lane, 8)));
  }
  for (const std::uint64_t lane : lanes) sum = Joined(sum, lane);
  for (; !bytes.empty(); bytes.remove_prefix(std::min<std::size_t>(8, bytes.size()))) sum = Joined(sum, WordAt(bytes));
  return sum;
}

std::uint64_t BytewiseSum(std::string_view bytes) {
  std::uint64_t sum = Start;
  for (const char byte : bytes) sum = (sum ^ static_cast<unsigned char>(byte)) * 0x100000001B3;
  return sum;
}

}  // namespace formwizard::system
