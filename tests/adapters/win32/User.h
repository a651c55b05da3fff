// Somebody at keyboard and mouse: another thread, whose input goes the way of real input.
#pragma once

#include "tests/support/WizardPass.h"

#include <windows.h>

#include <commctrl.h>

namespace formwizard::tests {

// Whether the system has the font that the dialogs are designed for. Without it texts have other widths.
bool HasDialogFont();

// The visible window that owns the dialogs. It runs what other threads want done on its own.
class MainWindow : Pinned {
 public:
  MainWindow();
  ~MainWindow();

  HWND Handle() const { return handle_; }
  void Run(const std::function<void()>& work) const;

 private:
  HWND handle_;
};

// Runs `show`, which opens a window and returns when it is closed, while somebody works with that window. Who fails, by
// an exception, or leaves a window open finds them closed, and the test failed.
void UseWindows(const std::function<void()>& show, const std::function<void()>& work);

// All that follows is for `work`. Each action returns when the windows have nothing more to do.
void Press(WORD key, WORD modifier = 0);
void PressAccessKey(char key);
void Type(std::wstring_view text);
void Click(HWND window, POINT at = {8, 8}, int times = 1);

// The window that has the user's input, and its title.
HWND ActiveWindow();
std::wstring ActiveTitle();
HWND Focus();
// The shown window of a control in the active dialog; an error when there is none. It bears the number of the control's
// place in the tab order, so the control of another dialog with the same design will do.
HWND WindowOf(const ui::Control& control);
// All shown windows of the controls in a window.
std::vector<HWND> ShownControls(HWND window);
std::wstring CaptionOf(HWND window);

// With the mouse.
void Click(const ui::Control& control, POINT at = {8, 8});

class KeyboardUser : public Keyboard {
 public:
  void PressAccessKeyOf(const ui::Control& button) override;

 protected:
  void Strike(Key key) override;
  void Type(const std::string& text) override;
  bool HasFocus(const ui::Control& control) override;
  std::string ChosenText() override;
};

class MouseUser : public User {
 public:
  void Press(const ui::Control& button) override { Click(button); }
  void Take(const ui::Control& tree, const std::string& node, const std::string& below, const ui::Control&) override;
  void ChooseRow(const ui::Control& list, int row) override;
  void ChooseInCombo(const ui::Control& combo, const std::string& entry) override;
  void TypeOver(const ui::Control& box, const std::string& text) override;
  void Raise(const ui::UpDown& arrows) override { Click(arrows, {4, 4}); }  // the upper one
};

// What is drawn in trees.
HTREEITEM ItemOf(HWND tree, std::wstring_view text, HTREEITEM below = TVI_ROOT);
std::wstring SelectedText(HWND tree);
POINT PlaceOf(HWND tree, HTREEITEM item);

// Whether a message box has the user's input.
bool IsAtMessage();
// Closes the message box that is there or comes before long, and gives "TITLE: TEXT".
std::string DismissMessage();

// Top-level windows of this program's first thread, visible or not.
int CountWindows();

}  // namespace formwizard::tests
