// A dialog: what the whole window shows, and what becomes of an error that an event handler lets escape.
#pragma once

#include "runtime/RuntimeError.h"
#include "ui/Desktop.h"

#include <string>
#include <utility>

namespace formwizard::ui {

class Form {
 public:
  explicit Form(Desktop& desktop) : desktop_(desktop) {}
  virtual ~Form() = default;
  Form(const Form&) = delete;
  Form& operator=(const Form&) = delete;

  std::string Caption;
  bool Enabled = true;

  bool IsUnloaded() const { return unloaded_; }
  // Runs the closing work once.
  void Unload() {
    if (std::exchange(unloaded_, true)) return;
    OnUnload();
  }

 protected:
  virtual void OnUnload() {}

  // Wraps an event handler: a run-time error that it lets escape ends the event and is shown as the environment shows
  // it; the dialog stays usable.
  template <typename Handler>
  auto Guarded(Handler handler) {
    return [this, handler](auto&... arguments) {
      try {
        handler(arguments...);
      } catch (const runtime::RuntimeError& error) {
        Enabled = true;  // the event may have ended while it was busy
        desktop_.SetMousePointer(MousePointer::Default);
        desktop_.ShowMessage("Run-time error '" + std::to_string(error.Number()) + "':\n\n" + error.Description(),
                             Exclamation + OkOnly, Caption);
      }
    };
  }

 private:
  Desktop& desktop_;
  bool unloaded_ = false;
};

}  // namespace formwizard::ui
