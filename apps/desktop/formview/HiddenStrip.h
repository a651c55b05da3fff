// The line below a form that names what cannot be seen on it: popup menus, dialogs, timers, controls that are hidden.
#pragma once

#include "apps/desktop/formview/FormCanvas.h"

#include <QToolBar>

namespace formwizard::apps::desktop {

class HiddenStrip : public QToolBar {
 public:
  // `canvas` must outlive the strip.
  explicit HiddenStrip(FormCanvas& canvas);

  // After another form is shown: hidden itself where there is nothing to name.
  void Refill();
  void ShowSelection();
  // On the user's wish; on at first.
  void SetWanted(bool wanted);

 private:
  void Add(std::size_t index);

  FormCanvas& canvas_;
  bool isWanted_ = true;
};

}  // namespace formwizard::apps::desktop
