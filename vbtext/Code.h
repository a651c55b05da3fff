// The code of a module, taken apart into declarations and procedures.
#pragma once

#include "vbtext/Lines.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace formwizard::vbtext {

enum class SectionKind {
  Declaration,  // one statement, or a Type or Enum with all its lines
  Procedure,    // with the comments and empty lines before it, and hidden attributes
  Directive,    // #If, #ElseIf, #Else or #End If outside of a procedure
  Remark,       // comments and empty lines that belong to no procedure
};

// The texts refer to the text that was read.
struct Section {
  SectionKind Kind;
  std::string_view Name;  // of the procedure, or what a declaration declares first; else empty
  std::string_view Word;  // "Sub", "Function", "Get", "Let", "Set"; of a declaration the first word behind its scope
  std::string Branch;     // the conditions of the #If branches around it, outermost first; empty outside of any
  LineRange Lines;        // all that belongs to it
  LineRange Body;         // without what stands before a procedure: from its first line to "End Sub"
};

struct Module {
  std::vector<Section> Sections;  // in order; together they have all lines
  // The first one. The sections behind it are a guess.
  std::optional<Fault> Wrong;
};

// Lines from `from` on; all numbers of lines count in `lines`.
Module ModuleOf(const std::vector<Line>& lines, std::size_t from = 0);

}  // namespace formwizard::vbtext
