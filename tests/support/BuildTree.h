// Where tests find what they read and run. The paths are compiled into one object, so that a tree that moves compiles
// no test anew.
#pragma once

#include <string>

namespace formwizard::tests {

// The root of the sources, without a separator at its end. Under Wine both begin with the drive of this machine's
// files.
std::string SourceFolder();
// The folder of the programs and satellites that were built, with a separator at its end.
std::string BuiltFolder();

// One of the programs, by its name without an extension.
std::string BuiltProgram(const std::string& name);

}  // namespace formwizard::tests
