// One of several choices that exclude each other.
#pragma once

#include "ui/Controls.h"

#include <vector>

namespace formwizard::ui {

class OptionButton : public CaptionedControl {
 public:
  Event<> OnClick;

  bool Value() const { return value_; }
  // Choosing one takes the choice from the others in the same container and raises Click.
  void SetValue(bool value);
  bool TakesFocus() const override { return true; }
  // The tab key stops once in a group: at the option that is chosen, at the first where none is.
  bool IsTabStop() const override;
  void PressAccessKey() override { Click(); }
  // What a user does.
  void Click() {
    if (TakesInput()) SetValue(true);
  }
  // What a user does by an arrow key: chooses the next option of the group, or with -1 the one before, round and round.
  void PressArrow(int by);

 private:
  // The options in the same container, this one among them.
  std::vector<OptionButton*> Group() const;
  // Those of them that a user can choose.
  std::vector<OptionButton*> Choices() const;

  bool value_ = false;
};

}  // namespace formwizard::ui
