// Which form descriptions a run takes, in their order.
#pragma once

#include <string>
#include <vector>

namespace formwizard::apps::cli {

// The files that are named, then those of the list, a file with one path a line ("-" for standard input, empty for
// none); system::LargestList bytes at most. A folder among them stands for the files in it that end in ".json", in the
// order of their names, without hidden ones. support::InputError for a list or a folder that cannot be read or names
// nothing, and when standard input would be a list and a description.
std::vector<std::string> DescriptionFiles(std::vector<std::string> named, const std::string& list);

}  // namespace formwizard::apps::cli
