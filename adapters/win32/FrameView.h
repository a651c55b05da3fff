// The window in which the controls of a frame stand.
#pragma once

#include <windows.h>

namespace formwizard::adapters::win32 {

inline constexpr wchar_t FrameClass[] = L"OstrelFormWizardFrame";

// Passes on to the dialog what the controls report.
LRESULT CALLBACK FrameProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

}  // namespace formwizard::adapters::win32
