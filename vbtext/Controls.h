// The controls of a form in a row, and which one of a form is which one of another.
#pragma once

#include "vbtext/Header.h"
#include "vbtext/Lines.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace formwizard::vbtext {

struct Control {
  const HeaderNode* Node;
  std::size_t Parent;  // its place in the row; None for the form
  std::string Key;     // name and index, which no two controls share
};

// The form first, each control before its children, in file order.
std::vector<Control> ControlsOf(const HeaderNode& form);

// "txtName", "optKind(2)".
std::string NameOf(const HeaderNode& control);
// The same for all spellings of it.
std::string KeyOf(const HeaderNode& control);

// For each control of `a` the place of the same one in `b`, or None: by name and index; then by name, where an index
// came or went; then, renamed, by class, container and properties, where only one will do. The forms are always the
// same.
std::vector<std::size_t> MatchControls(const std::vector<Control>& a, const std::vector<Control>& b);

}  // namespace formwizard::vbtext
