// A form file as a tree to look at: the form, its controls and menus with their properties, and the code.
#pragma once

#include "system/CodePage.h"
#include "system/FileSystem.h"

#include <string>
#include <string_view>
#include <vector>

namespace formwizard::adapters::vb6files {

// All texts are UTF-8. A value has neither its quotes nor the comment behind it; a member of a group goes by the
// group's name and its own, as "Font.Size".
struct NodeProperty {
  std::string Name, Value;
};

// A picture that the companion file holds, as the bytes of the file that it was made from.
struct NodePicture {
  std::string Property, Bytes;
};

struct FormNode {
  std::string Class;  // "VB.Label"
  std::string Name;
  // In file order. A text that the companion file holds stands here itself, the items of a list one a line (CRLF); what
  // is no text there, such as a picture, keeps its reference: "frmX.frx":0000.
  std::vector<NodeProperty> Properties;
  std::vector<NodePicture> Pictures;
  std::vector<FormNode> Children;  // in file order: in each layer the front of the z-order first, menus last

  // Names in any letter case. Null when the file does not have the property.
  const std::string* Find(std::string_view property) const;
  std::string Text(std::string_view property, const std::string& missing = "") const;
  // Always finite; colours such as &H8000000F& are numbers from 0.
  double Number(std::string_view property, double missing = 0) const;
  bool Flag(std::string_view property, bool missing = false) const;
};

struct FormTree {
  FormNode Form;
  std::string Code;  // what follows the attributes, CRLF line ends
};

// `frx` holds the bytes of the companion file, empty when there is none. support::InputError, naming `path` and the
// line, for a text that is no form or nests deeper than any form.
FormTree ReadFormTree(const std::string& path, std::string_view frm, std::string_view frx,
                      const system::CodePage& codePage);

// The form file with the .frx beside it; support::InputError also when it cannot be read.
FormTree ReadFormFile(const system::FileSystem& files, const std::string& path, const system::CodePage& codePage);

}  // namespace formwizard::adapters::vb6files
