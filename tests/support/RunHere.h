// Runs the command line within the test, so that a test can stand for what it uses.
#pragma once

#include "apps/cli/Program.h"
#include "tests/support/RunProgram.h"

#include <iostream>

namespace formwizard::tests {

// Keeps what is written to a stream.
class Captured : Pinned {
 public:
  explicit Captured(std::ostream& stream) : stream_(stream), before_(stream.rdbuf(text_.rdbuf())) {}
  ~Captured() { stream_.rdbuf(before_); }
  std::string Text() const { return text_.str(); }

 private:
  std::ostream& stream_;
  std::ostringstream text_;
  std::streambuf* before_;
};

inline Outcome RunHere(const std::vector<std::string>& arguments) {
  const Captured out(std::cout), error(std::cerr);
  const int status = apps::cli::RunProgram([&] { return arguments; });
  return {status, out.Text(), error.Text()};
}

}  // namespace formwizard::tests
