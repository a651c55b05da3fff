// The number of the run-time error that a call raises.
#pragma once

#include "runtime/RuntimeError.h"

#include <utility>

namespace formwizard::tests {

// 0 when the call raises none.
template <typename Call>
int ErrorNumberOf(Call&& call) {
  try {
    std::forward<Call>(call)();
    return 0;
  } catch (const runtime::RuntimeError& error) {
    return error.Number();
  }
}

}  // namespace formwizard::tests
