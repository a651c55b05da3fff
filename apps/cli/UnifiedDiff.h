// Differences of two texts in the unified format.
#pragma once

#include <string>
#include <string_view>

namespace formwizard::apps::cli {

// Empty when the texts are equal. A missing file is given as the empty text and the name "/dev/null". Lines keep their
// bytes; three lines of context.
std::string UnifiedDiff(std::string_view oldName, std::string_view oldText, std::string_view newName,
                        std::string_view newText);

}  // namespace formwizard::apps::cli
