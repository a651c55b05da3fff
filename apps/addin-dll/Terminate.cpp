// What the library does when an exception has nobody to catch it. The run-time library's own handler writes the name of
// the exception to a console that the environment has not, and brings what reads such names along: 50 KB.
#include <cstdlib>

namespace __gnu_cxx {  // NOLINT(bugprone-reserved-identifier,cert-dcl37-c,cert-dcl51-cpp)

void __verbose_terminate_handler();  // NOLINT(bugprone-reserved-identifier,cert-dcl37-c,cert-dcl51-cpp)
void __verbose_terminate_handler() {
  std::abort();
}  // NOLINT(bugprone-reserved-identifier,cert-dcl37-c,cert-dcl51-cpp)

}  // namespace __gnu_cxx
