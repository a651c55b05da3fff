#include "vbtext/Alignment.h"

#include <algorithm>
#include <span>
#include <unordered_map>

namespace formwizard::vbtext {
namespace {

using Keys = std::span<const std::uint32_t>;

// The edits that are looked for between two anchors: more of them, and all counts as replaced.
constexpr int MostEdits = 256;
// How often what lies between anchors is searched for anchors again.
constexpr int Deepest = 32;

// The longest common series by Myers' algorithm: for each number of edits how far each diagonal reaches.
class SeriesFinder {
 public:
  SeriesFinder(Keys a, Keys b) : a_(a), b_(b) {}

  // Nothing when it takes more edits than are looked for.
  std::vector<Pair> Find() {
    const int most = static_cast<int>(std::min<std::size_t>(MostEdits, a_.size() + b_.size()));
    std::vector<int> reach(2 * static_cast<std::size_t>(most) + 3, 0);
    for (int edits = 0; edits <= most; ++edits) {
      for (int diagonal = -edits; diagonal <= edits; diagonal += 2) {
        int& end = reach[At(diagonal, most)];
        const int down = reach[At(diagonal + 1, most)], right = reach[At(diagonal - 1, most)] + 1;
        const bool goesDown = diagonal == -edits || (diagonal != edits && right <= down);
        end = edits == 0 ? 0 : goesDown ? down : right;
        while (IsEqualAt(end, end - diagonal)) ++end;
        if (IsEnd(end, end - diagonal)) {
          steps_.push_back(reach);
          return WayBack(edits, diagonal, most);
        }
      }
      steps_.push_back(reach);
    }
    return {};
  }

 private:
  static std::size_t At(int diagonal, int most) {
    const int place = diagonal + most + 1;
    return static_cast<std::size_t>(place);
  }
  bool IsEqualAt(int x, int y) const {
    return x >= 0 && y >= 0 && static_cast<std::size_t>(x) < a_.size() && static_cast<std::size_t>(y) < b_.size() &&
           a_[static_cast<std::size_t>(x)] == b_[static_cast<std::size_t>(y)];
  }
  bool IsEnd(int x, int y) const {
    return static_cast<std::size_t>(std::max(x, 0)) >= a_.size() && y >= static_cast<int>(b_.size());
  }

  std::vector<Pair> WayBack(int edits, int diagonal, int most) const {
    std::vector<Pair> pairs;
    for (; edits >= 0; --edits) {
      int x = steps_[static_cast<std::size_t>(edits)][At(diagonal, most)];
      int start = 0, next = diagonal;
      if (edits > 0) {
        const std::vector<int>& before = steps_[static_cast<std::size_t>(edits - 1)];
        const int down = before[At(diagonal + 1, most)], right = before[At(diagonal - 1, most)] + 1;
        const bool goesDown = diagonal == -edits || (diagonal != edits && right <= down);
        start = goesDown ? down : right;
        next += goesDown ? 1 : -1;
      }
      for (; x > start; --x) {
        pairs.push_back({static_cast<std::size_t>(x - 1), static_cast<std::size_t>(x - 1 - diagonal)});
      }
      diagonal = next;
    }
    std::ranges::reverse(pairs);
    return pairs;
  }

  Keys a_, b_;
  std::vector<std::vector<int>> steps_;  // by number of edits
};

class Aligner {
 public:
  Aligner(Keys a, Keys b) : a_(a), b_(b) {}

  std::vector<Pair> Run() {
    Range(0, a_.size(), 0, b_.size(), 0);
    return std::move(pairs_);
  }

 private:
  void Range(std::size_t a, std::size_t aEnd, std::size_t b, std::size_t bEnd, int depth) {
    while (a < aEnd && b < bEnd && a_[a] == b_[b]) pairs_.push_back({a++, b++});
    std::size_t tail = 0;
    while (a < aEnd - tail && b < bEnd - tail && a_[aEnd - tail - 1] == b_[bEnd - tail - 1]) ++tail;
    Middle(a, aEnd - tail, b, bEnd - tail, depth);
    for (; tail > 0; --tail) pairs_.push_back({aEnd - tail, bEnd - tail});
  }

  void Middle(std::size_t a, std::size_t aEnd, std::size_t b, std::size_t bEnd, int depth) {
    if (a == aEnd || b == bEnd) return;
    const std::vector<Pair> anchors = depth < Deepest ? AnchorsIn(a, aEnd, b, bEnd) : std::vector<Pair>();
    if (anchors.empty()) {
      for (const Pair& pair : SeriesFinder(a_.subspan(a, aEnd - a), b_.subspan(b, bEnd - b)).Find()) {
        pairs_.push_back({a + pair.A, b + pair.B});
      }
      return;
    }
    for (const Pair& anchor : anchors) {
      Range(a, anchor.A, b, anchor.B, depth + 1);
      pairs_.push_back(anchor);
      a = anchor.A + 1;
      b = anchor.B + 1;
    }
    Range(a, aEnd, b, bEnd, depth + 1);
  }

  // Elements that stand exactly once on each side.
  std::vector<Pair> AnchorsIn(std::size_t a, std::size_t aEnd, std::size_t b, std::size_t bEnd) const {
    struct Seen {
      std::size_t CountA = 0, CountB = 0, B = 0;
    };
    std::unordered_map<std::uint32_t, Seen> seen;
    for (std::size_t i = a; i < aEnd; ++i) ++seen[a_[i]].CountA;
    for (std::size_t i = b; i < bEnd; ++i) {
      Seen& element = seen[b_[i]];
      ++element.CountB;
      element.B = i;
    }
    std::vector<Pair> unique;
    for (std::size_t i = a; i < aEnd; ++i) {
      const Seen& element = seen[a_[i]];
      if (element.CountA == 1 && element.CountB == 1) unique.push_back({i, element.B});
    }
    return LongestAscending(unique);
  }

  Keys a_, b_;
  std::vector<Pair> pairs_;
};

}  // namespace

std::vector<Pair> LongestAscending(const std::vector<Pair>& pairs) {
  std::vector<std::size_t> ends;  // by length: the pair with the lowest B that ends one
  std::vector<std::size_t> previous(pairs.size(), pairs.size());
  for (std::size_t i = 0; i < pairs.size(); ++i) {
    const auto at = std::ranges::lower_bound(ends, pairs[i].B, {}, [&](std::size_t e) { return pairs[e].B; });
    if (at != ends.begin()) previous[i] = *(at - 1);
    if (at == ends.end()) {
      ends.push_back(i);
    } else {
      *at = i;
    }
  }
  std::vector<Pair> series;
  for (std::size_t i = ends.empty() ? pairs.size() : ends.back(); i < pairs.size(); i = previous[i]) {
    series.push_back(pairs[i]);
  }
  std::ranges::reverse(series);
  return series;
}

std::vector<Pair> Align(const std::vector<std::uint32_t>& a, const std::vector<std::uint32_t>& b) {
  return Aligner(a, b).Run();
}

}  // namespace formwizard::vbtext
