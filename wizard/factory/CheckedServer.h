// A server whose names are looked at before anybody makes code of them.
#pragma once

#include "wizard/factory/Factory.h"

namespace formwizard::wizard::factory {

// Answers as `server` does. A row with a class, property, query or column name that would not stay a name in code, or
// with a caption that would not stay in its line, ends in support::InputError: it begins with `source`, names the class
// and the text, and says the remedy.
std::unique_ptr<FactoryCreator> Checked(std::unique_ptr<FactoryCreator> server, const std::string& source);

}  // namespace formwizard::wizard::factory
