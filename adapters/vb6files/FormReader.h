// Takes the text of a form file apart.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace formwizard::adapters::vb6files {

// One property of the form itself: a line, or a group from BeginProperty to EndProperty, as it stands in the file.
struct FormProperty {
  std::string Name;
  std::string Lines;
};

// Every text is bytes as in the file, with CRLF line ends whatever the file has.
struct FormParts {
  std::vector<std::string> HeadLines;  // VERSION and Object lines
  std::string Class;                   // "VB.Form"
  std::string Name;                    // the form's, as its Attribute VB_Name spells it
  std::vector<FormProperty> Properties;
  std::size_t ControlCount = 0;  // controls and menus at any depth
  std::vector<std::string> AttributeLines;
  std::string Code;
};

// support::InputError, naming `path` and the line, for a text that is no form.
FormParts ReadForm(const std::string& path, std::string_view frm);

// Whether a line is the attribute that gives the name, in any case of its letters.
bool IsNameAttribute(std::string_view line);

// The name in the first "Begin Class Name" line of a form's first bytes, or after "Attribute VB_Name" of another
// component's; empty when neither is there.
std::string_view ReadComponentName(std::string_view head);

}  // namespace formwizard::adapters::vb6files
