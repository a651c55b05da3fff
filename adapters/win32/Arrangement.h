// Where the controls of a dialog stand.
#pragma once

#include "ui/Form.h"

#include <windows.h>

#include <functional>
#include <map>
#include <vector>

namespace formwizard::adapters::win32 {

// What a control makes of its place, pixels.
struct Room {
  LONG Height = 0;       // that its text needs in a width; 0 when it needs none
  bool Scrolls = false;  // whether it can do with less, down to a half
};

// In the container, in pixels. A text that needs more lines than designed, in another language, has them, and moves
// down what stands below it. What scrolls gives way as far as it can, a frame grows with what stands in it, and so does
// the dialog. Frames that are designed side by side with the same edges keep them.
class Arrangement {
 public:
  using RoomOf = std::function<Room(const ui::Control&, LONG width)>;

  void Arrange(const ui::Form& form, const RoomOf& roomOf);
  const RECT& PlaceOf(const ui::Control& control) const { return places_.at(&control); }
  // What the dialog needs in height besides what is designed.
  LONG Growth() const { return growth_; }

 private:
  using Group = std::vector<const ui::Control*>;  // the controls of one container, from the top

  void ArrangeIn(const ui::Control* container, const RoomOf& roomOf);
  RECT PlaceFor(const ui::Control& control, const Group& group, const RoomOf& roomOf);
  LONG EdgeAbove(const Group& group, const RECT& designed) const;
  void KeepEdgesOfFrames(const Group& group);
  LONG GrowthOf(const ui::Control* container) const;

  std::map<const ui::Control*, Group> groups_;  // null: the dialog itself
  std::map<const ui::Control*, RECT> places_;
  LONG growth_ = 0;
};

}  // namespace formwizard::adapters::win32
