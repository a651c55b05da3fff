#include "adapters/win32/UserInput.h"

#include <algorithm>
#include <array>

namespace formwizard::adapters::win32 {
namespace {

struct Range {
  UINT First, Last;
};

constexpr std::array InputMessages{Range{WM_NCMOUSEMOVE, WM_NCXBUTTONDBLCLK}, Range{WM_INPUT, WM_INPUT},
                                   Range{WM_KEYFIRST, WM_KEYLAST}, Range{WM_MOUSEFIRST, WM_MOUSELAST}};
constexpr std::array OtherMessages{Range{1, WM_NCMOUSEMOVE - 1}, Range{WM_NCXBUTTONDBLCLK + 1, WM_INPUT - 1},
                                   Range{WM_KEYLAST + 1, WM_MOUSEFIRST - 1}, Range{WM_MOUSELAST + 1, 0xFFFF}};

}  // namespace

bool IsInput(UINT message) {
  return std::ranges::any_of(InputMessages,
                             [&](const Range& range) { return message >= range.First && message <= range.Last; });
}

void DispatchAllButInput() {
  bool any = true;
  while (any) {
    any = false;
    for (const Range& range : OtherMessages) {
      MSG message;
      while (PeekMessageW(&message, nullptr, range.First, range.Last, PM_REMOVE)) {
        if (message.message == WM_QUIT) {  // comes through every range
          PostQuitMessage(static_cast<int>(message.wParam));
          return;
        }
        DispatchMessageW(&message);
        any = true;
      }
    }
  }
}

void DropPresses(HWND window) {
  constexpr std::array presses{Range{WM_NCLBUTTONDOWN, WM_NCLBUTTONDOWN},
                               Range{WM_NCLBUTTONDBLCLK, WM_NCLBUTTONDBLCLK},
                               Range{WM_KEYDOWN, WM_KEYDOWN},
                               Range{WM_CHAR, WM_SYSKEYDOWN},
                               Range{WM_SYSCHAR, WM_SYSDEADCHAR},
                               Range{WM_LBUTTONDOWN, WM_LBUTTONDOWN},
                               Range{WM_LBUTTONDBLCLK, WM_RBUTTONDOWN},
                               Range{WM_RBUTTONDBLCLK, WM_MBUTTONDOWN},
                               Range{WM_MBUTTONDBLCLK, WM_MOUSEWHEEL}};
  for (const Range& range : presses) {
    MSG message{};
    while (PeekMessageW(&message, window, range.First, range.Last, PM_REMOVE) && message.message != WM_QUIT) continue;
    if (message.message == WM_QUIT) PostQuitMessage(static_cast<int>(message.wParam));
  }
}

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

void DisabledWindows::AddNew() { EnumThreadWindows(GetCurrentThreadId(), DisableNew, reinterpret_cast<LPARAM>(this)); }

BOOL CALLBACK DisabledWindows::DisableNew(HWND window, LPARAM self) {
  const bool hasCaption = (GetWindowLongW(window, GWL_STYLE) & WS_CAPTION) == WS_CAPTION;
  if (!hasCaption) return TRUE;
  DisableOne(window, self);
  const HWND modal = reinterpret_cast<const DisabledWindows*>(self)->modal_;
  if (window != modal && window == GetActiveWindow()) SetActiveWindow(modal);
  return TRUE;
}

void DisabledWindows::Disable(HWND window) {
  if (window == modal_ || !IsWindowVisible(window) || !IsWindowEnabled(window)) return;
  disabled_.push_back(window);
  EnableWindow(window, FALSE);
}

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
