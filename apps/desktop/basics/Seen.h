// Whether a widget is seen, which it is not on a page behind another one.
#pragma once

#include <QWidget>

#include <functional>

namespace formwizard::apps::desktop {

// Tells at once, and whenever that changes, as long as the widget lives.
void WhenSeen(QWidget& widget, std::function<void(bool isSeen)> tell);

}  // namespace formwizard::apps::desktop
