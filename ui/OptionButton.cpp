#include "ui/OptionButton.h"

#include "ui/Form.h"

namespace formwizard::ui {

void OptionButton::SetValue(bool value) {
  if (std::exchange(value_, value) == value) return;
  Changed();
  if (!value) return;
  if (Parent) {
    for (Control* control : Parent->Controls()) {
      auto* other = dynamic_cast<OptionButton*>(control);
      if (other && other != this && other->Container == Container) other->SetValue(false);
    }
  }
  OnClick();
}

}  // namespace formwizard::ui
