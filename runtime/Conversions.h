// The conversions between texts and numbers that the wizard relies on.
#pragma once

#include "runtime/Integer.h"

#include <string>
#include <string_view>

namespace formwizard::runtime {

// The number at the start of a text ("12key" gives 12), blanks and tabs skipped as the language does; 0 when the
// text starts with none. Reads an optional sign, digits with one decimal point, an exponent.
double LeadingNumber(std::string_view text);

// The nearest whole number, halves to the even one; error 6 outside the range.
Int16 RoundToInt16(double value);
Int32 RoundToInt32(double value);

// A whole text as a number: blanks around it are ignored; anything else that is no number raises error 13.
double ToNumber(std::string_view text);
bool IsNumeric(std::string_view text);

// "True" and "False" in any case, or a number, of which 0 is false; any other text raises error 13.
bool ToBoolean(std::string_view text);

// A decimal text, fractions rounded halves to even; error 13 for no number, error 6 outside 16 bits.
Int16 ToInt16(std::string_view text);

// "True" or "False".
std::string Text(bool value);

// Every occurrence, from the left, compared byte by byte; an inserted text is not searched again.
std::string ReplaceAll(std::string_view text, std::string_view from, std::string_view to);

// ASCII letters folded, other bytes as they are.
std::string LowerCase(std::string_view text);
bool EqualIgnoringCase(std::string_view a, std::string_view b);

// Without the blanks around it, which are any of these.
std::string_view Trimmed(std::string_view text, std::string_view blanks = " \t");

}  // namespace formwizard::runtime
