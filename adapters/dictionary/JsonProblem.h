// What is said of a text that is no JSON.
#pragma once

#include "adapters/dictionary/JsonInput.h"

#include <exception>
#include <string>
#include <string_view>

namespace formwizard::adapters::dictionary {

// Throws support::InputError: where `input` cannot be read as JSON, what was expected there and what was found.
// `source` names the input, `error` is what the parser says. `meant` is what the document should be, as a sentence.
[[noreturn]] void FailNoJson(JsonInput& input, const std::string& source, const std::exception& error,
                             std::string_view meant);

}  // namespace formwizard::adapters::dictionary
