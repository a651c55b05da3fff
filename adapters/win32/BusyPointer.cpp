#include "adapters/win32/BusyPointer.h"

#include <windows.h>

namespace formwizard::adapters::win32 {

void BusyPointer::Set(ui::MousePointer pointer) {
  isBusy_ = pointer == ui::MousePointer::ArrowHourglass;
  // At once, because long work may follow; later the windows are asked.
  if (!Show()) SetCursor(LoadCursorW(nullptr, MAKEINTRESOURCEW(32512)));  // IDC_ARROW
}

bool BusyPointer::Show() const {
  if (isBusy_) SetCursor(LoadCursorW(nullptr, MAKEINTRESOURCEW(32650)));  // IDC_APPSTARTING
  return isBusy_;
}

}  // namespace formwizard::adapters::win32
