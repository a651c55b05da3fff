#include "apps/desktop/formview/ClassicLook.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace formwizard::apps::desktop {
namespace {

using adapters::vb6files::FormNode;

// By number: scroll bar, desktop, title, inactive title, menu, window, window frame, menu text, window text, title
// text, border, inactive border, workspace, selection, selected text, button face, shadow, grey text, button text,
// inactive title text, highlight, dark shadow, light, tip text, tip.
constexpr std::array<QRgb, 25> SystemColors{
    0xFFD4D0C8, 0xFF3A6EA5, 0xFF0A246A, 0xFF808080, 0xFFD4D0C8, 0xFFFFFFFF, 0xFF000000, 0xFF000000, 0xFF000000,
    0xFFFFFFFF, 0xFFD4D0C8, 0xFFD4D0C8, 0xFF808080, 0xFF0A246A, 0xFFFFFFFF, 0xFFD4D0C8, 0xFF808080, 0xFF808080,
    0xFF000000, 0xFFD4D0C8, 0xFFFFFFFF, 0xFF404040, 0xFFD4D0C8, 0xFF000000, 0xFFFFFFE1};

struct EdgeColors {
  std::uint32_t OuterTopLeft, OuterBottomRight, InnerTopLeft, InnerBottomRight;
};
constexpr std::array Edges{
    EdgeColors{color::Highlight, color::DarkShadow, color::Light, color::Shadow},  // raised
    EdgeColors{color::Shadow, color::Highlight, color::DarkShadow, color::Light},  // sunken
    EdgeColors{color::WindowText, color::WindowText, 0, 0},                        // flat
    EdgeColors{color::Shadow, color::Highlight, color::Highlight, color::Shadow},  // etched
};

void DrawCorners(QPainter& painter, const QRect& place, const QColor& topLeft, const QColor& bottomRight) {
  if (place.isEmpty()) return;
  painter.fillRect(place.left(), place.top(), place.width(), 1, topLeft);
  painter.fillRect(place.left(), place.top(), 1, place.height(), topLeft);
  painter.fillRect(place.left(), place.bottom(), place.width(), 1, bottomRight);
  painter.fillRect(place.right(), place.top(), 1, place.height(), bottomRight);
}

// Four rows of 1, 3, 5 and 7 pixels, as the system's own arrows.
void DrawArrow(QPainter& painter, const QRect& place, Direction direction, const QColor& color) {
  constexpr int rows = 4;
  const bool upright = direction == Direction::Up || direction == Direction::Down;
  const bool tipFirst = direction == Direction::Up || direction == Direction::Left;
  const QPoint middle(place.left() + (place.width() - 1) / 2, place.top() + (place.height() - 1) / 2);
  for (int row = 0; row < rows; ++row) {
    const int half = tipFirst ? row : rows - 1 - row;
    const int offset = row - rows / 2 + (tipFirst ? 0 : 1);
    if (upright) {
      painter.fillRect(middle.x() - half, middle.y() + offset, 2 * half + 1, 1, color);
    } else {
      painter.fillRect(middle.x() + offset, middle.y() - half, 1, 2 * half + 1, color);
    }
  }
}

}  // namespace

int PixelsOfHimetric(double himetric) {
  return static_cast<int>(std::lround(std::clamp(himetric, 0.0, 100000.0) * 96 / 2540));
}

QColor ColorOf(std::uint32_t value) {
  if ((value & 0x80000000) == 0) {
    return QColor(static_cast<int>(value & 0xFF), static_cast<int>(value >> 8 & 0xFF),
                  static_cast<int>(value >> 16 & 0xFF));
  }
  const std::size_t number = value & 0xFF;
  return QColor(number < SystemColors.size() ? SystemColors[number] : SystemColors[0]);
}

QColor ColorOf(const FormNode& control, std::string_view property, std::uint32_t missing) {
  const double value = std::clamp(control.Number(property, missing), -2147483648.0, 4294967295.0);
  return ColorOf(static_cast<std::uint32_t>(static_cast<std::int64_t>(value)));
}

void DrawEdge(QPainter& painter, const QRect& place, Edge edge) {
  const EdgeColors& colors = Edges[static_cast<std::size_t>(edge)];
  DrawCorners(painter, place, ColorOf(colors.OuterTopLeft), ColorOf(colors.OuterBottomRight));
  if (EdgeWidth(edge) == 1) return;
  DrawCorners(painter, place.adjusted(1, 1, -1, -1), ColorOf(colors.InnerTopLeft), ColorOf(colors.InnerBottomRight));
}

void DrawFrame(QPainter& painter, const QRect& place, const QColor& color) {
  DrawCorners(painter, place, color, color);
}

void DrawArrowButton(QPainter& painter, const QRect& place, Direction direction, bool enabled) {
  painter.fillRect(place, ColorOf(color::Face));
  DrawEdge(painter, place, Edge::Raised);
  if (!enabled) DrawArrow(painter, place.translated(1, 1), direction, ColorOf(color::Highlight));
  DrawArrow(painter, place, direction, ColorOf(enabled ? color::ButtonText : color::Shadow));
}

void DrawScrollBar(QPainter& painter, const QRect& place, Qt::Orientation orientation, bool enabled, double position) {
  painter.fillRect(place, QBrush(ColorOf(color::Highlight)));
  painter.fillRect(place, QBrush(ColorOf(color::Face), Qt::Dense4Pattern));
  const bool upright = orientation == Qt::Vertical;
  const int length = upright ? place.height() : place.width();
  const int thickness = upright ? place.width() : place.height();
  const auto part = [&](int start, int size) {
    return upright ? QRect(place.left(), place.top() + start, thickness, size)
                   : QRect(place.left() + start, place.top(), size, thickness);
  };
  const int button = std::min(ScrollBarWidth, length / 2);
  DrawArrowButton(painter, part(0, button), upright ? Direction::Up : Direction::Left, enabled);
  DrawArrowButton(painter, part(length - button, button), upright ? Direction::Down : Direction::Right, enabled);
  const int track = length - 2 * button;
  if (!enabled || track < ScrollBarWidth) return;
  const int start = static_cast<int>((track - ScrollBarWidth) * std::clamp(position, 0.0, 1.0));
  const QRect thumb = part(button + start, ScrollBarWidth);
  painter.fillRect(thumb, ColorOf(color::Face));
  DrawEdge(painter, thumb, Edge::Raised);
}

}  // namespace formwizard::apps::desktop
