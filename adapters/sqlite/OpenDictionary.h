// Opens the file of a class dictionary.
#pragma once

#include "adapters/sqlite/Database.h"

#include <string>

namespace formwizard::adapters::sqlite {

// support::InputError, naming the file and the remedy, for a file that is missing or no dictionary of this version.
Database OpenDictionaryFile(const std::string& path);

bool IsDictionary(const std::string& path);

}  // namespace formwizard::adapters::sqlite
