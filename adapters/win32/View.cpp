#include "adapters/win32/View.h"

#include "adapters/win32/FormWindow.h"
#include "adapters/win32/Screen.h"
#include "adapters/win32/WindowClass.h"

#include <stdexcept>
#include <utility>

namespace formwizard::adapters::win32 {

View::View(FormWindow& window, const ui::Control& control, const WindowKind& kind)
    : window_(window),
      control_(control),
      handle_(Made(CreateWindowExW(kind.ExtendedStyle, kind.Class, L"", WS_CHILD | kind.Style, 0, 0, 0, 0,
                                   window.HandleOf(control.Container), window.IdOf(control), ThisModule(), nullptr))) {}

void View::NoteChange() {
  if (!std::exchange(noted_, true)) window_.NoteChange(*this);
}

void View::Act(std::function<void()> action) { window_.Act(std::move(action)); }

void View::Freeze() {
  if (!std::exchange(frozen_, true)) Send(WM_SETREDRAW, FALSE);
}

void View::Update() {
  const Changing changing(*this);
  noted_ = false;
  ShowFont();
  ShowToolTip();
  if ((IsWindowEnabled(handle_) != FALSE) != control_.Enabled.Get()) EnableWindow(handle_, control_.Enabled);
  Show();
  if (std::exchange(frozen_, false)) {
    Send(WM_SETREDRAW, TRUE);
    InvalidateRect(handle_, nullptr, TRUE);
  }
  ShowWindow(handle_, control_.Visible ? SW_SHOWNA : SW_HIDE);
}

void View::ShowFont() {
  const HFONT font = window_.FontFor(control_.Font, std::string(control_.CaptionText()) + foreign_);
  if (std::exchange(font_, font) != font) Send(WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE);
}

void View::NeedFontFor(std::string_view text) {
  if (!foreign_.empty() || window_.Draws(control_.Font, text)) return;
  foreign_ = text;
  ShowFont();
}

void View::ShowToolTip() {
  if (toolTip_ == control_.ToolTipText.Get()) return;
  toolTip_ = control_.ToolTipText;
  window_.SetToolTip(handle_, toolTip_);
}

void View::ShowPlace() {
  const RECT& place = window_.PlaceOf(control_);
  if (EqualRect(&place, &place_)) return;
  place_ = place;
  Place(place);
}

LONG View::CaptionHeight(LONG width) const {
  RECT needed{0, 0, width, 0};
  const std::wstring caption = Wide(control_.CaptionText());
  const MemoryContext context(window_.FontFor(control_.Font, control_.CaptionText()));
  DrawTextW(context, caption.c_str(), -1, &needed, DT_CALCRECT | DT_WORDBREAK | DT_EXPANDTABS);
  return needed.bottom;
}

void View::Place(const RECT& place) {
  SetWindowPos(handle_, nullptr, place.left, place.top, place.right - place.left, place.bottom - place.top,
               SWP_NOZORDER | SWP_NOACTIVATE);
}

std::unique_ptr<View> MakeView(FormWindow& window, ui::Control& control) {
  for (const auto make : {MakeSimpleView, MakeFrameView, MakeListView, MakeTreeView}) {
    if (auto view = make(window, control)) return view;
  }
  throw std::logic_error("a kind of control without a view: " + control.Name);
}

}  // namespace formwizard::adapters::win32
