// Users of the desktop program's windows: one has a keyboard, the other one a mouse too.
#pragma once

#include "adapters/qt/FormWindow.h"
#include "adapters/qt/Text.h"
#include "tests/apps/desktop/DesktopFixture.h"
#include "tests/support/WizardPass.h"

#include <QLineEdit>
#include <QPointer>
#include <QWindow>

namespace formwizard::tests {

// Whether the wizard, which goes there by itself when a form is changed and hears of no user meanwhile, stands at the
// Attributes step with so many fields.
inline bool IsAtAttributes(int fields) {
  const auto* window = dynamic_cast<adapters::qt::FormWindow*>(QApplication::activeModalWidget());
  const auto* list = window && !window->IsActing() ? window->findChild<QListView*>("lstFields") : nullptr;
  return list && list->isVisible() && list->model()->rowCount() == fields && list->currentIndex().row() == 0;
}

class KeyboardUser : public Keyboard {
 public:
  // The toolkit shows the button pressed for a while before it is clicked.
  void PressAccessKeyOf(const ui::Control& button) override {
    const QPointer<QAbstractButton> widget = Find<QAbstractButton>(button);
    PressKey(QKeySequence::mnemonic(widget->text())[0].key(), Qt::AltModifier);
    CHECK(QTest::qWaitFor([&] { return !widget || !widget->isDown(); }));
    WaitForFocus();
  }
  void PressToOpen(const ui::Control& button, const std::function<void()>& inside) override {
    DesktopFixture::WhenShown(inside);
    PressAccessKeyOf(button);
  }

 protected:
  void Strike(Key key) override {
    constexpr Qt::Key keys[] = {Qt::Key_Space, Qt::Key_Return, Qt::Key_Right, Qt::Key_Up,
                                Qt::Key_Down,  Qt::Key_Home,   Qt::Key_Tab};
    PressKey(keys[static_cast<std::size_t>(key)]);
  }
  void Type(const std::string& text) override {
    QTest::keyClicks(QApplication::focusWidget(), adapters::qt::Text(text));
  }
  bool HasFocus(const ui::Control& control) override {
    const QWidget* focus = QApplication::focusWidget();
    return focus && focus->objectName() == adapters::qt::Text(control.Name);
  }
  std::string ChosenText() override {
    QWidget* focus = QApplication::focusWidget();
    const auto* combo = qobject_cast<QComboBox*>(focus);
    const QString text =
        combo ? combo->currentText() : qobject_cast<QTreeView*>(focus)->currentIndex().data().toString();
    return text.toStdString();
  }

 private:
  static void PressKey(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QWidget* target = QApplication::focusWidget();
    QTest::keyClick(target ? target : QApplication::activeModalWidget(), key, modifiers);
  }
};

// Its clicks go through the window, as a mouse's do.
class MouseUser : public User {
 public:
  void Press(const ui::Control& button) override {
    auto* widget = Find<QAbstractButton>(button);
    Click(*widget, QPoint(10, widget->height() / 2));
  }
  void PressToOpen(const ui::Control& button, const std::function<void()>& inside) override {
    DesktopFixture::WhenShown(inside);
    Press(button);
    WaitForFocus();
  }
  void Take(const ui::Control& control, const std::string& node, const std::string& below,
            const ui::Control&) override {
    auto* tree = Find<QTreeView>(control);
    const QModelIndex index = FindItem(*tree, node, below);
    tree->scrollTo(index);
    DoubleClick(*tree->viewport(), tree->visualRect(index).center());
  }
  void ChooseRow(const ui::Control& list, int row) override {
    auto* widget = Find<QListView>(list);
    Click(*widget->viewport(), widget->visualRect(widget->model()->index(row, 0)).center());
  }
  void ChooseInCombo(const ui::Control& combo, const std::string& entry) override {
    auto* widget = Find<QComboBox>(combo);
    Click(*widget, widget->rect().center());
    QTest::qWait(QApplication::doubleClickInterval() + 10);  // the list takes no click before
    QAbstractItemView* view = widget->view();
    const QModelIndex index = widget->model()->index(widget->findText(adapters::qt::Text(entry)), 0);
    Click(*view->viewport(), view->visualRect(index).center());
    CHECK(QTest::qWaitFor([view] { return !view->isVisible(); }));
  }
  void TypeOver(const ui::Control& box, const std::string& text) override {  // a text cannot be typed by mouse
    auto* widget = Find<QLineEdit>(box);
    Click(*widget, widget->rect().center());
    QTest::keyClick(widget, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(widget, adapters::qt::Text(text));
  }
  void Raise(const ui::UpDown& arrows) override {
    auto* up = Find(arrows)->findChildren<QAbstractButton*>().front();
    Click(*up, up->rect().center());
  }

  static void Click(QWidget& widget, QPoint at) {
    QTest::mouseClick(widget.window()->windowHandle(), Qt::LeftButton, {}, widget.mapTo(widget.window(), at));
  }
  static void DoubleClick(QWidget& widget, QPoint at, Qt::MouseButton button = Qt::LeftButton) {
    QTest::mouseDClick(widget.window()->windowHandle(), button, {}, widget.mapTo(widget.window(), at));
  }
};

inline void GoToProperties(User& user) {
  user.Press(WizardDesign().cmdNext);
  user.GoOnWith(WizardDesign().tvwConnection, "Samples");
  user.GoOnWith(WizardDesign().tvwClasses, "Person");
}

// With the one field Age.
inline void MakePersonForm(
    const DesktopFixture& desktop, const std::function<void()>& thenDo = [] {}) {
  desktop.UseWizard([&] {
    MouseUser user;
    GoToProperties(user);
    user.Take(WizardDesign().tvwAttributes, "Age", "", WizardDesign().cmdSelectOne);
    user.Press(WizardDesign().cmdFinish);
    thenDo();
  });
}

}  // namespace formwizard::tests
