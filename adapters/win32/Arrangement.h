// Where the controls of a dialog stand.
#pragma once

#include "ui/Form.h"

#include <windows.h>

#include <functional>
#include <map>

namespace formwizard::adapters::win32 {

// In the container, in pixels. A text that needs more lines than designed, in another language, has them, and moves
// down what stands below it.
class Arrangement {
 public:
  // The height that a control's text needs in a width; 0 when it needs none.
  using TextHeight = std::function<LONG(const ui::Control&, LONG width)>;

  void Arrange(const ui::Form& form, const TextHeight& heightOf);
  const RECT& PlaceOf(const ui::Control& control) const { return places_.at(&control); }

 private:
  LONG RoomTakenAbove(const ui::Form& form, const ui::Control& control, const RECT& designed) const;

  std::map<const ui::Control*, RECT> places_;
};

}  // namespace formwizard::adapters::win32
