// A view that its control tells of every change.
#pragma once

#include "adapters/win32/View.h"

namespace formwizard::adapters::win32 {

template <typename Control, typename Observer = ui::ControlObserver>
class ObservingView : public View, public Observer {
 public:
  using Kind = Control;

  ~ObservingView() override { control_.Observe(static_cast<Observer*>(nullptr)); }

  void Changed() override { NoteChange(); }

 protected:
  ObservingView(FormWindow& window, Control& control, const WindowKind& kind)
      : View(window, control, kind), control_(control) {
    control_.Observe(static_cast<Observer*>(this));
  }

  Control& control_;  // NOLINT(misc-non-private-member-variables-in-classes)
};

}  // namespace formwizard::adapters::win32
