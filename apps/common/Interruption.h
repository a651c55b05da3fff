// The user's wish that a run ends, as Ctrl-C or a shell's kill tells it.
#pragma once

#include <exception>

namespace formwizard::apps::common {

// Ends a run that has changed nothing yet. No handler of the core takes it for an error.
class Interrupted : public std::exception {
 public:
  explicit Interrupted(int signal) : signal_(signal) {}
  const char* what() const noexcept override { return "interrupted"; }
  int Signal() const { return signal_; }

 private:
  int signal_;
};

// From now on the first SIGINT or SIGTERM, on Windows the first Ctrl-C or Ctrl-Break, is only kept; what was prepared
// can go. A second one ends the program at once. A signal that the caller has switched off stays so.
void KeepInterruptions();

// Raises Interrupted when one was kept.
void CheckInterrupted();

// Ends the program as the signal itself would have, so that a shell script which was interrupted with it stops too;
// where that does not end it, returns the exit status, 128 and the signal's number.
int EndInterrupted(const Interrupted& interrupted);

}  // namespace formwizard::apps::common
