// Which lines of code are equal to the environment, whatever it does to their spelling when it saves.
#pragma once

#include "vbtext/Lines.h"
#include "vbtext/Tokens.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace formwizard::vbtext {

// Lines with the same key are equal, others are not; the key of a line that is empty is EmptyLine.
using LineKey = std::uint32_t;
constexpr LineKey EmptyLine = 0;

// What is the same for all spellings of a line: names in any case of their letters, "EndIf" for "End If", any blanks
// between tokens and at the ends of the line. Every byte of a string counts, and of a comment but for blanks behind it.
void AppendSpelling(const std::vector<Token>& line, std::string& to);

// Keys of the texts that are compared with one another: all are made by one object, which the texts must outlive.
class LineKeys {
 public:
  // A line of code each; the first one does not go on from the line before it.
  std::vector<LineKey> Of(std::span<const Line> lines);
  std::vector<LineKey> Of(const std::vector<Line>& lines, LineRange range) {
    return Of(std::span(lines).subspan(range.First, range.Count()));
  }
  // Of a text that is compared byte by byte.
  LineKey OfExact(std::string_view text) { return Number(std::string(text)); }

 private:
  LineKey Number(std::string spelling);

  std::unordered_map<std::string_view, LineKey> known_;  // lines as they are written, most of which stand in all texts
  std::unordered_map<std::string, LineKey> numbers_;
};

}  // namespace formwizard::vbtext
