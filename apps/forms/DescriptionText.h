// A form description as a text for people and for version control: in a fixed order, with a field a line.
#pragma once

#include "apps/forms/FormDescription.h"

#include <string>
#include <string_view>

namespace formwizard::apps::forms {

// UTF-8 with "\n", as ReadFormDescriptions takes it.
std::string TextOf(const FormDescription& form);

// Sums of what is asked for, as MadeForm has them.
std::string SumOfFields(const FormDescription& form);
std::string SumOfSettings(const FormDescription& form);
// Of a file, whatever line ends version control has given it.
std::string SumOf(std::string_view bytes);

}  // namespace formwizard::apps::forms
