#include "adapters/win32/Arrangement.h"

#include "adapters/win32/Screen.h"

#include <algorithm>
#include <vector>

namespace formwizard::adapters::win32 {
namespace {

RECT DesignedPlace(const ui::Control& control) {
  const int left = control.Left.Value(), top = control.Top.Value();
  return {PixelsOf(left), PixelsOf(top), PixelsOf(left + control.Width.Value()),
          PixelsOf(top + control.Height.Value())};
}

bool IsAbove(const RECT& upper, const RECT& lower) {
  return upper.bottom <= lower.top && upper.left < lower.right && lower.left < upper.right;
}

}  // namespace

void Arrangement::Arrange(const ui::Form& form, const TextHeight& heightOf) {
  places_.clear();
  std::vector<const ui::Control*> fromTop(form.Controls().begin(), form.Controls().end());
  std::ranges::stable_sort(fromTop, {}, [](const ui::Control* control) { return control->Top.Value(); });
  for (const ui::Control* control : fromTop) {
    RECT place = DesignedPlace(*control);
    const LONG down = std::max(0L, RoomTakenAbove(form, *control, place) - place.top);
    OffsetRect(&place, 0, down);
    place.bottom = std::max(place.bottom, place.top + heightOf(*control, place.right - place.left));
    places_[control] = place;
  }
}

// The lower edge of what stands above, as far as it is placed.
LONG Arrangement::RoomTakenAbove(const ui::Form& form, const ui::Control& control, const RECT& designed) const {
  LONG edge = designed.top;
  for (const ui::Control* other : form.Controls()) {
    if (other->Container != control.Container || !places_.contains(other)) continue;
    if (IsAbove(DesignedPlace(*other), designed)) edge = std::max(edge, places_.at(other).bottom);
  }
  return edge;
}

}  // namespace formwizard::adapters::win32
