// What differs between two files of a project, as the environment sees it.
#pragma once

#include "vbtext/Document.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace formwizard::vbtext {

enum class Change { Added, Removed, Changed, Renamed, Moved };

// "added", and so on.
std::string_view Word(Change change);

struct Difference {
  Change Kind;
  std::string_view What;  // "control", "property", "procedure", "declaration" and the like
  std::string Name;       // "cmdOK.Caption", "Sub cmdOK_Click"; a thing that was renamed or moved: what it was and is
  // Where it stands, from 0; nothing where it does not stand. For a procedure that changed, the lines that did.
  std::optional<LineRange> A, B;
};

// A file and the .frx beside it, which is nothing when it is not there or cannot be read.
struct Compared {
  const Document& File;
  std::optional<std::string_view> Records;
};

// In the order of the file: head, controls, attributes, code. Empty when the environment could have made one of the
// other by saving it.
std::vector<Difference> Compare(const Compared& a, const Compared& b);

}  // namespace formwizard::vbtext
