// What the user can do while a modal dialog is shown or works: the thread's messages, its other windows and the
// pointer.
#pragma once

#include "ui/Desktop.h"

#include <windows.h>

#include <vector>

namespace formwizard::adapters::win32 {

// Keys and mouse.
bool IsInput(UINT message);

// Dispatches what is waiting, except for input, which keeps waiting. The message that ends the program stays.
void DispatchAllButInput();

// Takes away the keys and buttons that were pressed in the window and wait; that they were let go is told.
void DropPresses(HWND window);

// Disables the top-level windows of this thread and the owner that take input, except for the modal window itself,
// and enables them again at the end of its life. It must end before the modal window is destroyed: the system would
// otherwise activate a window of another program.
class DisabledWindows {
 public:
  explicit DisabledWindows(HWND modal);
  ~DisabledWindows();
  DisabledWindows(const DisabledWindows&) = delete;
  DisabledWindows& operator=(const DisabledWindows&) = delete;

  // Disables those with a caption that were shown in the meantime. Called where none of them runs a loop of its own,
  // which the user could not end then. Lists that drop down and tool tips have no caption.
  void AddNew();

 private:
  static BOOL CALLBACK DisableOne(HWND window, LPARAM self);
  static BOOL CALLBACK DisableNew(HWND window, LPARAM self);
  void Disable(HWND window);

  HWND modal_;
  std::vector<HWND> disabled_;
};

// The mouse pointer over the dialogs.
class BusyPointer {
 public:
  void Set(ui::MousePointer pointer);
  // Shows it while work runs; false when a window is to show its own.
  bool Show() const;

 private:
  bool isBusy_ = false;
};

}  // namespace formwizard::adapters::win32
