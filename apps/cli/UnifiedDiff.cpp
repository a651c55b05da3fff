#include "apps/cli/UnifiedDiff.h"

#include "vbtext/Alignment.h"

#include <algorithm>
#include <cstdint>
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

std::vector<Edit> EditsOf(const Lines& before, const Lines& after) {
  std::unordered_map<std::string_view, std::uint32_t> numbers;  // equal lines have the same
  const auto numbered = [&](const Lines& lines) {
    std::vector<std::uint32_t> result;
    for (const std::string_view line : lines) {
      result.push_back(numbers.try_emplace(line, static_cast<std::uint32_t>(numbers.size())).first->second);
    }
    return result;
  };
  const std::vector<std::uint32_t> a = numbered(before), b = numbered(after);

  std::vector<Edit> edits;
  std::size_t i = 0, j = 0;
  const auto changeUpTo = [&](const vbtext::Pair& next) {
    for (; i < next.A; ++i) edits.push_back({'-', before[i]});
    for (; j < next.B; ++j) edits.push_back({'+', after[j]});
  };
  for (const vbtext::Pair& same : vbtext::Align(a, b)) {
    changeUpTo(same);
    edits.push_back({' ', before[i]});
    ++i, ++j;
  }
  changeUpTo({before.size(), after.size()});
  return edits;
}

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
  const std::vector<Edit> edits = EditsOf(before, after);

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
