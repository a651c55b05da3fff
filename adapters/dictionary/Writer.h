// Writes what a server knows of its classes as JSON.
#pragma once

#include "wizard/factory/Factory.h"

#include <functional>
#include <iosfwd>
#include <string>
#include <string_view>

namespace formwizard::adapters::dictionary {

enum class Classes { All, NoSystemClasses };

// What every such document begins with.
inline constexpr std::string_view DocumentBegin = "{ \"systems\": [";

// Asks the server as the wizard does and writes what it tells as JSON that can be read to the same dictionary, one
// property a line, classes in the order of their names; what a reader takes for granted is left out. `system` is the
// one that is asked, all of them when it is empty. Parameters of queries are "param1" and so on where the server does
// not tell their names. support::InputError, naming the system, the class and what failed, when the server refuses
// something.
// `onProgress`, which may end the work by raising something, hears before each class what part of all is written.
void WriteDictionary(wizard::factory::FactoryCreator& server, const std::string& system, Classes classes,
                     std::ostream& out, const std::function<void(double part)>& onProgress = {});

}  // namespace formwizard::adapters::dictionary
