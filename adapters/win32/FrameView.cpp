#include "adapters/win32/FrameView.h"

#include "adapters/win32/ObservingView.h"
#include "adapters/win32/View.h"
#include "adapters/win32/WindowClass.h"
#include "ui/MakeFirst.h"

namespace formwizard::adapters::win32 {
namespace {

// A plain panel; one with a border has a group box behind its controls.
class FrameView : public ObservingView<ui::Frame> {
 public:
  FrameView(FormWindow& window, ui::Frame& control)
      : ObservingView(window, control, {FrameClass, 0, WS_EX_CONTROLPARENT}),
        box_(Made(CreateWindowExW(0, WC_BUTTONW, L"", WS_CHILD | BS_GROUPBOX, 0, 0, 0, 0, Handle(), nullptr,
                                  ThisModule(), nullptr))) {}

 private:
  void Place(const RECT& place) override {
    ObservingView::Place(place);
    SetWindowPos(box_, nullptr, 0, 0, place.right - place.left, place.bottom - place.top,
                 SWP_NOZORDER | SWP_NOACTIVATE);
  }
  void Show() override {
    SendMessageW(box_, WM_SETFONT, reinterpret_cast<WPARAM>(ShownFont()), TRUE);
    SetText(box_, control_.Caption);
    ShowWindow(box_, control_.HasBorder ? SW_SHOWNA : SW_HIDE);
  }

  HWND box_;
};

}  // namespace

LRESULT CALLBACK FrameProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_COMMAND:
    case WM_NOTIFY:
    case WM_DRAWITEM:
      return SendMessageW(GetParent(window), message, wParam, lParam);
    default:
      return DefWindowProcW(window, message, wParam, lParam);
  }
}

std::unique_ptr<View> MakeFrameView(FormWindow& window, ui::Control& control) {
  return ui::MakeIfShown<View, FrameView>(window, control);
}

}  // namespace formwizard::adapters::win32
