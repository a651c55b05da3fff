// Reads a class dictionary from JSON.
#pragma once

#include "wizard/factory/Dictionary.h"

#include <iosfwd>
#include <string>

namespace formwizard::adapters::dictionary {

// Adds every row of the document to the store, as it is read: memory stays small whatever the size of the input.
// `source` names the input in messages. support::InputError, with line, column and the path of the value, for what is
// no JSON, no dictionary, beyond a limit (see ValueRules), or cannot be read; the store then holds a part.
void ReadDictionary(std::istream& in, const std::string& source, wizard::factory::DictionaryStore& store);

}  // namespace formwizard::adapters::dictionary
