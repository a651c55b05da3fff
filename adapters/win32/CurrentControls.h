// The newer common controls for the windows of this module, and for no others in the program.
#pragma once

#include <windows.h>

namespace formwizard::adapters::win32 {

// What the manifest among this module's resources asks for, and what the program had before.
class ControlsContext {
 public:
  // 0: this module asks for nothing, and its windows are like the program's others.
  explicit ControlsContext(int manifest);
  ~ControlsContext();
  ControlsContext(const ControlsContext&) = delete;
  ControlsContext& operator=(const ControlsContext&) = delete;

  HANDLE Own() const { return own_; }
  HANDLE Program() const { return program_; }

 private:
  HANDLE program_ = nullptr;
  HANDLE own_;
};

// While it lives, one of them is in force on this thread. The system keeps it with each window that is made meanwhile,
// and puts it in force whenever such a window handles a message.
class InForce {
 public:
  explicit InForce(HANDLE context) : isActive_(ActivateActCtx(context, &cookie_) != FALSE) {}
  ~InForce() {
    if (isActive_) DeactivateActCtx(0, cookie_);
  }
  InForce(const InForce&) = delete;
  InForce& operator=(const InForce&) = delete;

 private:
  ULONG_PTR cookie_ = 0;
  bool isActive_;
};

}  // namespace formwizard::adapters::win32
