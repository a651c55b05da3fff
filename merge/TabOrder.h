// The tab order of a merged form.
#pragma once

#include "merge/HeaderMerge.h"

#include <optional>
#include <string>

namespace formwizard::merge {

// The form, a file as merged, with its tab indexes counted anew where both sides' order asks for it. Where both changed
// the order, each in its way, that of the side that is chosen holds; nothing when none is.
std::optional<std::string> WithTabOrder(std::string merged, const Documents& documents, Choice choice);

}  // namespace formwizard::merge
