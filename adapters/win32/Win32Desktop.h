// The desktop as the system gives it: pointer, message boxes, modal windows, clipboard.
#pragma once

#include "adapters/win32/UserInput.h"
#include "ui/Clipboard.h"
#include "ui/Desktop.h"

#include <windows.h>

#include <vector>

namespace formwizard::adapters::win32 {

class FormWindow;

class Win32Desktop : public ui::Desktop, public ui::Clipboard {
 public:
  // `mainWindow` owns the dialogs and message boxes that no dialog owns; it may be null.
  explicit Win32Desktop(HWND mainWindow);

  void SetMousePointer(ui::MousePointer pointer) override { pointer_.Set(pointer); }
  ui::MessageAnswer ShowMessage(std::string_view text, int style, std::string_view title) override;
  // What the user does meanwhile waits, so that nothing of the dialogs runs in the middle of its own work.
  void ProcessMessages() override;
  void ShowModal(ui::Form& form, ui::Form* owner) override;
  bool LendPicture(std::span<const std::byte> bitmap, const std::function<void()>& use) override;

 private:
  HWND WindowOf(const ui::Form* form) const;
  void ShowWindowOf(ui::Form& form, HWND owner);

  HWND mainWindow_;
  BusyPointer pointer_;
  std::vector<FormWindow*> open_;  // the active one last
};

}  // namespace formwizard::adapters::win32
