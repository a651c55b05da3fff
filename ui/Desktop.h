// The port to the desktop that the dialogs run on.
#pragma once

#include <string_view>

namespace formwizard::ui {

enum class MousePointer { Default = 0, ArrowHourglass = 13 };

// Message box styles; one button set and one icon are added.
enum MessageStyle : int {
  OkOnly = 0,
  AbortRetryIgnore = 2,
  Exclamation = 48,
  Information = 64,
  DefaultButton2 = 256,
};

enum class MessageAnswer { Ok = 1, Abort = 3, Retry = 4, Ignore = 5 };

class Form;

class Desktop {
 public:
  virtual ~Desktop() = default;

  virtual void SetMousePointer(MousePointer pointer) = 0;
  // Shows a modal message box; `style` is a sum of MessageStyle. Texts are UTF-8.
  virtual MessageAnswer ShowMessage(std::string_view text, int style, std::string_view title) = 0;
  // Lets pending window messages be processed: panels paint, and other events of the dialogs may run.
  virtual void ProcessMessages() = 0;
  // Shows the form and returns when it has been unloaded. `owner` may be null.
  virtual void ShowModal(Form& form, Form* owner) = 0;
};

}  // namespace formwizard::ui
