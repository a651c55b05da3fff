// The wizard in real windows, used by keyboard alone and by mouse alone.
#include "tests/apps/desktop/DesktopFixture.h"
#include "tests/support/Golden.h"

#include <QWindow>

using namespace formwizard::tests;

namespace {

const std::string SameChoices = R"({"class": "Sample.Person", "settings": {"Columns": 2},
  "fields": ["Name", {"property": "Home.City", "caption": "Town"}, {"property": "Age", "updateAfter": "Name"},
             {"property": "Notes", "rows": 7}, {"property": "Spouse.Name", "combo": {"query": "ByName", "column": "Name"}}]})";
// Without what only a keyboard can do: typing.
const std::string SameChoicesByMouse = R"({"class": "Sample.Person", "settings": {"Columns": 2},
  "fields": ["Name", {"property": "Home.City", "readOnly": true}, {"property": "Age", "updateAfter": "Name"}, "Notes",
             {"property": "Spouse.Name", "combo": {"query": "ByName", "column": "Name"}}]})";

void Press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
  QWidget* target = QApplication::focusWidget();
  QTest::keyClick(target ? target : QApplication::activeModalWidget(), static_cast<Qt::Key>(key), modifiers);
}

// The toolkit shows a button pressed for a tenth of a second before it is clicked.
void PressAccessKey(Qt::Key key) {
  Press(key, Qt::AltModifier);
  QTest::qWait(200);
  WaitForFocus();
}

class KeyboardUser {
 public:
  static void GoTo(const char* name) {
    for (int i = 0; i < 40; ++i) {
      const QWidget* focus = QApplication::focusWidget();
      if (focus && focus->objectName() == name) return;
      Press(Qt::Key_Tab);
    }
    throw std::runtime_error(std::string("the tab key does not reach ") + name);
  }
  static void ChooseNode(const char* tree, const QString& text) {
    GoTo(tree);
    Press(Qt::Key_Home);
    auto* widget = Find<QTreeWidget>(tree);
    for (int i = 0; i < 60 && widget->currentItem()->text(0) != text; ++i) Press(Qt::Key_Down);
    CHECK(widget->currentItem()->text(0) == text);
  }
  static void Open(const QString& text) {
    ChooseNode("tvwAttributes", text);
    Press(Qt::Key_Right);
  }
  static void Select(const QString& text) {
    ChooseNode("tvwAttributes", text);
    GoTo("cmdSelectOne");
    Press(Qt::Key_Space);
  }
  static void Field(int row) {
    GoTo("lstFields");
    Press(Qt::Key_Home);
    for (int i = 0; i < row; ++i) Press(Qt::Key_Down);
  }
  static void TypeOver(const char* box, const QString& text) {
    GoTo(box);
    Press(Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(QApplication::focusWidget(), text);
  }
  static void ChooseInCombo(const char* name, const QString& text) {
    GoTo(name);
    auto* combo = Find<QComboBox>(name);
    for (int i = 0; i < 20 && combo->currentText() != text; ++i) Press(Qt::Key_Down);
    CHECK(combo->currentText() == text);
  }
};

QPoint CenterOf(QTreeWidget& tree, const QString& text) {
  QTreeWidgetItem* item = FindItem(tree, text);
  tree.scrollToItem(item);
  return tree.visualItemRect(item).center();
}

// Through the window, as a mouse does it.
void ClickAt(QWidget& widget, QPoint at) {
  QTest::mouseClick(widget.window()->windowHandle(), Qt::LeftButton, {}, widget.mapTo(widget.window(), at));
}
void DoubleClickAt(QWidget& widget, QPoint at, Qt::MouseButton button = Qt::LeftButton) {
  QTest::mouseDClick(widget.window()->windowHandle(), button, {}, widget.mapTo(widget.window(), at));
}
// Neither a click beside all entries nor a double click with the right button does anything.
void ClickInVain(QAbstractItemView& view, QPoint entry) {
  ClickAt(*view.viewport(), view.viewport()->rect().bottomRight() - QPoint(5, 5));
  CHECK(view.selectionModel()->selectedRows().size() == 1);
  DoubleClickAt(*view.viewport(), entry, Qt::RightButton);
}

class MouseUser {
 public:
  static void Click(const char* name) {
    auto* button = Find<QAbstractButton>(name);
    ClickAt(*button, QPoint(10, button->height() / 2));
  }
  static void ClickNode(const char* name, const QString& text) {
    auto* tree = Find<QTreeWidget>(name);
    ClickAt(*tree->viewport(), CenterOf(*tree, text));
  }
  static void DoubleClickNode(const char* name, const QString& text) {
    auto* tree = Find<QTreeWidget>(name);
    DoubleClickAt(*tree->viewport(), CenterOf(*tree, text));
  }
  static void ClickRow(const char* name, int row) {
    auto* list = Find<QListWidget>(name);
    ClickAt(*list->viewport(), list->visualItemRect(list->item(row)).center());
  }
  static void ChooseInCombo(const char* name, const QString& text) {
    auto* combo = Find<QComboBox>(name);
    ClickAt(*combo, combo->rect().center());
    QTest::qWait(QApplication::doubleClickInterval() + 50);  // the list takes no click before
    QAbstractItemView* view = combo->view();
    const QModelIndex index = combo->model()->index(combo->findText(text), 0);
    ClickAt(*view->viewport(), view->visualRect(index).center());
    CHECK(QTest::qWaitFor([view] { return !view->isVisible(); }));
    CHECK(combo->currentText() == text);
  }
};

std::string Caption() {
  const QWidget* window = QApplication::activeModalWidget();
  return window ? window->windowTitle().toStdString() : "no window";
}

}  // namespace

