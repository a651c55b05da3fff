// Plays what the environment does to a file when it saves it: another text that says the same.
#pragma once

#include <random>
#include <string>

namespace formwizard::tests {

// How many random cases of a thousand are tried. With the sanitizers each takes four times as long; a quarter runs the
// same lines of the program, which is what counts for them.
#ifdef __SANITIZE_ADDRESS__
constexpr int Thousand = 250;
#else
constexpr int Thousand = 1000;
#endif

struct SavedForm {
  std::string File, Records;  // Records: the .frx; empty when there is none
};

// Which of the many things happen, and where, is the generator's choice.
SavedForm SavedAgain(const SavedForm& form, std::mt19937& random);

// The same for one line of code.
std::string Respelled(const std::string& line, std::mt19937& random);

}  // namespace formwizard::tests
