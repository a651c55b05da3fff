#include "tests/adapters/win32/User.h"

#include "adapters/win32/Screen.h"
#include "ui/Form.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cstdlib>
#include <stdexcept>
#include <utility>
#include <vector>

namespace formwizard::tests {
namespace {

constexpr int Attempts = 1500;  // of ten milliseconds
constexpr DWORD Pause = 10;

const DWORD WindowThread = GetCurrentThreadId();  // windows are opened by the thread that runs the tests
std::atomic<int> idleTicks = 0;
std::atomic<bool> isShown = false;

void CALLBACK Tick(HWND, UINT, UINT_PTR, DWORD) { ++idleTicks; }

// Timers come after everything else that waits for a thread.
void Settle() {
  const int before = idleTicks;
  for (int i = 0; i < Attempts && idleTicks < before + 3; ++i) {
    if (!isShown) return;
    Sleep(Pause);
  }
  if (isShown && idleTicks < before + 3) throw std::runtime_error("the windows do not answer");
}

void Send(std::vector<INPUT> inputs) {
  SendInput(static_cast<UINT>(inputs.size()), inputs.data(), sizeof(INPUT));
  Settle();
}

INPUT KeyInput(WORD key, DWORD flags) {
  INPUT input{};
  input.type = INPUT_KEYBOARD;
  input.ki.wVk = key;
  input.ki.wScan = static_cast<WORD>(MapVirtualKeyW(key, MAPVK_VK_TO_VSC));
  input.ki.dwFlags = flags;
  return input;
}

INPUT MouseInput(POINT at, DWORD flags) {
  INPUT input{};
  input.type = INPUT_MOUSE;
  input.mi.dx = MulDiv(at.x, 65536, GetSystemMetrics(SM_CXSCREEN)) + 1;
  input.mi.dy = MulDiv(at.y, 65536, GetSystemMetrics(SM_CYSCREEN)) + 1;
  input.mi.dwFlags = flags | MOUSEEVENTF_ABSOLUTE;
  return input;
}

// Two clicks on one place shall not become one double click.
void KeepApart(POINT at) {
  static POINT last{};
  constexpr int distance = 16;
  if (std::abs(at.x - last.x) < distance && std::abs(at.y - last.y) < distance) Sleep(GetDoubleClickTime());
  last = at;
}

void PressMouse(HWND window, POINT at, int times) {
  ClientToScreen(window, &at);
  KeepApart(at);
  std::vector<INPUT> inputs{MouseInput(at, MOUSEEVENTF_MOVE)};
  for (int i = 0; i < times; ++i) {
    inputs.push_back(MouseInput(at, MOUSEEVENTF_LEFTDOWN));
    inputs.push_back(MouseInput(at, MOUSEEVENTF_LEFTUP));
  }
  Send(inputs);
}

GUITHREADINFO ThreadInfo() {
  GUITHREADINFO info{};
  info.cbSize = sizeof(info);
  GetGUIThreadInfo(WindowThread, &info);
  return info;
}

std::vector<HWND> TopWindows() {
  std::vector<HWND> windows;
  struct Adder {
    static BOOL CALLBACK Add(HWND window, LPARAM list) {
      reinterpret_cast<std::vector<HWND>*>(list)->push_back(window);
      return TRUE;
    }
  };
  EnumThreadWindows(WindowThread, Adder::Add, reinterpret_cast<LPARAM>(&windows));
  return windows;
}

// Closes whatever is open, the last opened first, and at last ends the loops of what does not close.
void CloseAll() {
  for (int i = 0; i < Attempts && isShown; ++i) {
    if (const HWND active = ThreadInfo().hwndActive) {
      for (const WPARAM id : {WPARAM{IDOK}, WPARAM{IDCANCEL}, WPARAM{IDABORT}}) PostMessageW(active, WM_COMMAND, id, 0);
      PostMessageW(active, WM_CLOSE, 0, 0);
    }
    Sleep(Pause);
  }
  for (int i = 0; i < Attempts && isShown; ++i) {
    PostThreadMessageW(WindowThread, WM_QUIT, 0, 0);
    Sleep(Pause);
  }
}

DWORD WINAPI RunWork(void* work) {
  try {
    Settle();
    (*static_cast<const std::function<void()>*>(work))();
    Settle();
    if (isShown) throw std::runtime_error("left open");
  } catch (const std::exception& failure) {
    FAIL_CHECK(std::string(failure.what()));
  }
  CloseAll();
  return 0;
}

HTREEITEM Next(HWND tree, HTREEITEM item, WPARAM relation) {
  return reinterpret_cast<HTREEITEM>(SendMessageW(tree, TVM_GETNEXTITEM, relation, reinterpret_cast<LPARAM>(item)));
}

std::wstring TextOf(HWND tree, HTREEITEM item) {
  std::array<wchar_t, 100> text{};
  TVITEMW asked{};
  asked.mask = TVIF_TEXT;
  asked.hItem = item;
  asked.pszText = text.data();
  asked.cchTextMax = static_cast<int>(text.size());
  SendMessageW(tree, TVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&asked));
  return asked.pszText;
}

}  // namespace

