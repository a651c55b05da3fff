// A class dictionary in a SQLite file: how it is made, and the server that it plays.
#pragma once

#include "wizard/factory/Dictionary.h"
#include "wizard/factory/Factory.h"

#include <functional>
#include <memory>
#include <string>

namespace formwizard::adapters::sqlite {

// What may stand in the place of a new dictionary and be replaced by it: a dictionary, or any file.
enum class Replacing { Dictionaries, AnyFile };

// Makes the file `target` of the rows that `fill` adds. What stands there is replaced as a whole when all of them are
// in, and not touched otherwise. support::InputError for what must not be replaced, support::SaveError when the file
// cannot be written; what `fill` throws comes through.
void MakeDictionary(const std::string& target, Replacing replacing,
                    const std::function<void(wizard::factory::DictionaryStore&)>& fill);

// Whether the file is a dictionary, also one that is damaged or of another version.
bool LooksLikeDictionary(const std::string& path);

// The server of the dictionary: its systems, and result sets on their classes, properties and queries, which know the
// names of parameters (NamedParameters). All factories that it creates share the open file. support::InputError for a
// file that is no dictionary; later for one that cannot be read further.
std::unique_ptr<wizard::factory::FactoryCreator> OpenDictionary(const std::string& path);

// The server of the rows that `fill` adds, which stand in a file of SQLite's own that goes with it. `shown` is what
// messages call it. support::SaveError when there is no room for them; what `fill` throws comes through.
std::unique_ptr<wizard::factory::FactoryCreator> TemporaryDictionary(
    const std::string& shown, const std::function<void(wizard::factory::DictionaryStore&)>& fill);

}  // namespace formwizard::adapters::sqlite
