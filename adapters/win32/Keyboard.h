// The keys that belong to a dialog rather than to one of its controls.
#pragma once

#include "adapters/win32/FormWindow.h"

#include <windows.h>

namespace formwizard::adapters::win32 {

// Does what the key means to the dialog; false when it means nothing to it and goes to the control with the focus.
bool PressKey(FormWindow& window, const MSG& message);

}  // namespace formwizard::adapters::win32
