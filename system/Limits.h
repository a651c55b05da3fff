// How large inputs may be. What is larger is refused before it is read.
#pragma once

#include <cstddef>

namespace formwizard::system {

constexpr std::size_t LargestFile = 256U << 20;        // bytes, of a form, a module or a form's companion file
constexpr std::size_t LargestProject = 64U << 20;      // of a project file
constexpr std::size_t LargestSettings = 16U << 20;     // of a settings file or a toolbox file
constexpr std::size_t LargestDescription = 16U << 20;  // of a form description
constexpr std::size_t LargestList = 64U << 20;         // of a list of form descriptions
constexpr std::size_t LargestLibrary = 16U << 20;      // of a satellite, which holds texts only

// Bytes of a path: as many as Windows or Linux takes at most.
#ifdef _WIN32
constexpr std::size_t LongestPath = 32767;
#else
constexpr std::size_t LongestPath = 4096;
#endif

}  // namespace formwizard::system
