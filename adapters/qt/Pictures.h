// Draws the core's pictures, sharp at any size and density.
#pragma once

#include "resources/Shapes.h"

#include <QIcon>
#include <QPainter>
#include <QRectF>

namespace formwizard::adapters::qt {

// Stretches the picture over the rectangle.
void Draw(QPainter& painter, const resources::Picture& picture, const QRectF& target);

// Empty for a null picture.
QIcon IconOf(const resources::Picture* picture);

}  // namespace formwizard::adapters::qt
