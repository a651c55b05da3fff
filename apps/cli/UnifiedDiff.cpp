#include "apps/cli/UnifiedDiff.h"

#include <algorithm>
#include <unordered_map>
#include <vector>

namespace formwizard::apps::cli {
namespace {

using Lines = std::vector<std::string_view>;

constexpr std::size_t Context = 3;

Lines LinesOf(std::string_view text) {
  Lines lines;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find('\n'), text.size() - 1) + 1;
    lines.push_back(text.substr(0, end));
    text.remove_prefix(end);
  }
  return lines;
}

// A line of the result: ' ' stands in both texts, '-' in the old one, '+' in the new one.
struct Edit {
  char Kind;
  std::string_view Line;
};

// Between the anchors, lines that stand exactly once in each text, everything old goes and everything new comes. That
// takes linear time but for the search among the anchors, and serves files that are edited in few places.
class Differ {
 public:
  Differ(const Lines& before, const Lines& after) : before_(before), after_(after) {}

  std::vector<Edit> Run() {
    Range(0, before_.size(), 0, after_.size());
    return std::move(edits_);
  }

 private:
  struct Anchor {
    std::size_t Before, After;
  };

  void Range(std::size_t b, std::size_t bEnd, std::size_t a, std::size_t aEnd) {
    while (b < bEnd && a < aEnd && before_[b] == after_[a]) Keep(b++, a++);
    std::size_t tail = 0;
    while (b < bEnd - tail && a < aEnd - tail && before_[bEnd - tail - 1] == after_[aEnd - tail - 1]) ++tail;
    Middle(b, bEnd - tail, a, aEnd - tail);
    for (; tail > 0; --tail) edits_.push_back({' ', before_[bEnd - tail]});
  }

  void Middle(std::size_t b, std::size_t bEnd, std::size_t a, std::size_t aEnd) {
    const std::vector<Anchor> anchors = AnchorsIn(b, bEnd, a, aEnd);
    for (const Anchor& anchor : anchors) {
      Range(b, anchor.Before, a, anchor.After);
      Keep(anchor.Before, anchor.After);
      b = anchor.Before + 1;
      a = anchor.After + 1;
    }
    if (!anchors.empty()) {
      Range(b, bEnd, a, aEnd);
      return;
    }
    for (; b < bEnd; ++b) edits_.push_back({'-', before_[b]});
    for (; a < aEnd; ++a) edits_.push_back({'+', after_[a]});
  }

  // The longest series of lines that are unique on both sides and ascend on both.
  std::vector<Anchor> AnchorsIn(std::size_t b, std::size_t bEnd, std::size_t a, std::size_t aEnd) const {
    struct Seen {
      std::size_t CountBefore = 0, CountAfter = 0, After = 0;
    };
    std::unordered_map<std::string_view, Seen> seen;
    for (std::size_t i = b; i < bEnd; ++i) ++seen[before_[i]].CountBefore;
    for (std::size_t i = a; i < aEnd; ++i) {
      Seen& line = seen[after_[i]];
      ++line.CountAfter;
      line.After = i;
    }
    std::vector<Anchor> unique;
    for (std::size_t i = b; i < bEnd; ++i) {
      const Seen& line = seen[before_[i]];
      if (line.CountBefore == 1 && line.CountAfter == 1) unique.push_back({i, line.After});
    }
    return LongestAscending(unique);
  }

  static std::vector<Anchor> LongestAscending(const std::vector<Anchor>& all) {
    std::vector<std::size_t> ends;  // by length: the anchor with the lowest After that ends one
    std::vector<std::size_t> previous(all.size(), all.size());
    for (std::size_t i = 0; i < all.size(); ++i) {
      const auto at = std::ranges::lower_bound(ends, all[i].After, {}, [&](std::size_t e) { return all[e].After; });
      if (at != ends.begin()) previous[i] = *(at - 1);
      if (at == ends.end()) {
        ends.push_back(i);
      } else {
        *at = i;
      }
    }
    std::vector<Anchor> series;
    for (std::size_t i = ends.empty() ? all.size() : ends.back(); i < all.size(); i = previous[i]) {
      series.push_back(all[i]);
    }
    std::ranges::reverse(series);
    return series;
  }

  void Keep(std::size_t b, std::size_t) { edits_.push_back({' ', before_[b]}); }

  const Lines& before_;
  const Lines& after_;
  std::vector<Edit> edits_;
};

std::string RangeText(std::size_t start, std::size_t count) {
  std::string text = std::to_string(count == 0 ? start : start + 1);
  if (count != 1) text += "," + std::to_string(count);
  return text;
}

void AppendLine(std::string& text, const Edit& edit) {
  text += edit.Kind;
  text += edit.Line;
  if (!edit.Line.ends_with('\n')) text += "\n\\ No newline at end of file\n";
}

// One hunk: edits [from, to), whose first stands at these line offsets.
void AppendHunk(std::string& text, const std::vector<Edit>& edits, std::size_t from, std::size_t to,
                std::size_t oldStart, std::size_t newStart) {
  const auto count = [&](char other) {
    return static_cast<std::size_t>(std::count_if(edits.begin() + static_cast<std::ptrdiff_t>(from),
                                                  edits.begin() + static_cast<std::ptrdiff_t>(to),
                                                  [&](const Edit& e) { return e.Kind != other; }));
  };
  text += "@@ -" + RangeText(oldStart, count('+')) + " +" + RangeText(newStart, count('-')) + " @@\n";
  for (std::size_t i = from; i < to; ++i) AppendLine(text, edits[i]);
}

}  // namespace

std::string UnifiedDiff(std::string_view oldName, std::string_view oldText, std::string_view newName,
                        std::string_view newText) {
  if (oldText == newText) return "";
  const Lines before = LinesOf(oldText);
  const Lines after = LinesOf(newText);
  const std::vector<Edit> edits = Differ(before, after).Run();

  std::string text = "--- " + std::string(oldName) + "\n+++ " + std::string(newName) + "\n";
  std::size_t oldLine = 0;
  std::size_t newLine = 0;
  for (std::size_t i = 0; i < edits.size();) {
    if (edits[i].Kind == ' ') {
      ++oldLine, ++newLine, ++i;
      continue;
    }
    const std::size_t lead = std::min(Context, i);
    std::size_t end = i;  // behind the last change of the hunk
    for (std::size_t j = i; j < edits.size() && j <= end + 2 * Context; ++j) {
      if (edits[j].Kind != ' ') end = j + 1;
    }
    const std::size_t to = std::min(end + Context, edits.size());
    // Changes further back than the lead would have been in the hunk before.
    AppendHunk(text, edits, i - lead, to, oldLine - lead, newLine - lead);
    for (; i < to; ++i) {
      if (edits[i].Kind != '+') ++oldLine;
      if (edits[i].Kind != '-') ++newLine;
    }
  }
  return text;
}

}  // namespace formwizard::apps::cli
