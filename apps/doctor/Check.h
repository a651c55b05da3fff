// What the doctor looks at: a table with one row a check.
#pragma once

#include <chrono>
#include <span>
#include <string>
#include <string_view>

namespace formwizard::apps::doctor {

enum class State {
  Good,
  Mended,        // it was a fault, and is none any more
  Fault,         // the remedy says what mends it
  NotInstalled,  // what the check is about is not there and need not be
  Unknown,       // it cannot be told from here
};

struct Finding {
  State Is = State::Good;
  std::string Message, Remedy = "";  // what is so, and the command that mends it
};

// Who can tell: any program, or only one of 32 bits, as the environment is.
enum class Teller { Any, Of32Bits };

struct Check {
  std::string_view Id;
  bool IsRequired;  // whether its fault makes the whole a failure
  Teller Who;
  std::chrono::milliseconds Limit;  // of the time that it may take
  Finding (*Look)();                // changes nothing
  // Mends what the user may change without being an administrator, and says what it did: nothing for nothing. Asked
  // after Look has found a fault. Null for what only a command mends.
  std::string (*Mend)() = nullptr;
};

using Checks = std::span<const Check>;

}  // namespace formwizard::apps::doctor
