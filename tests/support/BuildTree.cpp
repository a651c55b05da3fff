#include "tests/support/BuildTree.h"

namespace formwizard::tests {

std::string SourceFolder() { return FORMWIZARD_SOURCE_FOLDER; }
std::string BuiltFolder() { return FORMWIZARD_BUILT_FOLDER; }
std::string BuiltProgram(const std::string& name) { return BuiltFolder() + name + FORMWIZARD_PROGRAM_SUFFIX; }

}  // namespace formwizard::tests
