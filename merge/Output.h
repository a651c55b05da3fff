// The text that comes out of a merge.
#pragma once

#include "merge/Options.h"
#include "vbtext/Lines.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace formwizard::merge {

class Output {
 public:
  // `mine` tells which line ends the result has. Both must outlive this object.
  Output(std::string_view mine, const Options& options);

  // As they are.
  void AddMine(std::string_view lines);
  // With the line ends of mine.
  void AddTheirs(std::string_view lines);
  // Three texts of whole lines, of which one will do if the options say so.
  void AddConflict(std::string name, std::string_view mine, std::string_view base, std::string_view theirs);
  void AddNote(std::string note) { merged_.Notes.push_back(std::move(note)); }

  const Options& Chosen() const { return options_; }
  Merged Take() { return std::move(merged_); }

 private:
  std::string_view LineEnd();
  void EndLine();
  void Mark(char sign, std::string_view label);
  std::size_t CountOfLines();

  std::string_view mine_;
  std::string_view lineEnd_;  // of the result; empty as long as nobody has asked
  const Options& options_;
  Merged merged_;
  std::size_t counted_ = 0, lines_ = 0;  // line ends among so many bytes of the result
};

// Whether all line ends of the text are this one, "\r\n" or "\n".
bool HasLineEnds(std::string_view text, std::string_view lineEnd);
// The text with all its line ends made this one.
std::string WithLineEnds(std::string_view text, std::string_view lineEnd);

}  // namespace formwizard::merge
