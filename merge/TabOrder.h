// The tab order of a merged form.
#pragma once

#include "merge/HeaderMerge.h"

#include <optional>
#include <string>

namespace formwizard::merge {

// The form, a file as merged, with its tab indexes counted anew where both sides' order asks for it. Nothing when both
// sides changed the order, each in its way.
std::optional<std::string> WithTabOrder(std::string merged, const Documents& documents);

}  // namespace formwizard::merge
