// The desktop as the system gives it: pointer, message boxes, modal windows, clipboard.
#pragma once

#include "adapters/win32/CurrentControls.h"
#include "adapters/win32/UserInput.h"
#include "ui/Clipboard.h"
#include "ui/Desktop.h"

#include <windows.h>

#include <string>
#include <vector>

namespace formwizard::adapters::win32 {

class FormWindow;

class Win32Desktop : public ui::Desktop, public ui::Clipboard {
 public:
  // `mainWindow` owns the dialogs and message boxes that no dialog owns; it may be null. `manifest` is the resource of
  // this module that asks for the dialogs' controls; 0: they are the program's. Message boxes always are.
  explicit Win32Desktop(HWND mainWindow, int manifest = 0);

  void SetMousePointer(ui::MousePointer pointer) override { pointer_.Set(pointer); }
  ui::MessageAnswer ShowMessage(std::string_view text, int style, std::string_view title) override;
  // What the user does meanwhile waits, so that nothing of the dialogs runs in the middle of its own work, and is
  // dropped when that ends if the dialog was disabled for it.
  void ProcessMessages() override;
  void ShowModal(ui::Form& form, ui::Form* owner) override;
  bool LendPicture(std::span<const std::byte> bitmap, const std::function<void()>& use) override;

  // Ends the dialogs and message boxes that are open, and shows no other: they are hidden when it returns. A message is
  // answered with Abort.
  void Close();

 private:
  HWND Owner() const;
  HWND WindowOf(const ui::Form* form) const;
  void ShowWindowOf(ui::Form& form, HWND owner);

  HWND mainWindow_;
  ControlsContext controls_;
  BusyPointer pointer_;
  std::vector<FormWindow*> open_;       // the active one last
  std::vector<std::wstring> messages_;  // the titles of those that are shown without a dialog
  bool isClosed_ = false;
};

}  // namespace formwizard::adapters::win32
