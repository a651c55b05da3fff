// The tab order of a merged form.
#pragma once

#include "merge/Documents.h"
#include "merge/Options.h"

#include <optional>
#include <string>
#include <string_view>

namespace formwizard::merge {

// The form, a file as merged and the same taken apart, with its tab indexes counted anew where both sides' order asks
// for it. Where both changed the order, each in its way, that of the side that is chosen holds; nothing when none is.
std::optional<std::string> WithTabOrder(std::string_view merged, const vbtext::Document& document,
                                        const Documents& documents, Choice choice);

}  // namespace formwizard::merge
