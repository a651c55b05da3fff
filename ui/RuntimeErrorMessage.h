// What the environment shows when nothing handles a run-time error.
#pragma once

#include "runtime/RuntimeError.h"
#include "ui/Desktop.h"

#include <string>
#include <string_view>

namespace formwizard::ui {

inline void ShowRuntimeError(Desktop& desktop, const runtime::RuntimeError& error, std::string_view title) {
  desktop.SetMousePointer(MousePointer::Default);
  desktop.ShowMessage("Run-time error '" + std::to_string(error.Number()) + "':\n\n" + error.Description(),
                      Exclamation + OkOnly, title);
}

}  // namespace formwizard::ui
