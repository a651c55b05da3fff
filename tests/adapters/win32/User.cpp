#include "tests/adapters/win32/User.h"

#include "adapters/win32/Screen.h"
#include "adapters/win32/Text.h"
#include "ui/Form.h"

#include <atomic>

namespace formwizard::tests {

using adapters::win32::Utf8;
using adapters::win32::Wide;

namespace {

constexpr int Attempts = 1500;  // of ten milliseconds
constexpr DWORD Pause = 10;
constexpr wchar_t MainWindowClass[] = L"MainWindowOfTests";
constexpr UINT RunMessage = WM_APP;
constexpr int TextOfMessage = 0xFFFF;  // the id of the text in a message box

const DWORD WindowThread = GetCurrentThreadId();  // windows are opened by the thread that runs the tests
std::atomic<int> idleTimes = 0;
std::atomic<bool> isAsked = false;
std::atomic<bool> isShown = false;
HWND activeBefore = nullptr;  // when there was nothing to use yet

LRESULT CALLBACK MainProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message != RunMessage) return DefWindowProcW(window, message, wParam, lParam);
  (*reinterpret_cast<const std::function<void()>*>(lParam))();
  return 0;
}

// The windows have nothing more to do when they take input. Timers come after everything else that waits for a thread,
// so at each tick a key that nobody has is put among the input; a dialog that works leaves it there until it has
// finished.
void CALLBACK Tick(HWND, UINT, UINT_PTR, DWORD) {
  if (!isAsked.exchange(true)) PostThreadMessageW(WindowThread, WM_KEYUP, VK_NONAME, 0);
}

LRESULT CALLBACK Hear(int code, WPARAM removed, LPARAM heard) {
  const auto& message = *reinterpret_cast<const MSG*>(heard);
  if ((removed & PM_REMOVE) != 0 && message.message == WM_KEYUP && message.wParam == VK_NONAME && isAsked) {
    ++idleTimes;
    isAsked = false;
  }
  return CallNextHookEx(nullptr, code, removed, heard);
}

void Settle() {
  const int before = idleTimes;
  for (int i = 0; i < Attempts && idleTimes < before + 3; ++i) {
    if (!isShown) return;
    Sleep(Pause);
  }
  if (isShown && idleTimes < before + 3) throw std::runtime_error("the windows do not answer");
}

void Send(std::vector<INPUT> inputs) {
  SendInput(static_cast<UINT>(inputs.size()), inputs.data(), sizeof(INPUT));
  Settle();
}

// Of a key or, with KEYEVENTF_UNICODE, of a character.
INPUT KeyInput(WORD key, DWORD flags) {
  const bool isCharacter = (flags & KEYEVENTF_UNICODE) != 0;
  INPUT input{};
  input.type = INPUT_KEYBOARD;
  input.ki.wVk = isCharacter ? WORD{0} : key;
  input.ki.wScan = isCharacter ? key : static_cast<WORD>(MapVirtualKeyW(key, MAPVK_VK_TO_VSC));
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

BOOL CALLBACK AddTo(HWND window, LPARAM list) {
  reinterpret_cast<std::vector<HWND>*>(list)->push_back(window);
  return TRUE;
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
    for (int i = 0; i < Attempts && isShown && ActiveWindow() == activeBefore; ++i) Sleep(Pause);
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

POINT PlaceOfRow(HWND list, int row) {
  RECT place{};
  SendMessageW(list, LB_GETITEMRECT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&place));
  return {place.left + 6, (place.top + place.bottom) / 2};
}

}  // namespace

bool HasDialogFont() {
  const auto font = adapters::win32::MakeFont(8, 96, "MS Sans Serif", DEFAULT_CHARSET);
  const adapters::win32::MemoryContext context(font.get());
  std::array<wchar_t, LF_FACESIZE> face{};
  GetTextFaceW(context, static_cast<int>(face.size()), face.data());
  return face.data() == std::wstring(L"MS Sans Serif");
}

MainWindow::MainWindow() {
  WNDCLASSW description{};
  description.lpfnWndProc = MainProcedure;
  description.lpszClassName = MainWindowClass;
  description.hbrBackground = GetSysColorBrush(COLOR_APPWORKSPACE);
  RegisterClassW(&description);
  handle_ = CreateWindowExW(0, MainWindowClass, L"Host", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 20, 20, 900, 640, nullptr,
                            nullptr, nullptr, nullptr);
}

MainWindow::~MainWindow() {
  DestroyWindow(handle_);
  UnregisterClassW(MainWindowClass, nullptr);
}

void MainWindow::Run(const std::function<void()>& work) const {
  SendMessageW(handle_, RunMessage, 0, reinterpret_cast<LPARAM>(&work));
}

