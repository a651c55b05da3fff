// How a run ends, and what an exception means to the user.
#pragma once

#include <functional>
#include <stdexcept>
#include <string>

namespace formwizard::apps::common {

// The documented exit statuses.
enum ExitStatus : int {
  Done = 0,
  Differs = 1,  // what was looked at is not as it should be; nothing else ends so
  WrongUsage = 2,
  InvalidInput = 3,
  NotSaved = 4,    // and nothing was changed
  Incomplete = 5,  // saved, but not all went well, or nothing was made because the user gave up
};

// A command line that makes no sense; its message says what is wrong.
class UsageError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// Everything was saved; what failed came after it, and the message says both.
class FailedAfterSaving : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

struct Failure {
  ExitStatus Status;
  std::string Message;
};

// What the exception that is being handled means, called in a catch clause. `subject`, the file that the work is about,
// begins the message of an exception that names none, such as one about memory. But for FailedAfterSaving, nothing was
// changed.
Failure CurrentFailure(const std::string& subject);

// Does what follows after `project` was saved, and returns its status. Whatever it raises ends in FailedAfterSaving.
int AfterSaving(const std::string& project, const std::function<int()>& work);

// Raises support::SaveError when something that was printed on standard output did not arrive there.
void FlushOutput();

}  // namespace formwizard::apps::common
