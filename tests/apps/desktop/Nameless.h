// Whether those who cannot see a window find their way in it.
#pragma once

#include <QAbstractButton>
#include <QAccessible>
#include <QWidget>

#include <string>

namespace formwizard::tests {

class SpokenWindow {
 public:
  explicit SpokenWindow(const QWidget& window) {
    Walk(QAccessible::queryAccessibleInterface(const_cast<QWidget*>(&window)), "");
    if (count_ == 0) found_ = "nothing is told of this window";
  }
  const std::string& Found() const { return found_; }

 private:
  void Walk(QAccessibleInterface* each, const std::string& above) {
    if (!each || each->state().invisible) return;
    const std::string name = each->text(QAccessible::Name).toStdString();
    const std::string place =
        above + " / " + (each->object() ? each->object()->metaObject()->className() : std::to_string(each->role()));
    const QAccessibleActionInterface* actions = each->actionInterface();
    const auto* widget = qobject_cast<QWidget*>(each->object());
    const bool isStoodFor = widget && widget->focusProxy();
    if (isStoodFor) {
      // What stands for it comes below.
    } else if (each->state().focusable || (actions && !actions->actionNames().isEmpty())) {
      ++count_;
      const auto* cell = each->tableCellInterface();
      const bool mayBeEmpty = (cell && cell->columnIndex() > 0) || each->role() == QAccessible::StaticText;
      if (each->role() == QAccessible::NoRole || each->role() == QAccessible::Client) found_ += place + ": no role\n";
      if (name.empty() && !mayBeEmpty) found_ += place + ": no name\n";
    }
    if (widget && !isStoodFor) CheckState(*widget, each->state(), place);
    for (int child = 0; child < each->childCount(); ++child) Walk(each->child(child), place + " " + name);
  }
  void CheckState(const QWidget& widget, const QAccessible::State& state, const std::string& place) {
    const auto* button = qobject_cast<const QAbstractButton*>(&widget);
    const bool isTold = state.disabled == !widget.isEnabled() && (!button || state.checked == button->isChecked()) &&
                        ((widget.focusPolicy() & Qt::TabFocus) == 0 || !widget.isEnabled() || state.focusable);
    if (!isTold) found_ += place + ": another state\n";
  }

  std::string found_;
  int count_ = 0;
};

// What takes the focus or can be pressed, also in lists and on forms, and tells a screen reader no role, no name or
// another state than it shows, a line each; empty for none.
inline std::string Nameless(const QWidget& window) { return SpokenWindow(window).Found(); }

}  // namespace formwizard::tests
