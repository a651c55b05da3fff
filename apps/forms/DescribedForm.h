// The form description that chooses all of a class, to be cut down.
#pragma once

#include "wizard/factory/Factory.h"

#include <ostream>
#include <string>

namespace formwizard::apps::forms {

// Writes it; the result is a warning, empty for none. support::InputError, which `source` begins, for a class that no
// form can be made for.
std::string DescribeForm(wizard::factory::ObjectFactory& factory, const std::string& source,
                         const std::string& className, std::ostream& out);

}  // namespace formwizard::apps::forms
