// Opens the file of a class dictionary.
#pragma once

#include "adapters/sqlite/Database.h"
#include "wizard/factory/Dictionary.h"

#include <functional>
#include <string>

namespace formwizard::adapters::sqlite {

// support::InputError, naming the file and the remedy, for a file that is missing, cannot be read, or is no dictionary
// of this version with exactly the tables that such a one has.
Database OpenDictionaryFile(const std::string& path);

// A database without a name that holds what `fill` adds.
Database FilledDatabase(const std::string& shown, const std::function<void(wizard::factory::DictionaryStore&)>& fill);

}  // namespace formwizard::adapters::sqlite
