// The lines of code as the language counts them: each with those that it goes on in.
#pragma once

#include "vbtext/Lines.h"
#include "vbtext/Tokens.h"

#include <cstddef>
#include <span>
#include <string_view>
#include <vector>

namespace formwizard::vbtext {

struct LogicalLine {
  LineRange Lines;
  std::vector<Token> Tokens;  // without the marks of the continuations
};

class LogicalLines {
 public:
  // Those that begin in the range, which ends where no line goes on; `lines` must outlive this object.
  LogicalLines(const std::vector<Line>& lines, LineRange range) : lines_(lines), range_(range) {}

  // False at the end. The tokens refer to the text of the lines.
  bool Next(LogicalLine& line);
  // Goes on behind the next lines that are of this kind, none of which may go on in another; where the rest begins.
  std::size_t SkipWhile(bool (*isOfKind)(std::string_view line)) {
    while (range_.First < range_.Behind && isOfKind(lines_[range_.First].Text)) ++range_.First;
    return range_.First;
  }

 private:
  const std::vector<Line>& lines_;
  LineRange range_;  // from First on nothing is read yet
  Tokenizer tokenizer_;
};

using Statement = std::span<const Token>;

// The text of a token; empty behind the last one.
std::string_view WordIn(Statement statement, std::size_t at);
// Whether a line is #If, #ElseIf, #Else or #End If.
bool IsDirective(Statement line);

}  // namespace formwizard::vbtext
