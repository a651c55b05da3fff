// Whether those who cannot see a window find their way in it.
#pragma once

#include <QAccessible>
#include <QWidget>

#include <string>

namespace formwizard::tests {

// The classes of the visible widgets that take the focus and tell a screen reader no name or no role; empty for none.
inline std::string Nameless(const QWidget& window) {
  std::string found;
  for (QWidget* widget : window.findChildren<QWidget*>()) {
    const QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(widget);
    if (!widget->isVisible() || (widget->focusPolicy() & Qt::TabFocus) == 0 || widget->focusProxy()) continue;
    const bool isNamed = spoken && !spoken->text(QAccessible::Name).isEmpty() && spoken->role() != QAccessible::Client;
    if (!isNamed) found += std::string(widget->metaObject()->className()) + " ";
  }
  return found;
}

}  // namespace formwizard::tests
