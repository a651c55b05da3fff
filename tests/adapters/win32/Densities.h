// Tests at other densities of the screen, which a program is told when it starts.
#pragma once

#include <functional>

namespace formwizard::tests {

// Runs the test that calls it anew at 96, 120, 144 and 192 dots per inch, each in a process of its own, where `check`
// gets the density. Only Wine takes another density at once; elsewhere `check` runs at the user's.
void AtEveryDensity(const std::function<void(int dotsPerInch)>& check);

}  // namespace formwizard::tests
