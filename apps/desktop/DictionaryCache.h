// Dictionaries in JSON, imported so that they can be opened.
#pragma once

#include <string>

namespace formwizard::apps::desktop {

// The dictionary to open for a file: itself, or for JSON what was made of it in the folder, which is made again when
// the file's time or size is another. support::InputError for what is wrong in the JSON.
std::string DictionaryToOpen(const std::string& path, const std::string& folder);

}  // namespace formwizard::apps::desktop
