// A journal of every changing call on an environment, for tests and for reporting a fault from the field.
#pragma once

#include "generator/ide/Ide.h"

#include <functional>
#include <memory>
#include <ostream>
#include <string>

namespace formwizard::adapters::journal {

// An environment that passes every call on to `inner` and writes each changing one to `out` as one JSON object a line,
// in call order; a failed call carries "error" with number and description, and its error is passed on. Both must
// outlive the result and the objects it hands out. Texts are written as UTF-8. `before` is told of every changing call
// before it is carried out, by its line as far as it is known; what it raises is the call's own error.
std::unique_ptr<generator::ide::Vbe> Journalled(generator::ide::Vbe& inner, std::ostream& out,
                                                std::function<void(const std::string& line)> before = {});

}  // namespace formwizard::adapters::journal
