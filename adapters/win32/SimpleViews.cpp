#include "adapters/win32/FormWindow.h"
#include "adapters/win32/ObservingView.h"
#include "adapters/win32/Pictures.h"
#include "adapters/win32/Screen.h"
#include "adapters/win32/View.h"
#include "ui/MakeFirst.h"

#include <array>
#include <concepts>
#include <cstddef>

namespace formwizard::adapters::win32 {
namespace {

constexpr int BoxTwips = 270;  // the box or circle before a caption, with its distance

class LabelView : public ObservingView<ui::Label> {
 public:
  LabelView(FormWindow& window, ui::Label& control) : ObservingView(window, control, {WC_STATICW, SS_LEFT}) {}
  LONG TextHeight(LONG width) const override { return CaptionHeight(width); }

 private:
  void Show() override { SetText(Handle(), control_.Caption); }
};

template <typename Button>
constexpr DWORD StyleOf = BS_PUSHBUTTON;
template <>
constexpr DWORD StyleOf<ui::CheckBox> = BS_3STATE | BS_MULTILINE;
template <>
constexpr DWORD StyleOf<ui::OptionButton> = BS_RADIOBUTTON | BS_MULTILINE;

// Buttons of all sorts: clicks, and how the state behind the caption is shown. None changes its state by itself.
template <typename Button>
class ButtonView : public ObservingView<Button> {
 public:
  ButtonView(FormWindow& window, Button& control)
      : ObservingView<Button>(window, control, {WC_BUTTONW, WS_TABSTOP | StyleOf<Button>}) {}

  LONG TextHeight(LONG width) const override {
    if constexpr (std::same_as<Button, ui::CommandButton>) return 0;
    return this->CaptionHeight(width - PixelsOf(BoxTwips));
  }
  void OnCommand(int code) override {
    if (code == BN_CLICKED) this->Act([this] { this->control_.Click(); });
  }

 private:
  void Show() override {
    SetText(this->Handle(), this->control_.Caption);
    ShowState(this->control_);
  }
  void ShowState(const ui::CommandButton&) {}
  void ShowState(const ui::CheckBox& box) { this->Send(BM_SETCHECK, static_cast<WPARAM>(box.Value())); }
  void ShowState(const ui::OptionButton& option) {
    this->Send(BM_SETCHECK, option.Value() ? BST_CHECKED : BST_UNCHECKED);
  }
};

class TextView : public ObservingView<ui::TextBox> {
 public:
  TextView(FormWindow& window, ui::TextBox& control)
      : ObservingView(window, control, {WC_EDITW, WS_TABSTOP | ES_AUTOHSCROLL, WS_EX_CLIENTEDGE}) {}

  void OnCommand(int code) override {
    if (code != EN_CHANGE) return;
    NoteChange();  // the dialog may refuse the text
    Act([this] { control_.Type(Utf8(TextOf(Handle()))); });
  }

 private:
  void Show() override {
    NeedFontFor(control_.Text());
    SetText(Handle(), control_.Text());
  }
};

// The window's own number stays in the middle; it only says which arrow was pressed.
class UpDownView : public ObservingView<ui::UpDown> {
 public:
  UpDownView(FormWindow& window, ui::UpDown& control) : ObservingView(window, control, {UPDOWN_CLASSW}) {
    Send(UDM_SETRANGE32, 0, 2);
    Send(UDM_SETPOS32, 0, 1);
  }

  void OnNotify(const NMHDR& report) override {
    if (report.code != UDN_DELTAPOS) return;
    const int by = reinterpret_cast<const NMUPDOWN&>(report).iDelta > 0 ? 1 : -1;
    Act([this, by] { control_.Spin(by); });
  }
  LRESULT AnswerTo(NMHDR& report) const override { return report.code == UDN_DELTAPOS; }
};

class PictureView : public ObservingView<ui::PictureBox> {
 public:
  PictureView(FormWindow& window, ui::PictureBox& control)
      : ObservingView(window, control, {WC_STATICW, SS_OWNERDRAW}) {}

  void OnDraw(const DRAWITEMSTRUCT& item) override {
    const RECT& place = item.rcItem;
    const SIZE size{place.right - place.left, place.bottom - place.top};
    const resources::Picture* picture = resources::WizardPicture(control_.Picture.Get().Value());
    if (!picture || size.cx <= 0 || size.cy <= 0) return;
    if (drawn_ != picture) bitmap_ = Render(*picture, size, GetSysColor(COLOR_BTNFACE));
    drawn_ = picture;
    const MemoryContext context(bitmap_.get());
    BitBlt(item.hDC, place.left, place.top, size.cx, size.cy, context, 0, 0, SRCCOPY);
  }

 private:
  void Show() override { InvalidateRect(Handle(), nullptr, TRUE); }

  const resources::Picture* drawn_ = nullptr;
  Owned<HBITMAP> bitmap_;
};

// Lies along the lower edge of the dialog. Says at once what is being done, because long work follows.
class StatusView : public ObservingView<ui::StatusBar> {
 public:
  StatusView(FormWindow& window, ui::StatusBar& control) : ObservingView(window, control, {STATUSCLASSNAMEW}) {}

  void Changed() override {
    Update();
    UpdateWindow(Handle());
  }

 private:
  void Place(const RECT&) override {
    Send(WM_SIZE);
    RECT all{};
    GetClientRect(Handle(), &all);
    std::array<int, 2> edges{static_cast<int>(all.right * 3 / 4), -1};  // right edges; -1: the bar's own
    Send(SB_SETPARTS, edges.size(), reinterpret_cast<LPARAM>(edges.data()));
  }
  void Show() override {
    for (std::size_t i = 0; i < control_.Panels.size(); ++i) {
      NeedFontFor(control_.Panels[i].Get());
      Send(SB_SETTEXTW, i, reinterpret_cast<LPARAM>(Wide(control_.Panels[i]).c_str()));
    }
  }
};

}  // namespace

std::unique_ptr<View> MakeSimpleView(FormWindow& window, ui::Control& control) {
  return ui::MakeFirst<View, LabelView, ButtonView<ui::CommandButton>, ButtonView<ui::CheckBox>,
                       ButtonView<ui::OptionButton>, TextView, UpDownView, PictureView, StatusView>(window, control);
}

}  // namespace formwizard::adapters::win32
