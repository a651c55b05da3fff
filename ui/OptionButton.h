// One of several choices that exclude each other.
#pragma once

#include "ui/Controls.h"

namespace formwizard::ui {

class OptionButton : public CaptionedControl {
 public:
  Event<> OnClick;

  bool Value() const { return value_; }
  // Choosing one takes the choice from the others in the same container and raises Click.
  void SetValue(bool value);
  bool TakesFocus() const override { return true; }
  void PressAccessKey() override { Click(); }
  // What a user does.
  void Click() {
    if (TakesInput()) SetValue(true);
  }

 private:
  bool value_ = false;
};

}  // namespace formwizard::ui
