#include "adapters/win32/DisabledWindows.h"

namespace formwizard::adapters::win32 {

DisabledWindows::DisabledWindows(HWND modal) : modal_(modal) {
  if (const HWND owner = GetWindow(modal, GW_OWNER)) Disable(owner);  // it may be another thread's
  EnumThreadWindows(GetCurrentThreadId(), DisableOne, reinterpret_cast<LPARAM>(this));
}

DisabledWindows::~DisabledWindows() {
  for (const HWND window : disabled_) EnableWindow(window, TRUE);
}

BOOL CALLBACK DisabledWindows::DisableOne(HWND window, LPARAM self) {
  reinterpret_cast<DisabledWindows*>(self)->Disable(window);
  return TRUE;
}

void DisabledWindows::Disable(HWND window) {
  if (window == modal_ || !IsWindowVisible(window) || !IsWindowEnabled(window)) return;
  disabled_.push_back(window);
  EnableWindow(window, FALSE);
}

}  // namespace formwizard::adapters::win32
