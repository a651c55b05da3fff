// The classic look of Windows: its colours, edges and arrows. Measures are pixels at 96 dots per inch.
#pragma once

#include "adapters/vb6files/FormTree.h"

#include <QColor>
#include <QPainter>
#include <QRect>

#include <cstdint>
#include <string_view>

namespace formwizard::apps::desktop {

// ActiveX controls measure themselves in hundredths of a millimetre.
int PixelsOfHimetric(double himetric);

// Colours as forms write them: with the highest bit, the number of a system colour, else blue, green, red.
namespace color {
constexpr std::uint32_t Window = 0x80000005, WindowText = 0x80000008, MenuText = 0x80000007, TitleText = 0x80000009,
                        Face = 0x8000000F, Shadow = 0x80000010, ButtonText = 0x80000012, Highlight = 0x80000014,
                        DarkShadow = 0x80000015, Light = 0x80000016;
}

QColor ColorOf(std::uint32_t value);
// `missing` when the control does not have the property.
QColor ColorOf(const adapters::vb6files::FormNode& control, std::string_view property, std::uint32_t missing);

enum class Edge { Raised, Sunken, Flat, Etched };
constexpr int EdgeWidth(Edge edge) { return edge == Edge::Flat ? 1 : 2; }
void DrawEdge(QPainter& painter, const QRect& place, Edge edge);
// One pixel wide.
void DrawFrame(QPainter& painter, const QRect& place, const QColor& color);

enum class Direction { Up, Down, Left, Right };
void DrawArrowButton(QPainter& painter, const QRect& place, Direction direction, bool enabled);

constexpr int ScrollBarWidth = 16;
// `position` is where the thumb is, 0 to 1.
void DrawScrollBar(QPainter& painter, const QRect& place, Qt::Orientation orientation, bool enabled,
                   double position = 0);

}  // namespace formwizard::apps::desktop
