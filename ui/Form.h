// A dialog: what the whole window shows, its controls, and what becomes of an error that an event handler lets escape.
#pragma once

#include "runtime/RuntimeError.h"
#include "ui/Control.h"
#include "ui/Controls.h"
#include "ui/Desktop.h"

#include <string>
#include <string_view>
#include <vector>

namespace formwizard::ui {

class Form : public Observed {
 public:
  explicit Form(Desktop& desktop) : desktop_(desktop) {}
  virtual ~Form() = default;
  Form(const Form&) = delete;
  Form& operator=(const Form&) = delete;

  Property<std::string> Caption{*this};
  Property<bool> Enabled{*this, true};
  ui::Font Font{*this};
  std::string Tag;
  Int32 Width, Height;  // outer size, twips

  // In tab order.
  const std::vector<Control*>& Controls() const { return controls_; }

  // Runs the dialog's loading work; called by the desktop each time before it shows the dialog. An error that escapes
  // it is the caller's, and the dialog is not shown.
  void Load();
  bool IsUnloaded() const { return unloaded_; }
  // Runs the closing work once.
  void Unload();

  // The control with the focus; null when none has it that takes input.
  Control* ActiveControl() const { return activeControl_ && activeControl_->TakesInput() ? activeControl_ : nullptr; }
  // Error 5 for a control that cannot have the focus now.
  void SetFocus(Control& control);
  // What the focus goes to when the control that had it is gone: the first in tab order that is no button, else the
  // default button. Null when there is neither.
  Control* NextFocus() const;
  // What pressing Enter or Escape clicks; null when there is no such button.
  CommandButton* DefaultButton() const;
  CommandButton* CancelButton() const;
  // The control that an access key means now: the one with the key in its caption, or the next one that takes the
  // focus when that is a label or frame. Letters compare without regard to case. Null when there is none.
  Control* ControlOf(std::string_view accessKey) const;
  // The one that a label announces: the next control in tab order, in the same container, of a kind that can have the
  // focus. Null when there is none.
  Control* AnnouncedBy(const Control& label) const;

  // What a user does at the keyboard, and with the window's closing button.
  void PressEnter();
  void PressEscape();
  void PressTab(bool backward = false);
  void PressAccessKey(std::string_view key);
  void Close();

  // At most one view; null takes it away.
  void Observe(ControlObserver* observer) { observer_ = observer; }
  void Changed() override {
    if (observer_) observer_->Changed();
  }

 protected:
  // Where a control stands and what it is called, as designed.
  struct Design {
    std::string_view Name;
    Control* Container;
    int Left, Top, Width, Height;  // twips
    std::string_view Tag;
  };
  // Puts a member of the form behind all others in tab order.
  void Add(Control& control, const Design& design);

  // What every loading begins with: a form that can be used and has no focus yet.
  void Reopen();

  virtual void OnLoad() {}
  virtual void OnUnload() {}

  // Wraps an event handler: a run-time error that it lets escape ends the event and is shown as the environment shows
  // it; the dialog stays usable.
  template <typename Handler>
  auto Guarded(Handler handler) {
    return [this, handler](auto&&... arguments) {
      try {
        handler(arguments...);
      } catch (const runtime::RuntimeError& error) {
        ShowError(error);
      }
    };
  }

 private:
  void ShowError(const runtime::RuntimeError& error);

  Desktop& desktop_;
  std::vector<Control*> controls_;
  Control* activeControl_ = nullptr;
  bool unloaded_ = false;
  ControlObserver* observer_ = nullptr;
};

}  // namespace formwizard::ui
