#include "adapters/vb6files/Scale.h"

#include "runtime/Conversions.h"
#include "ui/WindowFrame.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>

namespace formwizard::adapters::vb6files {
namespace {

constexpr double FarthestPlace = 16383 * ui::TwipsPerPixel;

// Twips in a unit of each scale mode, across and down; of the user's own they follow from its numbers.
struct Unit {
  double X, Y;
};
constexpr std::array Units{
    Unit{1, 1},     Unit{1, 1},       Unit{20, 20},     Unit{ui::TwipsPerPixel, ui::TwipsPerPixel},
    Unit{120, 240}, Unit{1440, 1440}, Unit{56.7, 56.7}, Unit{567, 567}};

}  // namespace

double Axis::TwipsIn(double size) const { return std::abs(Twips) * size / std::abs(Units); }

Scale FixedScale(double mode) {
  const bool known = mode >= 0 && mode < static_cast<double>(Units.size());
  const Unit& unit = known ? Units[static_cast<std::size_t>(mode)] : Units[0];
  return {{0, unit.X, 1}, {0, unit.Y, 1}};
}

Scale UsersScale(double left, double top, double width, double height, double clientWidth, double clientHeight) {
  if (width == 0 || height == 0) return {};
  return {{left, clientWidth, width}, {top, clientHeight, height}};
}

double WholeTwips(double twips) {
  return runtime::RoundToInt32(std::clamp(twips, -FarthestPlace, FarthestPlace)).Value();
}

}  // namespace formwizard::adapters::vb6files
