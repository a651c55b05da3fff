// A value of any of the types in which a result set delivers its columns.
#pragma once

#include "runtime/Integer.h"

#include <string>
#include <string_view>
#include <variant>

namespace formwizard::runtime {

struct Empty {
  friend bool operator==(Empty, Empty) = default;
};
struct Null {
  friend bool operator==(Null, Null) = default;
};

using Variant = std::variant<Empty, Null, bool, Int16, Int32, double, std::string>;

// Value comparison: 1 and "1" both equal 1, Empty equals 0, True is -1, Null equals nothing. A text that is no number
// raises error 13.
bool EqualsNumber(const Variant& value, Int32 number);

// Value comparison with a text: a number is compared by its decimal form, Empty equals "", Null equals nothing.
bool EqualsText(const Variant& value, std::string_view text);

// Null raises error 94, "Invalid use of Null"; numbers take their decimal form.
std::string ToText(const Variant& value);

// As a condition: Null counts as false, any other value by the rules of ToBoolean.
bool IsTrue(const Variant& value);

// Error 13 for a text that is no number, 94 for Null.
double ToNumber(const Variant& value);

// A text's leading number, as LeadingNumber; other values as ToNumber, Null as 0.
double NumericValue(const Variant& value);

}  // namespace formwizard::runtime
