// The wizard's busy state: hourglass pointer, and a dialog that takes no clicks while work runs.
#pragma once

#include "ui/Desktop.h"
#include "ui/Form.h"

namespace formwizard::support {

// Not counted: one call with false ends any number of calls with true.
inline void SetBusy(ui::Desktop& desktop, ui::Form& wizard, bool busy) {
  desktop.SetMousePointer(busy ? ui::MousePointer::ArrowHourglass : ui::MousePointer::Default);
  wizard.Enabled = !busy;
}

}  // namespace formwizard::support
