// Variables of this process' environment.
#pragma once

#include <cstdlib>

namespace formwizard::tests {

// The empty text removes the variable where the operating system keeps no empty ones.
inline void SetVariable(const char* name, const char* value) {
#ifdef _WIN32
  ::_putenv_s(name, value);
#else
  ::setenv(name, value, 1);
#endif
}

inline void RemoveVariable(const char* name) {
#ifdef _WIN32
  ::_putenv_s(name, "");
#else
  ::unsetenv(name);
#endif
}

}  // namespace formwizard::tests
