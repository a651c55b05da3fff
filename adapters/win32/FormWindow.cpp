#include "adapters/win32/FormWindow.h"

#include "adapters/win32/FrameView.h"
#include "adapters/win32/Keyboard.h"
#include "adapters/win32/Text.h"
#include "adapters/win32/UserInput.h"
#include "ui/WindowFrame.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace formwizard::adapters::win32 {
namespace {

constexpr wchar_t FormClass[] = L"OstrelFormWizardForm";
constexpr DWORD FormStyle = WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_CLIPCHILDREN;
constexpr DWORD FormExtendedStyle = WS_EX_DLGMODALFRAME | WS_EX_CONTROLPARENT;

// What the frame and the caption of the design take of a form's size. The system's own may take more or less.
constexpr const ui::WindowFrame& DesignedFrame = ui::WindowFrames[ui::FixedDialogFrame];

SIZE WindowSizeOf(const ui::Form& form) {
  RECT all{0, 0, PixelsOf(form.Width.Value() - DesignedFrame.Width()),
           PixelsOf(form.Height.Value() - DesignedFrame.Height())};
  AdjustWindowRectEx(&all, FormStyle, FALSE, FormExtendedStyle);
  return {all.right - all.left, all.bottom - all.top};
}

// In the middle of the owner, or else of the screen, and wholly on the screen.
POINT CenteredPlace(SIZE size, HWND owner) {
  MONITORINFO monitor{};
  monitor.cbSize = sizeof(monitor);
  GetMonitorInfoW(MonitorFromWindow(owner, MONITOR_DEFAULTTOPRIMARY), &monitor);
  const RECT& work = monitor.rcWork;
  RECT around = work;
  if (owner && IsWindowVisible(owner) && !IsIconic(owner)) GetWindowRect(owner, &around);
  const LONG left = (around.left + around.right - size.cx) / 2;
  const LONG top = (around.top + around.bottom - size.cy) / 2;
  return {std::max(work.left, std::min(left, work.right - size.cx)),
          std::max(work.top, std::min(top, work.bottom - size.cy))};
}

}  // namespace

FormWindow::FormWindow(ui::Form& form, HWND owner, BusyPointer& pointer, const ControlsContext& controls)
    : form_(form),
      pointer_(pointer),
      controlsContext_(controls),
      formClass_(FormClass, Procedure),
      frameClass_(FrameClass, FrameProcedure) {
  const InForce own(controlsContext_.Own());
  const SIZE size = WindowSizeOf(form);
  const POINT place = CenteredPlace(size, owner);
  Made(CreateWindowExW(FormExtendedStyle, FormClass, L"", FormStyle, place.x, place.y, size.cx, size.cy, owner, nullptr,
                       ThisModule(), this));
  toolTips_ = CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX, 0, 0, 0,
                              0, handle_, nullptr, ThisModule(), nullptr);
  MakeViews();
  form_.Observe(this);
}

FormWindow::~FormWindow() { form_.Observe(nullptr); }

void FormWindow::MakeViews() {
  for (ui::Control* control : form_.Controls()) ViewOf(*control);
  Arrange();
  if (ui::Control* first = form_.NextFocus()) form_.SetFocus(*first);
}

void FormWindow::Arrange() {
  arrangement_.Arrange(form_, [this](const ui::Control& control, LONG width) {
    const View& view = *views_.at(&control);
    return Room{view.TextHeight(width), view.Scrolls()};
  });
  Grow();
  for (const auto& [control, view] : views_) view->ShowPlace();
}

// A dialog that has grown keeps its size.
void FormWindow::Grow() {
  const LONG by = arrangement_.Growth() - growth_;
  if (by <= 0) return;
  growth_ += by;
  RECT place{};
  GetWindowRect(handle_, &place);
  const SIZE size{place.right - place.left, place.bottom - place.top + by};
  const POINT at =
      IsWindowVisible(handle_) ? POINT{place.left, place.top} : CenteredPlace(size, GetWindow(handle_, GW_OWNER));
  SetWindowPos(handle_, nullptr, at.x, at.y, size.cx, size.cy, SWP_NOZORDER | SWP_NOACTIVATE);
}

// A container is made before what stands in it.
View& FormWindow::ViewOf(ui::Control& control) {
  const auto known = views_.find(&control);
  if (known != views_.end()) return *known->second;
  if (control.Container) ViewOf(*control.Container);
  View& view = *views_.emplace(&control, MakeView(*this, control)).first->second;
  controls_.emplace(view.Handle(), &control);
  view.Update();
  return view;
}

