// Values assigned to properties, turned into the property's own type.
#pragma once

#include "adapters/vb6files/PropertyText.h"
#include "generator/ide/Ide.h"
#include "system/CodePage.h"

#include <string>
#include <string_view>

namespace formwizard::adapters::vb6files {

// For a property that is a text: in the code page. It lives as long as the value and `room`.
std::string_view CoercedText(const generator::ide::PropertyValue& value, const system::CodePage& codePage,
                             std::string& room);
// For any other. Error 13 for a text that is no number, 6 for a number out of the type's range, 380 for a value that
// the property does not take, 383 for a property that is not set this way.
double CoercedNumber(const PropertyRow& row, const generator::ide::PropertyValue& value);

bool IsDefault(const PropertyRow& row, const PropertyData& data);

// A letter, then letters, digits and underscores, at most 40 characters; letters beyond ASCII are fine. Error 50132
// "Not a legal object name: 'item'" otherwise.
void CheckObjectName(std::string_view name);
// A name that no object can have, and why, for a message: "which has 41 characters, and Visual Basic takes 40".
struct RefusedName {
  std::string Name, Problem;
};

// For a message: "which has 41 characters, and Visual Basic takes 40". Empty for such a name.
std::string ProblemOfObjectName(std::string_view name);

}  // namespace formwizard::adapters::vb6files
