// The thread's message queue.
#pragma once

#include <windows.h>

namespace formwizard::adapters::win32 {

// Keys and mouse.
bool IsInput(UINT message);

// Dispatches what is waiting, except for input, which keeps waiting. The message that ends the program stays.
void DispatchAllButInput();

}  // namespace formwizard::adapters::win32
