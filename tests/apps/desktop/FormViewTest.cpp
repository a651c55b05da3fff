// The view of a form in a window of its own, used by mouse, by keyboard and by a screen reader.
#include "apps/desktop/formview/ZoomBox.h"
#include "tests/apps/desktop/Nameless.h"
#include "tests/apps/desktop/ShownForm.h"

#include <QAccessible>
#include <QClipboard>
#include <QMimeData>
#include <QToolButton>
#include <QWheelEvent>

using namespace formwizard;
using namespace formwizard::apps::desktop;
using namespace formwizard::tests;

namespace {

// Each object below as "role name [description] = value", its children indented.
std::string Spoken(QAccessibleInterface& object, const std::string& indent = "") {
  const QAccessible::State state = object.state();
  std::string text = indent + std::to_string(object.role()) + " " + object.text(QAccessible::Name).toStdString() +
                     " [" + object.text(QAccessible::Description).toStdString() + "] " +
                     object.text(QAccessible::Value).toStdString() + (state.selected ? "selected " : "") +
                     (state.disabled ? "disabled " : "") + (state.invisible ? "invisible" : "") + "\n";
  CHECK(state.readOnly);
  CHECK(state.focusable);
  for (int i = 0; i < object.childCount(); ++i) {
    CHECK(object.child(i)->parent() == &object);
    CHECK(object.indexOfChild(object.child(i)) == i);
    text += Spoken(*object.child(i), indent + "  ");
  }
  return text;
}

}  // namespace

TEST_CASE("On a form one selects by mouse, arrows and tab key, and asks for what a control does") {
  ShownForm form;
  CHECK(form.Selected() == "frmP");
  const auto press = [&](Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    QTest::keyClick(QApplication::focusWidget(), key, modifiers);
    return form.Selected();
  };
  CHECK(press(Qt::Key_Tab) == "fra");
  CHECK(press(Qt::Key_Tab) == "lblCity");
  CHECK(press(Qt::Key_Right) == "txtCity");
  CHECK(press(Qt::Key_Up) == "mnu");
  CHECK(press(Qt::Key_Down) == "lblCity");
  form.Canvas().Select(form.Find("txtCity"));
  CHECK(press(Qt::Key_Down) == "cmd");
  CHECK(press(Qt::Key_Tab) == "cmd");  // behind the last one the focus goes on
  form.View.setFocus();
  CHECK(press(Qt::Key_Tab, Qt::ShiftModifier) == "txtCity");
  CHECK(press(Qt::Key_Escape) == "fra");
  CHECK(press(Qt::Key_Escape) == "frmP");
  QTest::mouseClick(&form.Canvas(), Qt::LeftButton, {}, form.Middle("txtCity"));
  CHECK(form.Selected() == "txtCity");
  CHECK(press(Qt::Key_Return) == "txtCity");
  QTest::mouseDClick(&form.Canvas(), Qt::LeftButton, {}, form.Middle("cmd"));
  CHECK(form.Wanted == "txtCity cmd ");
  // What was selected is so on the form as it comes out next.
  form.View.SetForm(PersonTree(ControlLines("VB.Label lblNew", {1, 60, 9, 9})));
  CHECK(form.Selected() == "cmd");
  form.View.SetForm(adapters::vb6files::ReadFormTree(
      "m.frm",
      "VERSION 5.00\nBegin VB.MDIForm mdi\nBegin VB.Menu "
      "mnu\nCaption=\"&File\"\nEnd\nEnd\nAttribute VB_Name = \"mdi\"\nAttribute VB_Exposed = False\n",
      "", system::CodePage(1252)));
  CHECK(press(Qt::Key_Right) == "mnu");
  form.View.SetForm(std::nullopt);
  QTest::keyClick(&form.Canvas(), Qt::Key_Right);
  QTest::mouseClick(&form.Canvas(), Qt::LeftButton);
  CHECK(form.Canvas().Places().empty());
}

