#include "apps/cli/Difference.h"

#include "runtime/Conversions.h"
#include "support/Messages.h"

#include <algorithm>
#include <string_view>

namespace formwizard::apps::cli {
namespace {

constexpr std::size_t LongestShown = 60;  // bytes of a line

// The line that begins there.
std::string LineAt(std::string_view text, std::size_t begin, const system::CodePage& codePage) {
  text.remove_prefix(std::min(begin, text.size()));
  std::string_view line = text.substr(0, text.find_first_of("\r\n"));
  line = runtime::Trimmed(line, " \t");
  return line.size() <= LongestShown ? codePage.Decode(line) : codePage.Decode(line.substr(0, LongestShown)) + "...";
}

std::string Quoted(const std::string& line) { return line.empty() ? "nothing" : '"' + support::Escaped(line) + '"'; }

}  // namespace

Difference FirstDifference(const adapters::vb6files::FileChange& change, const system::CodePage& codePage) {
  Difference difference{change.Path, change.Old.has_value(), 0, "", ""};
  const bool isText = !runtime::EqualIgnoringCase(std::string_view(change.Path).substr(change.Path.size() - 4), ".frx");
  if (!change.Old || !change.New || !isText) return difference;
  const auto same = std::ranges::mismatch(*change.Old, *change.New).in1 - change.Old->begin();
  const std::string_view before = std::string_view(*change.Old).substr(0, static_cast<std::size_t>(same));
  const std::size_t begin = before.rfind('\n') + 1;  // the same in both texts
  difference.Line = 1 + static_cast<std::size_t>(std::ranges::count(before, '\n'));
  difference.Found = LineAt(*change.Old, begin, codePage);
  difference.Expected = LineAt(*change.New, begin, codePage);
  return difference;
}

std::string LineOf(const Difference& difference) {
  const std::string file = support::Escaped(difference.File);
  if (!difference.IsThere) return file + ": is not there\n";
  if (difference.Line == 0) return file + ": has other bytes\n";
  return file + ":" + std::to_string(difference.Line) + ": has " + Quoted(difference.Found) + " instead of " +
         Quoted(difference.Expected) + '\n';
}

}  // namespace formwizard::apps::cli
