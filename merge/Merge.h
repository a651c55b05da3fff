// Merges what two sides made of one file.
#pragma once

#include "merge/Options.h"
#include "vbtext/Document.h"

#include <string_view>

namespace formwizard::merge {

// By what the file says: controls, properties, declarations, procedures and the lines in them, the items of a project.
// Lines alone would not do: where one side took a procedure out, its "End Sub" is as good as the next one's, and what
// the other side wrote before it ends up in another procedure. Mine's spelling, order and line ends stay wherever
// theirs has nothing new. What cannot be read is merged by line.
Merged Merge(std::string_view base, std::string_view mine, std::string_view theirs, vbtext::FileKind kind,
             const Options& options);

}  // namespace formwizard::merge
