#include "adapters/win32/Arrangement.h"

#include "adapters/win32/Screen.h"

#include <algorithm>

namespace formwizard::adapters::win32 {
namespace {

constexpr int DistanceTwips = 60;  // between what has been moved, and at the lower edge of a frame that has grown

RECT DesignedPlace(const ui::Control& control) {
  const int left = control.Left.Value(), top = control.Top.Value();
  return {PixelsOf(left), PixelsOf(top), PixelsOf(left + control.Width.Value()),
          PixelsOf(top + control.Height.Value())};
}

LONG HeightOf(const RECT& place) { return place.bottom - place.top; }

bool IsAbove(const RECT& upper, const RECT& lower) {
  return upper.bottom <= lower.top && upper.left < lower.right && lower.left < upper.right;
}

}  // namespace

void Arrangement::Arrange(const ui::Form& form, const RoomOf& roomOf) {
  places_.clear();
  groups_.clear();
  for (const ui::Control* control : form.Controls()) groups_[control->Container].push_back(control);
  for (auto& [container, group] : groups_) {
    std::ranges::stable_sort(group, {}, [](const ui::Control* control) { return control->Top.Value(); });
  }
  ArrangeIn(nullptr, roomOf);
  growth_ = GrowthOf(nullptr);
}

// What stands in a container is arranged before the container itself, whose height follows.
void Arrangement::ArrangeIn(const ui::Control* container, const RoomOf& roomOf) {
  const Group& group = groups_[container];
  for (const ui::Control* control : group) {
    if (groups_.contains(control)) ArrangeIn(control, roomOf);
    places_[control] = PlaceFor(*control, group, roomOf);
  }
  KeepEdgesOfFrames(group);
}

RECT Arrangement::PlaceFor(const ui::Control& control, const Group& group, const RoomOf& roomOf) {
  const RECT designed = DesignedPlace(control);
  const Room room = roomOf(control, designed.right - designed.left);
  const LONG down = std::max(0L, EdgeAbove(group, designed) - designed.top);
  RECT place = designed;
  OffsetRect(&place, 0, down);
  if (room.Scrolls) place.bottom -= std::min(down, HeightOf(designed) / 2);
  place.bottom = std::max(place.bottom, place.top + room.Height);
  if (groups_.contains(&control)) place.bottom += GrowthOf(&control);
  return place;
}

// Where there is room below what stands above, as far as it is placed.
LONG Arrangement::EdgeAbove(const Group& group, const RECT& designed) const {
  LONG edge = designed.top;
  for (const ui::Control* other : group) {
    const RECT above = DesignedPlace(*other);
    if (!places_.contains(other) || !IsAbove(above, designed)) continue;
    const LONG distance = std::min<LONG>(designed.top - above.bottom, PixelsOf(DistanceTwips));
    edge = std::max(edge, places_.at(other).bottom + distance);
  }
  return edge;
}

void Arrangement::KeepEdgesOfFrames(const Group& group) {
  for (const ui::Control* frame : group) {
    const RECT designed = DesignedPlace(*frame);
    for (const ui::Control* other : group) {
      const RECT beside = DesignedPlace(*other);
      if (!groups_.contains(frame) || !groups_.contains(other)) continue;
      if (designed.top != beside.top || designed.bottom != beside.bottom) continue;
      places_[frame].bottom = std::max(places_[frame].bottom, places_[other].bottom);
    }
  }
}

LONG Arrangement::GrowthOf(const ui::Control* container) const {
  LONG designedEdge = 0, edge = 0;
  for (const ui::Control* control : groups_.at(container)) {
    designedEdge = std::max(designedEdge, DesignedPlace(*control).bottom);
    edge = std::max(edge, places_.at(control).bottom);
  }
  if (!container) return edge - designedEdge;
  const LONG given = HeightOf(DesignedPlace(*container));
  const LONG margin = std::clamp<LONG>(given - designedEdge, 0, PixelsOf(DistanceTwips));
  return edge <= designedEdge ? 0 : std::max(0L, edge + margin - given);
}

}  // namespace formwizard::adapters::win32
