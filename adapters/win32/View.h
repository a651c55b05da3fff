// The windows that show the core's controls: one kind of view for each kind of control, and no knowledge of dialogs.
#pragma once

#include "adapters/win32/Text.h"
#include "ui/Controls.h"
#include "ui/ListBox.h"
#include "ui/OptionButton.h"
#include "ui/TreeView.h"

#include <windows.h>

#include <commctrl.h>

#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace formwizard::adapters::win32 {

class FormWindow;

struct WindowKind {
  const wchar_t* Class;
  DWORD Style = 0, ExtendedStyle = 0;
};

// Changes are noted, and shown at the end of the user's action or when pending messages are processed, so that a list
// that is filled is laid out once.
class View {
 public:
  virtual ~View() = default;
  View(const View&) = delete;
  View& operator=(const View&) = delete;

  HWND Handle() const { return handle_; }
  // Shows the control as it is now.
  void Update();
  // Puts the window where it stands now.
  void ShowPlace();
  // The height that the text needs in a width, pixels; 0 for a kind whose text has one line.
  virtual LONG TextHeight(LONG) const { return 0; }
  // Whether what has no room in the window can be scrolled to.
  virtual bool Scrolls() const { return false; }
  // Whether the window is being changed by this program: what it reports then is not the user's doing.
  bool IsChanging() const { return changing_; }

  // What the window reports of its user.
  virtual void OnCommand(int) {}
  virtual void OnNotify(const NMHDR&) {}
  // The answer to a report that asks.
  virtual LRESULT AnswerTo(NMHDR&) const { return 0; }
  // A button of the mouse goes down at a point of the window.
  virtual void OnPress(POINT) {}
  virtual void OnDraw(const DRAWITEMSTRUCT&) {}
  // Whether the window itself needs a key that otherwise belongs to the dialog.
  virtual bool NeedsKey(WPARAM) const { return false; }

 protected:
  // The window belongs to that of the container.
  View(FormWindow& window, const ui::Control& control, const WindowKind& kind);

  // While one lives, the window is being changed by this program.
  class Changing {
   public:
    explicit Changing(View& view) : view_(view), before_(view.changing_) { view.changing_ = true; }
    ~Changing() { view_.changing_ = before_; }
    Changing(const Changing&) = delete;
    Changing& operator=(const Changing&) = delete;

   private:
    View& view_;
    bool before_;
  };

  void NoteChange();
  void Act(std::function<void()> action);
  HFONT ShownFont() const { return font_; }
  // Text that is no caption: where the font lacks a character of it, the window gets one for all that it shows.
  void NeedFontFor(std::string_view text);
  // Of the control's caption, in lines of a width.
  LONG CaptionHeight(LONG width) const;
  LRESULT Send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const {
    return SendMessageW(handle_, message, wParam, lParam);
  }
  // Until the next Update the window is not drawn again, however often it changes.
  void Freeze();
  // Puts the window at its place in the container, in pixels.
  virtual void Place(const RECT& place);

 private:
  // What this kind of control shows besides what all do.
  virtual void Show() {}

  void ShowFont();
  void ShowToolTip();

  FormWindow& window_;
  const ui::Control& control_;
  HWND handle_;
  RECT place_{};
  HFONT font_ = nullptr;
  std::string toolTip_;
  std::string foreign_;  // a text besides the caption that the control's own font does not draw
  bool noted_ = false;
  bool changing_ = false;
  bool frozen_ = false;
};

// The view of any kind of control that dialogs show. `control` must outlive the view.
std::unique_ptr<View> MakeView(FormWindow& window, ui::Control& control);

// The same, of some kinds each; null for a control of another kind.
std::unique_ptr<View> MakeSimpleView(FormWindow& window, ui::Control& control);
std::unique_ptr<View> MakeFrameView(FormWindow& window, ui::Control& control);
std::unique_ptr<View> MakeListView(FormWindow& window, ui::Control& control);
std::unique_ptr<View> MakeTreeView(FormWindow& window, ui::Control& control);

}  // namespace formwizard::adapters::win32
