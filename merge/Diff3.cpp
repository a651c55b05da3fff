#include "merge/Diff3.h"

#include "vbtext/Alignment.h"

namespace formwizard::merge {
namespace {

using vbtext::LineKey;
using vbtext::LineRange;
using vbtext::None;
using Keys = std::vector<LineKey>;

// A sequence without its empty lines, each of which goes with the line before it, the first ones with the line behind.
class Lines {
 public:
  explicit Lines(const Keys& all) : size_(all.size()) {
    for (std::size_t i = 0; i < all.size(); ++i) {
      if (all[i] == vbtext::EmptyLine) continue;
      keys_.push_back(all[i]);
      starts_.push_back(starts_.empty() ? 0 : i);
    }
  }

  const Keys& Get() const { return keys_; }
  Keys In(LineRange range) const {
    return {keys_.begin() + static_cast<std::ptrdiff_t>(range.First),
            keys_.begin() + static_cast<std::ptrdiff_t>(range.Behind)};
  }
  // The places in the whole sequence.
  LineRange Whole(LineRange range) const { return {StartOf(range.First), StartOf(range.Behind)}; }

 private:
  std::size_t StartOf(std::size_t line) const { return line < starts_.size() ? starts_[line] : size_; }

  Keys keys_;
  std::vector<std::size_t> starts_;
  std::size_t size_;
};

// For each element of the base the place of the same one on the other side, or None.
std::vector<std::size_t> PlacesOf(const Keys& base, const Keys& side) {
  std::vector<std::size_t> places(base.size(), None);
  for (const vbtext::Pair& pair : vbtext::Align(base, side)) places[pair.A] = pair.B;
  return places;
}

HunkKind KindOf(const Keys& base, const Keys& mine, const Keys& theirs) {
  if (mine == theirs) return HunkKind::OfBoth;
  if (base == theirs) return HunkKind::OfMine;
  return base == mine ? HunkKind::OfTheirs : HunkKind::Conflict;
}

}  // namespace

std::vector<Hunk> Diff3(const Keys& allOfBase, const Keys& allOfMine, const Keys& allOfTheirs) {
  const Lines base(allOfBase), mine(allOfMine), theirs(allOfTheirs);
  const std::vector<std::size_t> inMine = PlacesOf(base.Get(), mine.Get()),
                                 inTheirs = PlacesOf(base.Get(), theirs.Get());
  const std::size_t bEnd = base.Get().size(), mEnd = mine.Get().size(), tEnd = theirs.Get().size();
  std::vector<Hunk> hunks;
  const auto add = [&](HunkKind kind, LineRange ofBase, LineRange ofMine, LineRange ofTheirs) {
    hunks.push_back({kind, base.Whole(ofBase), mine.Whole(ofMine), theirs.Whole(ofTheirs)});
  };
  if (bEnd + mEnd + tEnd == 0) {  // empty lines alone
    return {{HunkKind::Same, {0, allOfBase.size()}, {0, allOfMine.size()}, {0, allOfTheirs.size()}}};
  }
  std::size_t b = 0, m = 0, t = 0;
  while (b < bEnd || m < mEnd || t < tEnd) {
    std::size_t same = 0;  // elements from here on that stand in all three
    while (b + same < bEnd && inMine[b + same] == m + same && inTheirs[b + same] == t + same) ++same;
    if (same > 0) {
      add(HunkKind::Same, {b, b + same}, {m, m + same}, {t, t + same});
      b += same, m += same, t += same;
      continue;
    }
    std::size_t next = b;  // the next one that stands in all three
    while (next < bEnd && (inMine[next] == None || inTheirs[next] == None)) ++next;
    const bool isEnd = next == bEnd;
    const LineRange ofBase{b, next}, ofMine{m, isEnd ? mEnd : inMine[next]}, ofTheirs{t, isEnd ? tEnd : inTheirs[next]};
    add(KindOf(base.In(ofBase), mine.In(ofMine), theirs.In(ofTheirs)), ofBase, ofMine, ofTheirs);
    b = ofBase.Behind, m = ofMine.Behind, t = ofTheirs.Behind;
  }
  return hunks;
}

}  // namespace formwizard::merge
