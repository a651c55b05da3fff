// What every control of a dialog has.
#pragma once

#include <string>

namespace formwizard::ui {

struct Control {
  bool Enabled = true;
  bool Visible = true;

  // A control that is hidden or disabled refuses what a user does.
  bool TakesInput() const { return Enabled && Visible; }
};

}  // namespace formwizard::ui
