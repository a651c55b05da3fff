// The control libraries that a generated form needs, and how a project refers to each.
#pragma once

#include "adapters/vb6files/ControlLibraries.h"
#include "system/FileSystem.h"

#include <string>
#include <string_view>
#include <vector>

namespace formwizard::adapters::vb6files {

class Toolbox {
 public:
  // `file` is an INI-format text: section [Toolbox], key a ProgID, value what stands behind "Object=" in a project that
  // uses the control; or, when its name ends in ".vbp", a project that uses the query control. Empty: no such file.
  // support::InputError for a file that is missing or damaged, and for a project that does not use the control.
  Toolbox(const system::FileSystem& files, std::string file);

  // The library of a control class, as a project refers to it; error 363, saying what to supply and how, when it is not
  // known.
  ObjectReference Find(std::string_view progId) const;

  // Of the controls that it knows.
  std::vector<std::string> ProgIds() const;

  // An "Object=" value, with the library that it is known to be.
  ObjectReference Parse(std::string_view value) const;
  // The library of a ProgID or class; empty for an unknown one.
  static std::string_view LibraryOf(std::string_view progId);

 private:
  struct Entry {
    std::string ProgId;
    ObjectReference Reference;
  };

  void ReadProject(std::string text);
  void ReadEntries(std::string_view rest);
  void ReadEntry(std::string_view raw, int number);

  std::string file_;
  std::vector<Entry> entries_;
};

}  // namespace formwizard::adapters::vb6files
