// Somebody who follows how the dialogs are used.
#pragma once

#include "ui/Form.h"

#include <QWidget>

namespace formwizard::adapters::qt {

class DialogWatcher {
 public:
  virtual ~DialogWatcher() = default;

  // Before its window is shown.
  virtual void Opened(ui::Form& form, QWidget& window) = 0;
  // Before and after each of the user's actions; a dialog may open and close in between.
  virtual void Acting() = 0;
  virtual void Acted() = 0;
  // Before its window goes.
  virtual void Closed(ui::Form& form) = 0;
};

}  // namespace formwizard::adapters::qt
