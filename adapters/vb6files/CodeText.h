// The code of a module: lines that end in CRLF, in the project's code page.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace formwizard::adapters::vb6files {

// The names of the procedures in a text, in its order and spelling; a property has one a procedure.
std::vector<std::string_view> ProceduresIn(std::string_view code);

// Whether a text has a line that is more than blanks, a comment or an option.
bool HoldsCode(std::string_view code);

class CodeText {
 public:
  CodeText() = default;
  // Code as a file holds it; kept byte for byte.
  explicit CodeText(std::string bytes);

  std::size_t CountOfLines() const { return starts_.size(); }
  // Before the one-based line; past the end it appends. The text's CRLFs separate lines, so a text that ends in CRLF
  // leaves an empty line after it. The line end of an unfinished last line is added when text goes behind it.
  void Insert(std::size_t line, std::string_view text);
  // Whether a Sub, Function or Property of this name stands in the code; in any case of its letters.
  bool HasProcedure(std::string_view name) const;

  const std::string& Bytes() const { return bytes_; }

 private:
  void IndexLines(std::size_t from);
  void NoteProcedures(std::string_view text);

  std::string bytes_;
  std::vector<std::size_t> starts_;             // where each line begins
  std::unordered_set<std::string> procedures_;  // in lower case
};

}  // namespace formwizard::adapters::vb6files
