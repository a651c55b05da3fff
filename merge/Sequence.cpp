#include "merge/Sequence.h"

#include <algorithm>
#include <iterator>

namespace formwizard::merge {
namespace {

// Which things of so many a row has.
std::vector<bool> Present(const Row& row, std::size_t count) {
  std::vector<bool> isPresent(count, false);
  for (const std::uint32_t thing : row) isPresent[thing] = true;
  return isPresent;
}

// One more than the highest number in the rows.
std::size_t CountIn(const auto&... rows) {
  std::size_t count = 0;
  const auto look = [&](const Row& row) {
    for (const std::uint32_t thing : row) count = std::max<std::size_t>(count, thing + std::size_t{1});
  };
  (look(rows), ...);
  return count;
}

bool BeginsWith(const Row& row, const Row& other) {
  return other.size() <= row.size() && std::equal(other.begin(), other.end(), row.begin());
}

}  // namespace

Row WithThoseOf(const Row& row, const Row& other) {
  if (BeginsWith(row, other)) return row;
  const std::size_t count = CountIn(row, other);
  const std::vector<bool> isPresent = Present(row, count);
  std::vector<Row> behind(count);
  Row all;
  Row* at = &all;  // those that stand in front of all
  for (const std::uint32_t thing : other) {
    if (isPresent[thing]) {
      at = &behind[thing];
    } else {
      at->push_back(thing);
    }
  }
  for (const std::uint32_t thing : row) {
    all.push_back(thing);
    all.insert(all.end(), behind[thing].begin(), behind[thing].end());
  }
  return all;
}

std::optional<Row> MergedOrder(const Row& base, const Row& mine, const Row& theirs) {
  if (theirs == base || theirs == mine) return WithThoseOf(mine, theirs);
  const std::size_t count = CountIn(base, mine, theirs);
  const std::vector<bool> isInBase = Present(base, count), isInMine = Present(mine, count),
                          isInTheirs = Present(theirs, count);
  const auto common = [&](const Row& row) {
    Row rest;
    std::ranges::copy_if(row, std::back_inserter(rest),
                         [&](std::uint32_t thing) { return isInBase[thing] && isInMine[thing] && isInTheirs[thing]; });
    return rest;
  };
  const Row before = common(base), ofMine = common(mine), ofTheirs = common(theirs);
  if (ofTheirs == before || ofTheirs == ofMine) return WithThoseOf(mine, theirs);
  if (ofMine == before) return WithThoseOf(theirs, mine);
  return std::nullopt;
}

}  // namespace formwizard::merge
