// How much of everything the environment takes.
#pragma once

#include <cstddef>

namespace formwizard::vbtext {

constexpr std::size_t LongestLine = 1023;      // bytes of a line of code
constexpr std::size_t MostContinuations = 24;  // of one line of code
constexpr std::size_t MostLines = 65534;       // of a module's code
constexpr std::size_t MostControlNames = 254;  // of a form; an array of controls has one
constexpr std::size_t LongestObjectName = 40;  // characters of a form's or control's name

}  // namespace formwizard::vbtext
