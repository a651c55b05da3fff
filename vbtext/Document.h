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
  LineRange CodeLines;   // all that stand behind them
  Module Code;
};

// Throws Fault for a text of another kind, or one that broke off. Code that is not balanced is no fault: see
// Module::Wrong.
Document DocumentOf(std::string_view text);
// The same without its code: its lines end where that begins. Several times faster.
Document DocumentWithoutCode(std::string_view text);
// Gives it the code, which stands in the same text.
void ReadCode(std::string_view text, Document& document);
// Where the code begins, in bytes, for which nothing is taken apart. Throws Fault in the same cases.
std::size_t StartOfCode(std::string_view text);
// The same of a document.
std::size_t StartOfCode(const Document& document);

}  // namespace formwizard::vbtext