void UseWindows(const std::function<void()>& show, const std::function<void()>& work) {
  isShown = true;
  activeBefore = GetActiveWindow();
  isAsked = false;
  const HHOOK hook = SetWindowsHookExW(WH_GETMESSAGE, Hear, nullptr, WindowThread);
  const UINT_PTR timer = SetTimer(nullptr, 0, Pause, Tick);
  const HANDLE user = CreateThread(nullptr, 0, RunWork, const_cast<std::function<void()>*>(&work), 0, nullptr);
  try {
    show();
  } catch (const std::exception& failure) {
    FAIL_CHECK(std::string(failure.what()));
  }
  isShown = false;
  KillTimer(nullptr, timer);
  UnhookWindowsHookEx(hook);
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

void PressAccessKey(char key) { Press(static_cast<WORD>(key), VK_MENU); }

void Type(std::wstring_view text) {
  for (const wchar_t character : text) {
    Send({KeyInput(character, KEYEVENTF_UNICODE), KeyInput(character, KEYEVENTF_UNICODE | KEYEVENTF_KEYUP)});
  }
}

void Click(HWND window, POINT at, int times) { PressMouse(window, at, times); }

HWND ActiveWindow() { return ThreadInfo().hwndActive; }
std::wstring ActiveTitle() { return CaptionOf(ActiveWindow()); }
HWND Focus() { return ThreadInfo().hwndFocus; }

int CountWindows() {
  std::vector<HWND> windows;
  EnumThreadWindows(WindowThread, AddTo, reinterpret_cast<LPARAM>(&windows));
  return static_cast<int>(windows.size());
}

std::vector<HWND> ShownControls(HWND window) {
  std::vector<HWND> windows;
  EnumChildWindows(window, AddTo, reinterpret_cast<LPARAM>(&windows));
  std::erase_if(windows, [](HWND child) { return !IsWindowVisible(child) || GetDlgCtrlID(child) == 0; });
  return windows;
}

HWND WindowOf(const ui::Control& control) {
  const auto& controls = control.Parent->Controls();
  const int id = static_cast<int>(std::ranges::find(controls, &control) - controls.begin()) + 1;
  const std::vector<HWND> shown = ShownControls(ActiveWindow());
  const auto found = std::ranges::find(shown, id, GetDlgCtrlID);
  if (found != shown.end()) return *found;
  throw std::runtime_error("nothing shows " + control.Name);
}

std::wstring CaptionOf(HWND window) { return adapters::win32::TextOf(window); }

void Click(const ui::Control& control, POINT at) { Click(WindowOf(control), at); }

void KeyboardUser::PressAccessKeyOf(const ui::Control& button) {
  const std::wstring caption = CaptionOf(WindowOf(button));
  tests::PressAccessKey(static_cast<char>(caption.at(caption.find(L'&') + 1)));
}

void KeyboardUser::Strike(Key key) {
  constexpr WORD keys[] = {VK_SPACE, VK_RETURN, VK_RIGHT, VK_UP, VK_DOWN, VK_HOME, VK_TAB};
  tests::Press(keys[static_cast<std::size_t>(key)]);
}

void KeyboardUser::Type(const std::string& text) { tests::Type(Wide(text)); }

bool KeyboardUser::HasFocus(const ui::Control& control) { return Focus() == WindowOf(control); }

std::string KeyboardUser::ChosenText() {
  const HWND focus = Focus();
  const std::wstring text = Next(focus, nullptr, TVGN_CARET) ? SelectedText(focus) : CaptionOf(focus);
  return Utf8(std::wstring_view(text));
}

void MouseUser::Take(const ui::Control& tree, const std::string& node, const std::string& below, const ui::Control&) {
  const HWND window = WindowOf(tree);
  const HTREEITEM owner = below.empty() ? TVI_ROOT : ItemOf(window, Wide(below));
  PressMouse(window, PlaceOf(window, ItemOf(window, Wide(node), owner)), 2);
}

void MouseUser::ChooseRow(const ui::Control& list, int row) {
  const HWND window = WindowOf(list);
  Click(window, PlaceOfRow(window, row));
}

void MouseUser::ChooseInCombo(const ui::Control& combo, const std::string& entry) {
  const HWND window = WindowOf(combo);
  Click(window);
  COMBOBOXINFO info{};
  info.cbSize = sizeof(info);
  SendMessageW(window, CB_GETCOMBOBOXINFO, 0, reinterpret_cast<LPARAM>(&info));
  const LRESULT row = SendMessageW(window, CB_FINDSTRINGEXACT, 0, reinterpret_cast<LPARAM>(Wide(entry).c_str()));
  Click(info.hwndList, PlaceOfRow(info.hwndList, static_cast<int>(row)));
}

void MouseUser::TypeOver(const ui::Control& box, const std::string& text) {  // a text cannot be typed by mouse
  Click(box);
  tests::Press(VK_HOME);
  tests::Press(VK_END, VK_SHIFT);
  Type(Wide(text));
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

bool IsAtMessage() { return GetDlgItem(ActiveWindow(), TextOfMessage) != nullptr; }

std::string DismissMessage() {
  for (int i = 0; i < Attempts && !IsAtMessage(); ++i) Sleep(Pause);
  if (!IsAtMessage()) throw std::runtime_error("no message");
  const HWND box = ActiveWindow();
  const std::wstring shown = CaptionOf(box) + L": " + CaptionOf(GetDlgItem(box, TextOfMessage));
  Press(VK_RETURN);
  return Utf8(std::wstring_view(shown));
}

}  // namespace formwizard::tests
