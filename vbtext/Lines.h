// A text as lines, each with the end that it has.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace formwizard::vbtext {

struct Line {
  std::string_view Text, End;  // End: "\r\n", "\n", or nothing for a last line without one

  // Both, which stand behind one another.
  std::string_view Whole() const { return {Text.data(), Text.size() + End.size()}; }
};

// Lines from First on, as far as before Behind; both count from 0.
struct LineRange {
  std::size_t First = 0, Behind = 0;

  std::size_t Count() const { return Behind - First; }
  bool Holds(std::size_t line) const { return line >= First && line < Behind; }
};

// No place in a row.
constexpr std::size_t None = static_cast<std::size_t>(-1);

// A place where a text is not what it should be. Thrown where the reading cannot go on.
struct Fault {
  std::size_t Line;      // counts from 0
  std::string Expected;  // "\"End Sub\""
};

// In order and without a gap; none for the empty text. They refer to `text`.
std::vector<Line> LinesOf(std::string_view text);

// A text that is split into lines only as far as they are asked for. They refer to the text.
class GrowingLines {
 public:
  explicit GrowingLines(std::string_view text);

  // Whether the text has a line at this place, which is at most the one behind those that there are so far.
  bool Has(std::size_t line) {
    if (line == lines_.size() && !rest_.empty()) Split();
    return line < lines_.size();
  }
  std::string_view TextAt(std::size_t line) const { return lines_[line].Text; }
  const std::vector<Line>& SoFar() const { return lines_; }
  std::vector<Line> Take() { return std::move(lines_); }

 private:
  void Split();

  std::vector<Line> lines_;
  std::string_view rest_;  // not split yet
};

// Adds the lines of a text that stands behind them.
void AppendLines(std::string_view text, std::vector<Line>& lines);

// The bytes from the first line of the range to the end of its last.
std::string_view TextOf(const std::vector<Line>& lines, LineRange range);

}  // namespace formwizard::vbtext
