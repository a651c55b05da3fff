// The mouse pointer over the dialogs.
#pragma once

#include "ui/Desktop.h"

namespace formwizard::adapters::win32 {

class BusyPointer {
 public:
  void Set(ui::MousePointer pointer);
  // Shows it while work runs; false when a window is to show its own.
  bool Show() const;

 private:
  bool isBusy_ = false;
};

}  // namespace formwizard::adapters::win32