HWND FormWindow::HandleOf(const ui::Control* container) { return container ? views_.at(container)->Handle() : handle_; }

HMENU FormWindow::IdOf(const ui::Control& control) const {
  const auto found = std::ranges::find(form_.Controls(), &control);
  return reinterpret_cast<HMENU>(static_cast<UINT_PTR>(found - form_.Controls().begin() + 1));
}

View* FormWindow::ViewOf(HWND window) const {
  const auto found = controls_.find(window);
  return found == controls_.end() ? nullptr : views_.at(found->second).get();
}

void FormWindow::SetToolTip(HWND control, const std::string& text) const {
  const std::wstring wide = Wide(text);
  TTTOOLINFOW tool{};
  tool.cbSize = TTTOOLINFOW_V2_SIZE;  // the one that every version of the library takes
  tool.uFlags = TTF_SUBCLASS | TTF_IDISHWND;
  tool.hwnd = handle_;
  tool.uId = reinterpret_cast<UINT_PTR>(control);
  tool.lpszText = const_cast<wchar_t*>(wide.c_str());
  SendMessageW(toolTips_, TTM_DELTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
  if (!text.empty()) SendMessageW(toolTips_, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
}

void FormWindow::NoteChange(View& view) {
  if (changedViews_.empty()) Wake();
  changedViews_.push_back(&view);
}

void FormWindow::Changed() {
  wasBusy_ |= !form_.Enabled;
  if (!std::exchange(changed_, true)) Wake();
}

void FormWindow::ShowModal() {
  others_.emplace(handle_);
  ShowChanges();
  ShowWindow(handle_, SW_SHOW);
  MSG message{};
  while (!IsOver() && GetMessageW(&message, nullptr, 0, 0) > 0) {
    Process(message);
    if (others_) others_->AddNew();
  }
  // The program ends: the loops outside this one shall hear it.
  if (message.message == WM_QUIT) PostQuitMessage(static_cast<int>(message.wParam));
  others_.reset();
}

void FormWindow::End() {
  ended_ = true;
  others_.reset();  // while this window is there: see DisabledWindows
  for (const HWND window : {GetCapture(), handle_}) {
    if (IsOwn(window)) SendMessageW(window, WM_CANCELMODE, 0, 0);  // an open menu, a moved window
  }
  ShowWindow(handle_, SW_HIDE);
  Wake();
}

void FormWindow::Process(const MSG& message) {
  if (!PassInput(message)) {
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
  if (!handle_) return;
  FollowFocus();
  do {
    RunActions();
    if (!IsOver()) ShowChanges();  // which may move the focus, and so lead to another action
  } while (!actions_.empty() && !IsOver());
}

// Whether the message was input that goes no further.
bool FormWindow::PassInput(const MSG& message) {
  if (!IsInput(message.message) || !IsOwn(message.hwnd)) return false;
  if (!form_.Enabled) return true;
  View* view = ViewOf(message.hwnd);
  if (view && (message.message == WM_LBUTTONDOWN || message.message == WM_LBUTTONDBLCLK)) {
    view->OnPress({static_cast<short>(LOWORD(message.lParam)), static_cast<short>(HIWORD(message.lParam))});
  }
  return PressKey(*this, message);
}

// The dialog learns where the user has moved the focus to.
void FormWindow::FollowFocus() {
  const HWND focus = GetFocus();
  if (std::exchange(focus_, focus) == focus) return;
  const auto found = controls_.find(focus);
  if (found == controls_.end()) return;
  ui::Control& control = *found->second;
  if (control.TakesFocus() && control.TakesInput()) form_.SetFocus(control);
}

void FormWindow::RunActions() {
  while (!actions_.empty() && !IsOver()) {
    const std::function<void()> action = std::move(actions_.front());
    actions_.pop_front();
    if (!form_.Enabled) continue;
    wasBusy_ = false;
    try {
      action();
    } catch (const std::runtime_error& failure) {  // an input that cannot be used; run-time errors do not come here
      form_.Enabled = true;
      ShowFailure(failure);
    } catch (const std::exception& mistake) {
      failed_ = true;
      ShowFailure(mistake);
    }
    if (std::exchange(wasBusy_, false) && handle_) DropPresses(handle_);
  }
}

void FormWindow::ShowFailure(const std::exception& failure) {
  if (ended_) return;
  pointer_.Set(ui::MousePointer::Default);
  MessageBoxW(handle_, Wide(failure.what()).c_str(), Wide(form_.Caption).c_str(), MB_OK | MB_ICONERROR);
}

void FormWindow::ShowChanges() {
  // Asked before windows are hidden, because the system then moves the focus by itself.
  ui::Control* next = form_.Enabled && !form_.ActiveControl() ? form_.NextFocus() : nullptr;
  if (!changedViews_.empty()) Arrange();
  for (View* view : std::exchange(changedViews_, {})) view->Update();
  if (next) form_.SetFocus(*next);
  if (std::exchange(changed_, false)) SetText(handle_, form_.Caption);
  if (!form_.Enabled) return;
  ShowDefaultButton();
  ShowFocus();
}

// The button that Enter presses has a thicker frame.
void FormWindow::ShowDefaultButton() {
  ui::Control* button = dynamic_cast<ui::CommandButton*>(form_.ActiveControl());
  if (!button) button = form_.DefaultButton();
  const HWND handle = button ? ViewOf(*button).Handle() : nullptr;
  const HWND previous = std::exchange(defaultButton_, handle);
  if (previous == handle) return;
  if (previous) SendMessageW(previous, BM_SETSTYLE, BS_PUSHBUTTON, TRUE);
  if (handle) SendMessageW(handle, BM_SETSTYLE, BS_DEFPUSHBUTTON, TRUE);
}

void FormWindow::ShowFocus() {
  ui::Control* active = form_.ActiveControl();
  if (!active || GetActiveWindow() != handle_) return;
  const HWND handle = ViewOf(*active).Handle();
  if (GetFocus() == handle) return;
  const bool before = std::exchange(movingFocus_, true);
  SetFocus(handle);
  movingFocus_ = before;
  focus_ = GetFocus();
}

LRESULT CALLBACK FormWindow::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_NCCREATE) {
    auto* self = static_cast<FormWindow*>(reinterpret_cast<const CREATESTRUCTW*>(lParam)->lpCreateParams);
    self->handle_ = window;
    SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(self));
  }
  auto* self = reinterpret_cast<FormWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (!self) return DefWindowProcW(window, message, wParam, lParam);
  try {
    const InForce own(self->controlsContext_.Own());
    return self->Handle(message, wParam, lParam);
  } catch (const std::exception& mistake) {  // none may pass through the system's own code
    self->failed_ = true;
    self->ShowFailure(mistake);
    return 0;
  }
}

