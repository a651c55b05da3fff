// A dictionary taken from a server that is running.
#pragma once

#include "wizard/factory/Factory.h"

#include <iosfwd>
#include <string>

namespace formwizard::adapters::sqlite {

// Asks the server as the wizard does and writes what it tells as JSON that imports to a dictionary: every class that is
// no system class, with its properties and queries. `system` is the one that is asked, all of them when it is empty.
// support::InputError, naming the system, the class and what failed, when the server refuses something.
void WriteSnapshot(wizard::factory::FactoryCreator& server, const std::string& system, std::ostream& out);

}  // namespace formwizard::adapters::sqlite
