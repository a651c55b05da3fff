// Keeps the user out of all other windows while a modal one is shown.
#pragma once

#include <windows.h>

#include <vector>

namespace formwizard::adapters::win32 {

// Disables the top-level windows of this thread and the owner that take input, except for the modal window itself,
// and enables them again at the end of its life. It must end before the modal window is destroyed: the system would
// otherwise activate a window of another program.
class DisabledWindows {
 public:
  explicit DisabledWindows(HWND modal);
  ~DisabledWindows();
  DisabledWindows(const DisabledWindows&) = delete;
  DisabledWindows& operator=(const DisabledWindows&) = delete;

 private:
  static BOOL CALLBACK DisableOne(HWND window, LPARAM self);
  void Disable(HWND window);

  HWND modal_;
  std::vector<HWND> disabled_;
};

}  // namespace formwizard::adapters::win32
