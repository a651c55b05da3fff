#include "merge/Sequence.h"

#include <algorithm>
#include <iterator>
#include <unordered_map>
#include <unordered_set>

namespace formwizard::merge {
namespace {

Row OnlyThoseIn(const Row& row, const std::unordered_set<std::uint32_t>& kept) {
  Row rest;
  std::ranges::copy_if(row, std::back_inserter(rest), [&](std::uint32_t thing) { return kept.contains(thing); });
  return rest;
}

}  // namespace

Row WithThoseOf(const Row& row, const Row& other) {
  const std::unordered_set<std::uint32_t> present(row.begin(), row.end());
  std::unordered_map<std::uint32_t, Row> behind;
  Row first;
  Row* at = &first;
  for (const std::uint32_t thing : other) {
    if (present.contains(thing)) {
      at = &behind[thing];
    } else {
      at->push_back(thing);
    }
  }
  Row all = first;
  for (const std::uint32_t thing : row) {
    all.push_back(thing);
    const auto followers = behind.find(thing);
    if (followers != behind.end()) all.insert(all.end(), followers->second.begin(), followers->second.end());
  }
  return all;
}

std::optional<Row> MergedOrder(const Row& base, const Row& mine, const Row& theirs) {
  const std::unordered_set<std::uint32_t> inBase(base.begin(), base.end()), inTheirs(theirs.begin(), theirs.end());
  std::unordered_set<std::uint32_t> common;
  for (const std::uint32_t thing : mine) {
    if (inBase.contains(thing) && inTheirs.contains(thing)) common.insert(thing);
  }
  const Row before = OnlyThoseIn(base, common), ofMine = OnlyThoseIn(mine, common),
            ofTheirs = OnlyThoseIn(theirs, common);
  if (ofTheirs == before || ofTheirs == ofMine) return WithThoseOf(mine, theirs);
  if (ofMine == before) return WithThoseOf(theirs, mine);
  return std::nullopt;
}

}  // namespace formwizard::merge
