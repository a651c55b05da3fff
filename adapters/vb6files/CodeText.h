// The code of a module: lines that end in CRLF, in the project's code page.
#pragma once

#include "adapters/vb6files/Caseless.h"
#include "adapters/vb6files/Texts.h"

#include <cstddef>
#include <memory_resource>
#include <optional>
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
  // Code as a file holds it, kept byte for byte, in the place of what stands here.
  void Load(std::string bytes);

  std::size_t CountOfLines() const { return lines_; }
  // Before the one-based line; past the end it appends. The text's CRLFs separate lines, so a text that ends in CRLF
  // leaves an empty line after it. The line end of an unfinished last line is added when text goes behind it.
  void Insert(std::size_t line, std::string_view text);
  // Appends an empty line and a Sub without lines of its own, which handles an object's event, and returns the
  // one-based line where it begins; nothing when the code has a procedure of its name, in any case of its letters.
  std::optional<std::size_t> AppendHandler(std::string_view object, std::string_view event,
                                           std::string_view parameters);

  const std::string& Bytes() const { return bytes_; }
  // Whether a procedure stands twice, of a property also in two parts.
  bool HasNameTwice() const { return hasNameTwice_; }

 private:
  void NoteNew(std::string_view text);
  void PrepareEnd();
  std::size_t StartOf(std::size_t line) const;

  static constexpr std::size_t MostOften = 32768;  // bytes of a form's code: it need not grow piece by piece

  std::string bytes_;
  std::size_t lines_ = 0;
  bool hasNameTwice_ = false;
  Texts texts_{8192};  // of the procedures, with all that follows
  std::pmr::unordered_set<std::string_view, CaselessHash, CaselessEqual> procedures_{64, &texts_};
};

}  // namespace formwizard::adapters::vb6files
