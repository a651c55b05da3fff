// A class dictionary in a file: where it comes from, where it goes to, and the server that it plays.
#pragma once

#include "wizard/factory/Factory.h"

#include <iosfwd>
#include <memory>
#include <string>

namespace formwizard::adapters::sqlite {

// Reads a dictionary in JSON and makes the file `target` of it. A file of that name that is no dictionary is refused; a
// dictionary is replaced when everything went well, and not touched otherwise. `source` names the input in messages.
// support::InputError gives the line and column of a syntax error or the path of a wrong value, with what was expected;
// support::SaveError when the file cannot be written. Memory stays small whatever the size of the input.
void ImportDictionary(std::istream& in, const std::string& source, const std::string& target);

// Writes the dictionary as JSON that imports to the same dictionary, one property a line. support::InputError for a
// file that is no dictionary.
void ExportDictionary(const std::string& path, std::ostream& out);

// The server of the dictionary: its systems, and result sets on their classes, properties and queries. All factories
// that it creates share the open file. support::InputError for a file that is no dictionary.
std::unique_ptr<wizard::factory::FactoryCreator> OpenDictionary(const std::string& path);

}  // namespace formwizard::adapters::sqlite
