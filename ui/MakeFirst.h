// How a toolkit finds its view for a control of any kind.
#pragma once

#include "ui/Control.h"

#include <memory>

namespace formwizard::ui {

// Makes the view if it shows this control: it names the kind that it shows as `Kind`, and is made of a window and of a
// control of that kind. Null otherwise.
template <typename View, typename Shown, typename Window>
std::unique_ptr<View> MakeIfShown(Window& window, Control& control) {
  auto* const kind = dynamic_cast<typename Shown::Kind*>(&control);
  return kind ? std::make_unique<Shown>(window, *kind) : nullptr;
}

// Makes the first of several views that shows this control, null when none does. What shows a kind stands before what
// shows the kind that it is derived from.
template <typename View, typename... Shown, typename Window>
std::unique_ptr<View> MakeFirst(Window& window, Control& control) {
  std::unique_ptr<View> view;
  static_cast<void>(((view = MakeIfShown<View, Shown>(window, control)) || ...));
  return view;
}

}  // namespace formwizard::ui
