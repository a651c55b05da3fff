// What differs between two class dictionaries.
#pragma once

#include "wizard/factory/Factory.h"

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace formwizard::adapters::dictionary {

enum class ChangeKind : std::uint8_t { Added, Removed, Changed };
enum class ChangedThing : std::uint8_t { System, Class, Property, Query };

// An attribute as it was and as it is: a text, the digits of a number, or the names of a query's columns or parameters.
struct AttributeChange {
  enum class Form : std::uint8_t { Text, Number, Names };

  std::string_view Name;
  Form Is;
  std::vector<std::string> Old, New;  // one each, but for names
};

struct Change {
  ChangeKind Kind;
  ChangedThing What;
  std::string System, Class, Name;          // Class only of a property or query
  std::vector<AttributeChange> Attributes;  // of what has changed
};

struct ComparedDictionary {
  wizard::factory::FactoryCreator& Server;
  std::string Source;  // begins messages
};

// Calls `onChange` for every system, class, property and query that has been added, removed or changed: systems as they
// stand, classes by their names, in each the class itself, its properties and its queries. What belongs to one that is
// added or removed is not told; the order of properties does not count. Memory is that of one class, whatever the
// number of classes, which stand by their names in both. support::InputError when a dictionary cannot be read.
// `onProgress`, which may end the work by raising something, hears before each class what part of all is compared.
void CompareDictionaries(const ComparedDictionary& before, const ComparedDictionary& after,
                         const std::function<void(const Change&)>& onChange,
                         const std::function<void(double part)>& onProgress = {});

}  // namespace formwizard::adapters::dictionary
