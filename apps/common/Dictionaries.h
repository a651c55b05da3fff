// Class dictionaries as the programs use them: the JSON form joined to the store.
#pragma once

#include "wizard/factory/Dictionary.h"
#include "wizard/factory/Factory.h"

#include <array>
#include <cstddef>
#include <functional>
#include <iosfwd>
#include <memory>
#include <string>

namespace formwizard::apps::common {

// The server of a dictionary. A name or caption in it that would become code of its own ends in support::InputError, as
// does a file that cannot be read.
std::unique_ptr<wizard::factory::FactoryCreator> OpenDictionary(const std::string& path);

// The same of a dictionary or its JSON, which may be standard input ("-") or a pipe, also of one that holds names which
// OpenDictionary refuses. Reading JSON, `onRead` hears how many bytes were read so far.
std::unique_ptr<wizard::factory::FactoryCreator> OpenAnyDictionary(const std::string& path,
                                                                   std::function<void(std::size_t)> onRead = {});

// The rows of a dictionary, by table.
using RowCounts = std::array<std::size_t, wizard::factory::TableCount>;

// Makes the dictionary `target` of JSON, which messages call `source`. What is no dictionary is only replaced by force.
// support::InputError for what is wrong in the JSON, support::SaveError when the dictionary cannot be written; the old
// one is then as it was.
RowCounts ImportDictionary(std::istream& in, const std::string& source, const std::string& target, bool force = false);

// Writes a dictionary as JSON, also one that holds names which OpenDictionary refuses: so they can be corrected.
// `onProgress` hears before each class what part of all is written.
void ExportDictionary(const std::string& path, std::ostream& out,
                      const std::function<void(double part)>& onProgress = {});

// Writes what a server tells of its own classes as JSON, of one system or, when that is empty, of all.
void ExportServer(wizard::factory::FactoryCreator& server, const std::string& system, std::ostream& out,
                  const std::function<void(double part)>& onProgress = {});

// support::InputError when something stands at `path` that is no such JSON, and so must not be replaced by it.
void CheckIsExport(const std::string& path);

}  // namespace formwizard::apps::common
