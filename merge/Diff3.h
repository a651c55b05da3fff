// Which parts of two texts changed since a third, on which both rest.
#pragma once

#include "vbtext/LineKeys.h"
#include "vbtext/Lines.h"

#include <vector>

namespace formwizard::merge {

enum class HunkKind {
  Same,      // in all three
  OfMine,    // changed in mine alone
  OfTheirs,  // changed in theirs alone
  OfBoth,    // changed to the same on both sides
  Conflict,  // changed on both sides
};

struct Hunk {
  HunkKind Kind;
  vbtext::LineRange Base, Mine, Theirs;  // elements of the three sequences
};

// In order; together the hunks hold all elements. Those that are equal have the same key. Elements with the key
// vbtext::EmptyLine are no lines of their own, but go with the one before.
std::vector<Hunk> Diff3(const std::vector<vbtext::LineKey>& base, const std::vector<vbtext::LineKey>& mine,
                        const std::vector<vbtext::LineKey>& theirs);

}  // namespace formwizard::merge
