// A window that shows a dialog of the core and passes on what the user does.
#pragma once

#include "adapters/win32/Arrangement.h"
#include "adapters/win32/CurrentControls.h"
#include "adapters/win32/Screen.h"
#include "adapters/win32/UserInput.h"
#include "adapters/win32/View.h"
#include "adapters/win32/WindowClass.h"
#include "ui/Form.h"

#include <windows.h>

#include <deque>
#include <exception>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace formwizard::adapters::win32 {

class FormWindow : private ui::ControlObserver {
 public:
  // Builds the window with one view for each control of the dialog. All but `owner`, which may be null, must outlive
  // it.
  FormWindow(ui::Form& form, HWND owner, BusyPointer& pointer, const ControlsContext& controls);
  ~FormWindow() override;

  // Shows the window and returns when the dialog is over. All other windows of the thread are disabled meanwhile.
  void ShowModal();
  // Hides the window for good and gives the others back to the user. The dialog is over as soon as what runs in it
  // ends.
  void End();

  // What the user does waits until the window in which it was done has finished with the message, then it is done to
  // the dialog; a dialog that is busy or over does not hear of it.
  void Act(std::function<void()> action) {
    if (form_.Enabled) actions_.push_back(std::move(action));
  }
  // Shows at once what has changed.
  void ShowChanges();
  void NoteChange(View& view);

  ui::Form& ShownForm() const { return form_; }
  HWND Handle() const { return handle_; }
  // The window that the controls of a container stand in; null: the dialog itself.
  HWND HandleOf(const ui::Control* container);
  // The place of a control in the tab order, from 1, by which programs that read the screen tell windows apart.
  HMENU IdOf(const ui::Control& control) const;
  // Null for a window that shows no control.
  View* ViewOf(HWND window) const;
  const RECT& PlaceOf(const ui::Control& control) const { return arrangement_.PlaceOf(control); }
  HFONT FontFor(const ui::Font& font, std::string_view text) { return fonts_.FontFor(font, text); }
  bool Draws(const ui::Font& font, std::string_view text) { return fonts_.Draws(font, text); }
  void SetToolTip(HWND control, const std::string& text) const;

 private:
  void Changed() override;
  void MakeViews();
  void Arrange();
  void Grow();
  View& ViewOf(ui::Control& control);
  void Wake() const { PostMessageW(handle_, WM_NULL, 0, 0); }

  bool IsOver() const { return !handle_ || failed_ || ended_ || form_.IsUnloaded(); }
  bool IsOwn(HWND window) const { return window && (window == handle_ || IsChild(handle_, window)); }
  void Process(const MSG& message);
  bool PassInput(const MSG& message);
  void FollowFocus();
  void RunActions();
  void ShowFailure(const std::exception& failure);
  void ShowForm();
  void ShowDefaultButton();
  void ShowFocus();

  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  LRESULT Handle(UINT message, WPARAM wParam, LPARAM lParam);
  LRESULT HandleBySystem(UINT message, WPARAM wParam, LPARAM lParam) const;
  LRESULT PassReport(NMHDR& report);

  // Destroys the window before anything that it uses goes.
  class Destroyer {
   public:
    explicit Destroyer(const HWND& window) : window_(window) {}
    ~Destroyer() {
      if (window_) DestroyWindow(window_);
    }
    Destroyer(const Destroyer&) = delete;
    Destroyer& operator=(const Destroyer&) = delete;

   private:
    const HWND& window_;
  };

  ui::Form& form_;
  BusyPointer& pointer_;
  const ControlsContext& controlsContext_;
  WindowClass formClass_, frameClass_;
  Fonts fonts_;
  Arrangement arrangement_;
  LONG growth_ = 0;  // of the window over its designed height
  HWND handle_ = nullptr;
  HWND toolTips_ = nullptr;
  std::map<const ui::Control*, std::unique_ptr<View>> views_;
  std::map<HWND, ui::Control*> controls_;
  std::vector<View*> changedViews_;
  std::deque<std::function<void()>> actions_;
  HWND focus_ = nullptr;
  HWND defaultButton_ = nullptr;
  bool changed_ = true;
  bool movingFocus_ = false;
  bool wasBusy_ = false;  // in the action that runs
  bool failed_ = false;
  bool ended_ = false;
  const Destroyer destroyer_{handle_};     // behind the others, so that it acts first
  std::optional<DisabledWindows> others_;  // while the window is shown; it ends before the window
};

}  // namespace formwizard::adapters::win32
