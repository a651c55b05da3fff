// How each class of controls looks on a form.
#pragma once

#include "adapters/vb6files/FormTree.h"

#include <QPainter>
#include <QRect>

namespace formwizard::apps::desktop {

// Without what is on it. `place` is in pixels at 96 dots per inch.
void DrawControl(QPainter& painter, const adapters::vb6files::FormNode& control, const QRect& place);

// Where the controls on a control stand: a picture box has them inside its border, a frame all over.
QRect InsideOf(const adapters::vb6files::FormNode& control, const QRect& place);

// Whether the tab key stops at the control.
bool TakesFocus(const adapters::vb6files::FormNode& control);

// Drawn on its container, behind every control that is a window.
bool IsLightweight(const adapters::vb6files::FormNode& control);

// A button that shows its picture, also where it can be checked.
bool IsGraphicalButton(const adapters::vb6files::FormNode& control);

// Of which only the text is seen.
bool IsBorderlessLabel(const adapters::vb6files::FormNode& control);

// A line, which has two ends and no place.
bool IsLine(const adapters::vb6files::FormNode& control);

// Dialogs, timers and queries have a place on the form but no size.
bool IsInvisibleAtRunTime(const adapters::vb6files::FormNode& control);

}  // namespace formwizard::apps::desktop