bool HasDialogFont() {
  const auto font = adapters::win32::MakeFont(8, 96, "MS Sans Serif", DEFAULT_CHARSET);
  const adapters::win32::MemoryContext context(font.get());
  std::array<wchar_t, LF_FACESIZE> face{};
  GetTextFaceW(context, static_cast<int>(face.size()), face.data());
  return face.data() == std::wstring(L"MS Sans Serif");
}

void UseWindows(const std::function<void()>& show, const std::function<void()>& work) {
  isShown = true;
  const UINT_PTR timer = SetTimer(nullptr, 0, Pause, Tick);
  const HANDLE user = CreateThread(nullptr, 0, RunWork, const_cast<std::function<void()>*>(&work), 0, nullptr);
  show();
  isShown = false;
  KillTimer(nullptr, timer);
  MSG message{};
  do {  // it may ask a window
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&message);
  } while (MsgWaitForMultipleObjects(1, &user, FALSE, INFINITE, QS_ALLINPUT) != WAIT_OBJECT_0);
  while (PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE)) continue;
  CloseHandle(user);
}

void Press(WORD key, WORD modifier) {
  const DWORD extended = key >= VK_PRIOR && key <= VK_DOWN ? KEYEVENTF_EXTENDEDKEY : 0;
  std::vector<INPUT> inputs{KeyInput(key, extended), KeyInput(key, extended | KEYEVENTF_KEYUP)};
  if (modifier != 0) {
    inputs.insert(inputs.begin(), KeyInput(modifier, 0));
    inputs.push_back(KeyInput(modifier, KEYEVENTF_KEYUP));
  }
  Send(inputs);
}

void Type(std::wstring_view text) {
  for (const wchar_t character : text) {
    INPUT down{};
    down.type = INPUT_KEYBOARD;
    down.ki.wScan = character;
    down.ki.dwFlags = KEYEVENTF_UNICODE;
    INPUT up = down;
    up.ki.dwFlags |= KEYEVENTF_KEYUP;
    Send({down, up});
  }
}

void Click(HWND window, POINT at) { PressMouse(window, at, 1); }
void DoubleClick(HWND window, POINT at) { PressMouse(window, at, 2); }

std::wstring CaptionOf(HWND window) {
  std::array<wchar_t, 500> text{};
  SendMessageW(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()));
  return text.data();
}

HWND Await(std::wstring_view title) {
  for (int i = 0; i < Attempts; ++i) {
    for (const HWND window : TopWindows()) {
      if (IsWindowVisible(window) && CaptionOf(window) == title) {
        Settle();
        return window;
      }
    }
    Sleep(Pause);
  }
  throw std::runtime_error("no window " + std::string(title.begin(), title.end()));
}

std::wstring ActiveTitle() { return CaptionOf(ThreadInfo().hwndActive); }
HWND Focus() { return ThreadInfo().hwndFocus; }
int CountWindows() { return static_cast<int>(TopWindows().size()); }

HWND ChildWithId(HWND window, int id) {
  struct Search {
    int Id;
    HWND Found = nullptr;
    static BOOL CALLBACK Compare(HWND child, LPARAM self) {
      auto& search = *reinterpret_cast<Search*>(self);
      if (GetDlgCtrlID(child) == search.Id) search.Found = child;
      return search.Found ? FALSE : TRUE;
    }
  } search{id};
  EnumChildWindows(window, Search::Compare, reinterpret_cast<LPARAM>(&search));
  return search.Found;
}

HWND WindowOf(const ui::Control& control) {
  const auto& controls = control.Parent->Controls();
  const int id = static_cast<int>(std::ranges::find(controls, &control) - controls.begin()) + 1;
  const std::string& caption = control.Parent->Caption;
  for (const HWND window : TopWindows()) {
    if (CaptionOf(window) != std::wstring(caption.begin(), caption.end())) continue;
    if (const HWND child = ChildWithId(window, id)) return child;
  }
  throw std::runtime_error("no window of " + control.Name);
}

HTREEITEM ItemOf(HWND tree, std::wstring_view text, HTREEITEM below) {
  const HTREEITEM first = Next(tree, below, below == TVI_ROOT ? TVGN_ROOT : TVGN_CHILD);
  for (HTREEITEM item = first; item; item = Next(tree, item, TVGN_NEXT)) {
    if (TextOf(tree, item) == text) return item;
    if (const HTREEITEM found = ItemOf(tree, text, item)) return found;
  }
  return nullptr;
}

std::wstring SelectedText(HWND tree) {
  const HTREEITEM item = Next(tree, nullptr, TVGN_CARET);
  return item ? TextOf(tree, item) : L"";
}

POINT PlaceOf(HWND tree, HTREEITEM item) {
  SendMessageW(tree, TVM_ENSUREVISIBLE, 0, reinterpret_cast<LPARAM>(item));
  union {
    RECT Place;
    HTREEITEM Item;
  } rectangle{};
  rectangle.Item = item;
  SendMessageW(tree, TVM_GETITEMRECT, TRUE, reinterpret_cast<LPARAM>(&rectangle));
  return {rectangle.Place.left + 6, (rectangle.Place.top + rectangle.Place.bottom) / 2};
}

POINT PlaceOfRow(HWND list, int row) {
  RECT place{};
  SendMessageW(list, LB_GETITEMRECT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&place));
  return {place.left + 6, (place.top + place.bottom) / 2};
}

}  // namespace formwizard::tests
