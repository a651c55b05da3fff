// The units in which a form or picture box takes the places and sizes of what stands on it. Files hold twips.
#pragma once

namespace formwizard::adapters::vb6files {

// One direction of a scale.
struct Axis {
  double Start = 0;             // where the client area begins, in units
  double Twips = 1, Units = 1;  // so many twips are so many units; one of them below 0: the scale runs the other way

  // From the client area's edge.
  double TwipsTo(double place) const { return (place - Start) * Twips / Units; }
  // Never below 0 for a size that is not.
  double TwipsIn(double size) const;
};

// Twips, unless something else is said.
struct Scale {
  Axis X, Y;
};

// Values of ScaleMode.
inline constexpr double UserScale = 0, TwipScale = 1;

// The scale of a mode other than the user's own; twips for a mode that there is not.
Scale FixedScale(double mode);

// The user's own: `left`, `top`, `width` and `height` are what a client area of so many twips measures in it. Twips for
// an area that measures nothing.
Scale UsersScale(double left, double top, double width, double height, double clientWidth, double clientHeight);

// The nearest whole number, halves to the even one, no farther than the environment places anything.
double WholeTwips(double twips);

}  // namespace formwizard::adapters::vb6files