LRESULT FormWindow::Handle(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_COMMAND:
      if (View* view = ViewOf(reinterpret_cast<HWND>(lParam)); view && !view->IsChanging() && !movingFocus_) {
        view->OnCommand(HIWORD(wParam));  // an option that gets the focus says that it was clicked
      }
      return 0;
    case WM_NOTIFY:
      return PassReport(*reinterpret_cast<NMHDR*>(lParam));
    case WM_DRAWITEM: {
      const auto& item = *reinterpret_cast<const DRAWITEMSTRUCT*>(lParam);
      if (View* view = ViewOf(item.hwndItem)) view->OnDraw(item);
      return TRUE;
    }
    case WM_SETFOCUS:
      ShowFocus();
      return 0;
    case WM_SETCURSOR:
      return pointer_.Show() ? TRUE : HandleBySystem(message, wParam, lParam);
    case WM_CLOSE:
      Act([this] { form_.Close(); });
      return 0;
    case WM_NCDESTROY:
      return DefWindowProcW(std::exchange(handle_, nullptr), message, wParam, lParam);
    default:
      return HandleBySystem(message, wParam, lParam);
  }
}

// Which runs loops of its own, for menus and for moving the window, in which the program's other windows work.
LRESULT FormWindow::HandleBySystem(UINT message, WPARAM wParam, LPARAM lParam) const {
  const InForce program(controlsContext_.Program());
  return DefWindowProcW(handle_, message, wParam, lParam);
}

LRESULT FormWindow::PassReport(NMHDR& report) {
  View* view = ViewOf(report.hwndFrom);
  if (!view) return 0;
  if (!view->IsChanging()) view->OnNotify(report);
  return view->AnswerTo(report);
}

}  // namespace formwizard::adapters::win32
