// The tree that a form, control, page or class file begins with: "Begin ... End" and what stands in it, as lines.
#pragma once

#include "vbtext/Lines.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace formwizard::vbtext {

// All texts are bytes of the text that was read. Line numbers count from 0.
struct HeaderProperty {
  std::string_view Name, Value;  // Value: without the comment behind it, with quotes; of a group what follows its name
  LineRange Lines;               // of a group from BeginProperty to EndProperty
  std::vector<HeaderProperty> Members;
  bool IsGroup = false;
};

struct HeaderNode {
  std::string_view Class, Name;            // "VB.Label"; both empty in a class module
  LineRange Lines;                         // from Begin to End
  std::vector<HeaderProperty> Properties;  // in file order, as the children
  std::vector<HeaderNode> Children;

  // Names in any letter case. Null when there is none.
  const HeaderProperty* Find(std::string_view property) const;
};

// One deeper than the deepest form seen by far; a text of brackets alone must not use up the stack.
constexpr int DeepestNesting = 64;

// The tree whose "Begin" stands at line `first`, of which no line behind its "End" is asked for. Throws Fault.
HeaderNode HeaderAt(GrowingLines& lines, std::size_t first);
// The place behind it, for which no tree is made. Throws Fault in the same cases.
std::size_t EndOfHeaderAt(GrowingLines& lines, std::size_t first);

// The n-th word of a line, counted from 0, and whether it is this one in any case of its letters.
std::string_view WordOf(std::string_view line, int n);
bool BeginsWith(std::string_view line, std::string_view word);

// A quoted text without its quotes, inner ones no longer doubled; `end` becomes the place behind the closing one.
std::string Unquoted(std::string_view value, std::size_t& end);

}  // namespace formwizard::vbtext
