// A view that its control tells of every change.
#pragma once

#include "adapters/qt/View.h"

namespace formwizard::adapters::qt {

template <typename Control, typename Shown, typename Observer = ui::ControlObserver>
class ObservingView : public View, public Observer {
 public:
  using Kind = Control;

  ~ObservingView() override { control_.Observe(static_cast<Observer*>(nullptr)); }

  void Changed() override { NoteChange(); }

 protected:
  ObservingView(FormWindow& window, Control& control, Shown* widget)
      : View(window, control, widget), control_(control), widget_(*widget) {
    control_.Observe(static_cast<Observer*>(this));
  }

  Control& control_;  // NOLINT(misc-non-private-member-variables-in-classes)
  Shown& widget_;     // NOLINT(misc-non-private-member-variables-in-classes)
};

}  // namespace formwizard::adapters::qt
