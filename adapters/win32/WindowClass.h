// A window class of this module, registered while it has windows.
#pragma once

#include <windows.h>

namespace formwizard::adapters::win32 {

// The module that this code is in, a program or a library.
HINSTANCE ThisModule();

class WindowClass {
 public:
  WindowClass(const wchar_t* name, WNDPROC procedure);
  ~WindowClass();
  WindowClass(const WindowClass&) = delete;
  WindowClass& operator=(const WindowClass&) = delete;

 private:
  const wchar_t* name_;
};

// An error that names the operation when the system refuses to make a window.
HWND Made(HWND window);

}  // namespace formwizard::adapters::win32
