// A file of a project as a whole: its head, the tree of its form, its attributes and its code.
#pragma once

#include "vbtext/Code.h"
#include "vbtext/Header.h"
#include "vbtext/Lines.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace formwizard::vbtext {

enum class FileKind {
  Form,     // .frm, .ctl, .pag, .dob: "VERSION 5.00" and a tree
  Class,    // .cls: "VERSION 1.0 CLASS"
  Module,   // .bas: code behind "Attribute VB_Name"
  Project,  // .vbp
  Unknown,
};

// From the ending of a name, in any letter case; Unknown for any other.
FileKind KindOfName(std::string_view path);
// From its first lines.
FileKind KindOfText(const std::vector<Line>& lines);

// A form, class or module. Refers to the text that was read, which must live as long.
struct Document {
  FileKind Kind = FileKind::Unknown;
  std::vector<Line> Lines;
  LineRange Head;  // "VERSION" and "Object =" lines
  std::optional<HeaderNode> Root;
  LineRange Attributes;  // those that stand before the code
  LineRange CodeLines;
  Module Code;
};

// Throws Fault for a text of another kind, or one that broke off. Code that is not balanced is no fault: see
// Module::Wrong.
Document DocumentOf(std::string_view text);
// The same without the sections of its code, several times faster.
Document DocumentWithoutSections(std::string_view text);

}  // namespace formwizard::vbtext
