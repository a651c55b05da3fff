// When two properties of a control are equal to the environment, whatever it does to their lines when it saves.
#pragma once

#include "vbtext/Companion.h"
#include "vbtext/Header.h"

#include <optional>
#include <string_view>

namespace formwizard::vbtext {

// Half a pixel at 96 and 120 dots per inch, to which the environment rounds places of its own accord. In twips.
constexpr double RoundingOfPlaces = 6;

// One of the forms that are compared.
struct Side {
  const HeaderNode& Control;  // whose properties are looked at
  const Companion& Records;
};

// Whether a property, or a group with all its members, is the same on both sides. A text counts byte for byte, a number
// by its value, a place within the rounding, a reference by what it refers to. One that refers to what is not there is
// equal to nothing but itself.
bool IsSameProperty(const HeaderProperty& a, const Side& sideA, const HeaderProperty& b, const Side& sideB);

// Whether a property says nothing when only one side has it: it has the value of a new control, or the environment
// derives it from others.
bool IsLeftOut(const HeaderProperty& property, const HeaderNode& control);

// Whether a change of the property is none of its own: the environment computes it.
bool IsDerived(std::string_view property, const HeaderNode& control);

// The tab index, which counts only beside those of the other controls.
bool IsTabIndex(std::string_view property);

}  // namespace formwizard::vbtext
