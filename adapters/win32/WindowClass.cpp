#include "adapters/win32/WindowClass.h"

#include <stdexcept>
#include <string>

extern "C" IMAGE_DOS_HEADER __ImageBase;  // NOLINT(bugprone-reserved-identifier): the linker's name

namespace formwizard::adapters::win32 {

HINSTANCE ThisModule() { return reinterpret_cast<HINSTANCE>(&__ImageBase); }

WindowClass::WindowClass(const wchar_t* name, WNDPROC procedure) : name_(name) {
  WNDCLASSW description{};
  description.lpfnWndProc = procedure;
  description.hInstance = ThisModule();
  description.hCursor = LoadCursorW(nullptr, MAKEINTRESOURCEW(32512));  // IDC_ARROW
  description.hbrBackground = reinterpret_cast<HBRUSH>(static_cast<UINT_PTR>(COLOR_BTNFACE + 1));
  description.lpszClassName = name;
  RegisterClassW(&description);  // fails while another window of the class is open, which has registered it
}

// Fails while another window of the class is open, which then does it.
WindowClass::~WindowClass() { UnregisterClassW(name_, ThisModule()); }

HWND Made(HWND window) {
  if (!window)
    throw std::runtime_error("A window cannot be made: system error " + std::to_string(GetLastError()) + ".");
  return window;
}

}  // namespace formwizard::adapters::win32
