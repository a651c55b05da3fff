// The order of things of which both sides may have added, removed and moved some.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

namespace formwizard::merge {

// Things by number, which begin near 0; the same thing has the same number on all sides, and none stands twice in a
// row.
using Row = std::vector<std::uint32_t>;

// Everything that mine or theirs has, in the order of mine, or of theirs where only theirs changed the order; what only
// the other side has stands behind its neighbour there. Nothing when both sides changed the order, each in its way.
std::optional<Row> MergedOrder(const Row& base, const Row& mine, const Row& theirs);

// The row, with those things of the other one that it lacks behind those they stand behind there.
Row WithThoseOf(const Row& row, const Row& other);

}  // namespace formwizard::merge