TEST_CASE("Menus open where they stand, and hidden ones where they are named") {
  ShownForm form;
  QTest::mouseClick(&form.Canvas(), Qt::LeftButton, {}, form.Middle("mnu"));
  form.Choose("&New");
  std::string named;
  for (QToolButton* button : form.View.findChildren<QToolButton*>()) {
    if (button->text().isEmpty()) continue;
    named += button->text().toStdString() + " ";
    button->click();
    CHECK(form.Selected() == button->text().toStdString());
    if (button->text() == "mnuPopup") form.Choose("&Add");
  }
  CHECK(named == "mnuPopup txtHidden ");
  CHECK(Nameless(form.View) == "");
  CHECK(form.Wanted == "mnuNew mnuAdd ");
}

TEST_CASE("A screen reader finds each control in its container, by name, caption, class and property") {
  ShownForm form;
  form.Canvas().Select(form.Find("txtCity"));
  QAccessibleInterface* object = QAccessible::queryAccessibleInterface(&form.Canvas());
  const std::string wanted =
      "1040 Person, frmP [] \n"
      "  20 fra [Frame] \n"
      "    41 lblCity, City [Label] \n"
      "    42 txtCity, City [TextBox, shows Home.City] xselected \n"
      "  43 cmd, Go [CommandButton] disabled \n"
      "  42 txtHidden [TextBox] invisible\n"
      "  12 mnu, Object [Menu] \n"
      "    12 mnuNew, New [Menu] invisible\n"
      "  12 mnuPopup, p [Menu] invisible\n"
      "    12 mnuAdd, Add [Menu] invisible\n";
  static_assert(QAccessible::Form == 1040 && QAccessible::Grouping == 20 && QAccessible::StaticText == 41 &&
                QAccessible::EditableText == 42 && QAccessible::Button == 43 && QAccessible::MenuItem == 12);
  CHECK(Spoken(*object) == wanted);
  CHECK(object->focusChild()->text(QAccessible::Name) == "txtCity, City");
  const QRect place = object->focusChild()->rect();
  CHECK(place.center() == form.Canvas().mapToGlobal(form.Middle("txtCity")));
  CHECK(object->childAt(place.center().x(), place.center().y())->text(QAccessible::Name) == "fra");
  object->child(1)->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
  CHECK(form.Wanted == "cmd ");
  CHECK(form.Selected() == "cmd");
  form.View.SetForm(PersonTree());
  CHECK(QAccessible::queryAccessibleInterface(&form.Canvas())->childCount() == 5);
}

TEST_CASE("A form is shown as large as fits, at most at its own size, until one chooses another scale") {
  ShownForm form;
  ZoomBox box(form.View);
  CHECK(form.View.Scale() == 1);
  form.View.resize(150, 300);
  QApplication::processEvents();
  CHECK(form.View.Scale() < 0.6);
  CHECK(form.Canvas().width() <= 150);
  CHECK(box.currentText() == "Fit");
  const auto press = [&](Qt::Key key) {
    QTest::keyClick(&form.Canvas(), key, Qt::ControlModifier);
    return box.currentText().toStdString();
  };
  CHECK(press(Qt::Key_0) == "100 %");
  CHECK(press(Qt::Key_Plus) == "110 %");
  const QPointF at(100, 100);
  QWheelEvent wheel(at, form.Canvas().mapToGlobal(at), {}, {0, -120}, {}, Qt::ControlModifier, {}, false);
  QApplication::sendEvent(&form.Canvas(), &wheel);
  CHECK(box.currentText() == "100 %");
  for (int i = 0; i < 20; ++i) press(Qt::Key_Plus);
  CHECK(box.currentText() == "400 %");
  CHECK(press(Qt::Key_9) == "Fit");
  QTest::keyClick(&form.Canvas(), Qt::Key_C, Qt::ControlModifier);
  CHECK(QApplication::clipboard()->image().size() == PictureSize(*form.Canvas().Form(), 1));
  CHECK(QApplication::clipboard()->mimeData()->data("image/svg+xml").contains("<svg"));
}
