// A file of a Visual Basic project that a user names, with the .frx beside it.
#pragma once

#include "vbtext/Document.h"

#include <optional>
#include <string>

namespace formwizard::apps::cli {

struct VisualBasicFile {
  std::string Path, Bytes;
  std::optional<std::string> Records;  // the .frx; nothing when there is none
};

// support::InputError when the file, or a .frx that is there, cannot be read.
VisualBasicFile ReadVisualBasicFile(const std::string& path);

// A form, class or module. Refers to `file`. support::InputError, naming the line, for a text that is none of them.
vbtext::Document DocumentIn(const VisualBasicFile& file);

// Its kind by its name, else by its first lines.
vbtext::FileKind KindOf(const VisualBasicFile& file);

// "frmPerson.frm:12"; `line` counts from 0.
std::string PlaceOf(const std::string& path, std::size_t line);

}  // namespace formwizard::apps::cli
