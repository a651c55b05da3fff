// Icons that are drawn, sharp at any size and density, and those that show the core's pictures.
#pragma once

#include "resources/Shapes.h"

#include <QIcon>
#include <QPainter>
#include <QRectF>

#include <functional>

namespace formwizard::adapters::qt {

// Stretches the picture over the rectangle.
void Draw(QPainter& painter, const resources::Picture& picture, const QRectF& target);

// Draws an icon into a rectangle. A disabled one need not be drawn otherwise: it is shown fainter.
using IconDrawing = std::function<void(QPainter& painter, const QRect& target, QIcon::Mode mode)>;
QIcon DrawnIcon(IconDrawing draw);

// Empty for a null picture.
QIcon IconOf(const resources::Picture* picture);

}  // namespace formwizard::adapters::qt