TEST_CASE("A form made by keyboard alone is the one that the command line makes") {
  DesktopFixture desktop;
  desktop.UseWizard([] {
    CHECK(Caption() == "Ostrel Form Wizard - Step 1 of 6");
    DesktopFixture::WhenShown([] {  // the settings dialog
      CHECK(Caption() == "Ostrel Form Wizard Settings");
      KeyboardUser::GoTo("txtNumColumns");
      Press(Qt::Key_Up);
      Press(Qt::Key_Return);
    });
    PressAccessKey(Qt::Key_S);
    KeyboardUser::GoTo("cmdNext");
    Press(Qt::Key_Return);
    CHECK(Caption() == "Ostrel Form Wizard - Step 2 of 6");
    KeyboardUser::ChooseNode("tvwConnection", "Samples");
    Press(Qt::Key_Return);
    CHECK(Caption() == "Ostrel Form Wizard - Step 3 of 6");
    KeyboardUser::ChooseNode("tvwClasses", "Person");
    PressAccessKey(Qt::Key_N);
    KeyboardUser::Select("*Name");
    KeyboardUser::Open("Home");
    KeyboardUser::Select("*City");
    KeyboardUser::Select("Age");
    KeyboardUser::Select("Notes");
    KeyboardUser::Open("Spouse");
    KeyboardUser::ChooseNode("tvwAttributes", "Spouse");
    Press(Qt::Key_Down);  // its *Name
    KeyboardUser::GoTo("cmdSelectOne");
    Press(Qt::Key_Space);
    PressAccessKey(Qt::Key_N);
    CHECK(Caption() == "Ostrel Form Wizard - Step 5 of 6");
    KeyboardUser::Field(1);
    KeyboardUser::TypeOver("txtCaption", "Town");
    KeyboardUser::Field(2);
    KeyboardUser::ChooseInCombo("lstUpdateAfter", "Name");
    KeyboardUser::Field(3);
    KeyboardUser::TypeOver("txtRowHeight", "7");
    KeyboardUser::Field(4);
    KeyboardUser::GoTo("chkRefCombo");
    Press(Qt::Key_Space);
    KeyboardUser::ChooseInCombo("lstQueryName", "ByName");
    KeyboardUser::ChooseInCombo("lstQueryColumn", "Name");
    PressAccessKey(Qt::Key_N);
    CHECK(Caption() == "Ostrel Form Wizard - Step 6 of 6");
    Press(Qt::Key_Return);
  });
  CHECK_FALSE(QApplication::activeModalWidget());
  desktop.Save();
  CheckSameFiles(FilesIn(desktop.Home), desktop.FilesByCommandLine(SameChoices));
}

TEST_CASE("A form made by mouse alone is the one that the command line makes") {
  DesktopFixture desktop;
  desktop.UseWizard([] {
    DesktopFixture::WhenShown([] {
      auto* spinner = Find("spnNumColumns");
      auto* up = spinner->findChildren<QAbstractButton*>().front();
      ClickAt(*up, up->rect().center());
      MouseUser::Click("cmdOK");
    });
    MouseUser::Click("cmdSettings");
    MouseUser::Click("cmdNext");
    auto* systems = Find<QTreeWidget>("tvwConnection");
    ClickInVain(*systems, CenterOf(*systems, "Samples"));
    CHECK(Caption() == "Ostrel Form Wizard - Step 2 of 6");
    MouseUser::ClickNode("tvwConnection", "Samples");  // selected already
    CHECK(Find("barStatus")->findChild<QLabel*>()->text() == "local:samples");
    MouseUser::DoubleClickNode("tvwConnection", "Samples");
    CHECK(Caption() == "Ostrel Form Wizard - Step 3 of 6");
    MouseUser::DoubleClickNode("tvwClasses", "Person");
    CHECK(Caption() == "Ostrel Form Wizard - Step 4 of 6");
    MouseUser::DoubleClickNode("tvwAttributes", "*Name");
    auto* chosen = Find<QListWidget>("lstSelected");
    ClickInVain(*chosen, chosen->visualItemRect(chosen->item(0)).center());
    MouseUser::DoubleClickNode("tvwAttributes", "Home");  // opens it
    MouseUser::ClickNode("tvwAttributes", "*City");
    MouseUser::Click("cmdSelectOne");
    MouseUser::DoubleClickNode("tvwAttributes", "Age");
    MouseUser::DoubleClickNode("tvwAttributes", "Notes");
    MouseUser::DoubleClickNode("tvwAttributes", "Spouse");
    auto* tree = Find<QTreeWidget>("tvwAttributes");
    QTreeWidgetItem* name = FindItem(*tree, "Spouse")->child(0);
    tree->scrollToItem(name);
    ClickAt(*tree->viewport(), tree->visualItemRect(name).center());
    MouseUser::Click("cmdSelectOne");
    MouseUser::Click("cmdNext");
    MouseUser::ClickRow("lstFields", 1);
    MouseUser::Click("chkReadOnly");
    MouseUser::ClickRow("lstFields", 2);
    MouseUser::ChooseInCombo("lstUpdateAfter", "Name");
    MouseUser::ClickRow("lstFields", 4);
    MouseUser::Click("chkRefCombo");
    CHECK_FALSE(Find("cmdNext")->isEnabled());
    MouseUser::ChooseInCombo("lstQueryName", "ByName");
    MouseUser::ChooseInCombo("lstQueryColumn", "Name");
    MouseUser::Click("cmdNext");
    MouseUser::Click("cmdFinish");
  });
  CHECK_FALSE(QApplication::activeModalWidget());
  desktop.Save();
  CheckSameFiles(FilesIn(desktop.Home), desktop.FilesByCommandLine(SameChoicesByMouse));
}
