// Which values may stand in a column of a dictionary that somebody else wrote.
#pragma once

#include "wizard/factory/Dictionary.h"

#include <string>
#include <string_view>

namespace formwizard::adapters::dictionary {

// Bytes. A name is kept for as long as its list is read, so that one that stands twice is found.
inline constexpr std::size_t LongestName = 1'000, LongestText = 32'000;
// Elements of one list.
inline constexpr std::size_t LongestList = 1'000'000;

// "a whole number from 0 to 32767", for a message.
std::string ExpectedIn(const wizard::factory::Column& column);

// Empty when the text may stand there, otherwise what is wrong.
std::string ProblemOf(const wizard::factory::Column& column, std::string_view text);

}  // namespace formwizard::adapters::dictionary
