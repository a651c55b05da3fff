// The pictures of the dialogs as shapes, so that they are sharp at every size and on every system.
#pragma once

#include <cstdint>
#include <span>

namespace formwizard::resources {

struct Point {
  float X, Y;
};

// Drawn in order, each filled with its colour; an outline, when there is one, is drawn over the filling.
struct Shape {
  enum class Kind : std::uint8_t { Polygon, Ellipse };  // an ellipse is given by two opposite corners
  Kind Form;
  std::uint32_t Fill;     // 0xRRGGBB
  std::uint32_t Outline;  // 0xRRGGBB; NoOutline for none
  std::span<const Point> Points;
};
inline constexpr std::uint32_t NoOutline = 0xFF000000;

struct Picture {
  float Width, Height;  // of the grid that the points lie on
  std::span<const Shape> Shapes;
};

// The pictures of the trees' nodes, counted from 1; null outside 1 to 8.
const Picture* TreePicture(int index);

// The pictures at the left of the wizard, counted from 1; null outside 1 to 2.
const Picture* WizardPicture(int index);

}  // namespace formwizard::resources
