// The two ways in which a whole run ends: an input that cannot be used, and a save that did not happen.
#pragma once

#include <stdexcept>
#include <string>

namespace formwizard::support {

// An input is missing or invalid. The message names the file, the place in it and the remedy. Nothing was changed. It
// is no RuntimeError on purpose: no routine reports it and goes on.
class InputError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// Saving failed and every file is as it was before. The message names the file and the reason.
class SaveError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// The same, because another program has changed a file since it was read.
class ChangedMeanwhile : public SaveError {
 public:
  using SaveError::SaveError;
};

}  // namespace formwizard::support
