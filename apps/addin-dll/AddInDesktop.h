// The desktop of an add-in: its dialogs belong to the environment's main window and look like current windows.
#pragma once

#include "adapters/win32/Win32Desktop.h"

#include <oaidl.h>

namespace formwizard::apps::addin {

// While it lives, windows that are made get the controls that the library's manifest asks for.
class CurrentControls {
 public:
  CurrentControls();
  ~CurrentControls();
  CurrentControls(const CurrentControls&) = delete;
  CurrentControls& operator=(const CurrentControls&) = delete;

 private:
  HANDLE context_;
  ULONG_PTR cookie_ = 0;
  bool isActive_ = false;
};

class AddInDesktop : public adapters::win32::Win32Desktop {
 public:
  // `root` is the environment's root object.
  explicit AddInDesktop(IDispatch* root);

  ui::MessageAnswer ShowMessage(std::string_view text, int style, std::string_view title) override;
  void ShowModal(ui::Form& form, ui::Form* owner) override;
};

}  // namespace formwizard::apps::addin
