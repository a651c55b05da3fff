// Lines and shapes, which are drawn on a form and are no windows.
#pragma once

#include "adapters/vb6files/FormTree.h"

#include <QPainter>
#include <QRect>

namespace formwizard::apps::desktop {

void DrawShape(QPainter& painter, const adapters::vb6files::FormNode& control, const QRect& place);
void DrawLine(QPainter& painter, const adapters::vb6files::FormNode& control, const QPoint& from, const QPoint& to);

}  // namespace formwizard::apps::desktop
