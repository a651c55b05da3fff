// The first hour with the program: from nothing open to a saved form and one that is changed, by keys alone and by
// clicks alone. What is not reached so is out of reach of somebody.
#include "apps/desktop/preview/PreviewWindow.h"
#include "tests/apps/desktop/FreshDesktop.h"
#include "tests/apps/desktop/Users.h"
#include "tests/support/Golden.h"

#include <QCommandLinkButton>
#include <QFileDialog>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QStatusBar>
#include <QTabBar>
#include <QTableView>
#include <QToolButton>
#include <QTreeWidget>

#include <algorithm>

using namespace formwizard;
using namespace formwizard::tests;
using namespace formwizard::apps::desktop;
using adapters::qt::Text;

namespace {

// What a window shows of that class, in their order in it.
template <typename Widget>
std::vector<Widget*> Seen(const QWidget& window) {
  std::vector<Widget*> seen;
  for (Widget* widget : window.findChildren<Widget*>()) {
    if (widget->isVisible() && widget->window() == window.window()) seen.push_back(widget);
  }
  return seen;
}

template <typename Widget>
Widget& SeenWith(const QWidget& window, const QString& text) {
  for (Widget* widget : Seen<Widget>(window)) {
    if (widget->text().remove('&') == text) return *widget;
  }
  throw std::runtime_error("nothing shows " + text.toStdString());
}

QWidget& ModalWindow() {
  QApplication::processEvents();
  QWidget* window = QApplication::activeModalWidget();
  if (!window) throw std::runtime_error("no window asks for anything");
  return *window;
}

// Somebody at the windows for the first time, and what they see.
struct FirstHour {
  FreshDesktop Desktop;
  QString Project = Desktop.Copied("new-project") + "/Project1.vbp", Dictionary = Desktop.Copied("dictionary.json"),
          Toolbox = Desktop.Copied("toolbox.ini");
  MainWindow& Window = *Desktop.Window;

  // The captions of the form beside the wizard.
  static std::string Previewed() {
    std::string captions;
    for (QWidget* window : QApplication::topLevelWidgets()) {
      auto* preview = dynamic_cast<PreviewWindow*>(window);
      if (!preview || !preview->isVisible()) continue;
      for (const PlacedNode& place : preview->View().Canvas().Places()) {
        if (place.Node->Name.starts_with("lbl")) captions += place.Node->Text("Caption") + " ";
      }
    }
    return captions;
  }
  // Chooses what makes the form of golden/addin-project.
  static void UseWizard(User& user) {
    PassThroughWizard(user, [](int step) {
      if (step == 4) CHECK(QTest::qWaitFor([] { return Previewed() == "Name Home City Age Notes Spouse Name "; }));
      if (step == 6) CHECK(QTest::qWaitFor([] { return Previewed() == "Name Town Age Notes Spouse Name "; }));
    });
    user.Press(WizardDesign().cmdFinish);
  }
  // Chooses one property more, and takes what becomes of the form.
  static void ChangeByWizard(User& user, const std::function<void(QWidget& view)>& take) {
    const wizard::frmWizard& dialog = WizardDesign();
    user.Press(dialog.cmdBack);
    user.Take(dialog.tvwAttributes, "*SSN", "", dialog.cmdSelectOne);
    user.Press(dialog.cmdNext);
    DesktopFixture::WhenShown([take] {
      QWidget& view = ModalWindow();
      CHECK(view.findChild<QTreeWidget*>()->findItems("txtSSN", Qt::MatchExactly | Qt::MatchRecursive).size() == 1);
      take(view);
      CHECK(QTest::qWaitFor([] { return !QApplication::activeModalWidget(); }));
    });
    user.Press(dialog.cmdFinish);
  }
  std::string Place() const {
    std::string place;
    for (const QLabel* label : Seen<QLabel>(*Window.statusBar())) place += label->text().simplified().toStdString();
    return place;
  }
  // What the properties say of the selected control.
  std::string Property(const QString& name) const {
    const QAbstractItemModel& rows = *Seen<QTableView>(Window).at(0)->model();
    const auto found = rows.match(rows.index(0, 0), Qt::DisplayRole, name, 1, Qt::MatchExactly);
    return found.isEmpty() ? "" : found[0].siblingAtColumn(1).data().toString().toStdString();
  }
  std::string LineOfCode() const {
    const CodeView& view = Window.Code().View();
    return view.toPlainText().split('\n').at(view.CurrentLine()).toStdString();
  }
  void CheckSaved() const {
    CHECK_FALSE(Window.isWindowModified());
    CheckSameFiles(OwnFiles(QFileInfo(Project).path().toStdString()),
                   FilesIn(SourceFolder() + "/tests/golden/addin-project"));
  }
  void CheckChanged() const {
    CHECK_FALSE(Window.isWindowModified());
    const auto files = FilesIn(QFileInfo(Project).path().toStdString());
    for (const char* part : {"txtSSN", "txtHomeCity", "\"Town\""}) CHECK(Has(files.at("frmPerson.frm"), part));
    CHECK(files.at("Project1.forms/frmPerson.frm") == files.at("frmPerson.frm"));
    CHECK(QTest::qWaitFor([&] { return Window.Kept().IsDone(); }));
    CHECK(Window.Tree().View().currentIndex().data(Qt::AccessibleTextRole) == "frmPerson, form, unchanged, saved");
  }
};

// Keys go to the menu that is open, else to what has the focus.
void Type(const QString& text) {
  for (const QChar letter : text) {
    QWidget* menu = QApplication::activePopupWidget();
    QTest::keyClicks(menu ? menu : QApplication::focusWidget(), letter);
  }
}

// A path and Enter, in the next window.
void TypePath(const QString& path) {
  DesktopFixture::WhenShown([path] {
    Type(path);
    Strike(Qt::Key_Return);
  });
}

void StrikeUntil(Qt::Key key, const std::function<bool()>& isReached) {
  for (int i = 0; i < 30 && !isReached(); ++i) Strike(key);
  CHECK(isReached());
}

void ClickOn(QWidget& widget) { MouseUser::Click(widget, QPoint(12, widget.height() / 2)); }

void ClickEntry(const QMainWindow& window, const QString& menu, const QString& entry) {
  const auto click = [](auto& bar, const QString& text) {
    for (QAction* action : bar.actions()) {
      if (action->text().remove('&') != text || !action->isEnabled()) continue;
      return MouseUser::Click(bar, bar.actionGeometry(action).center());
    }
    throw std::runtime_error("no entry " + text.toStdString());
  };
  click(*window.menuBar(), menu);
  click(*qobject_cast<QMenu*>(QApplication::activePopupWidget()), entry);
}

// Looks for a file from folder to folder: ".." goes up.
void ClickPath(const QStringList& path) {
  DesktopFixture::WhenShown([path] {
    QWidget& dialog = ModalWindow();
    auto* list = dialog.findChild<QTreeView*>("treeView");
    if (!list || !list->isVisible()) throw std::runtime_error("another window than expected");
    for (const QString& name : path) {
      if (name == "..") {
        ClickOn(*dialog.findChild<QToolButton*>("toParentButton"));
        continue;
      }
      QModelIndexList found;
      CHECK(QTest::qWaitFor([&] {  // the folder is read meanwhile
        found = list->model()->match(list->model()->index(0, 0, list->rootIndex()), Qt::DisplayRole, name);
        return !found.isEmpty();
      }));
      list->scrollTo(found.at(0));
      QApplication::processEvents();
      MouseUser::DoubleClick(*list->viewport(), list->visualRect(found.at(0)).center());
    }
  });
}

}  // namespace

TEST_CASE("In a first hour by keyboard alone a form is made, looked at, found in its code, saved and changed") {
  FirstHour hour;
  TypePath(hour.Project);
  Strike(Qt::Key_O, Qt::AltModifier);
  CHECK(QTest::qWaitFor([&] { return hour.Window.windowTitle().startsWith("Project1.vbp"); }));  // it is shown pressed
  TypePath(hour.Dictionary);                                                                     // by the menu
  Strike(Qt::Key_F, Qt::AltModifier);
  Type("d");
  DesktopFixture::WhenShown([&] {
    TypePath(hour.Toolbox);
    Strike(Qt::Key_Space);
    DesktopFixture::WhenShown([] {
      KeyboardUser user;
      FirstHour::UseWizard(user);
    });
    Strike(Qt::Key_Return);
  });
  Strike(Qt::Key_N, Qt::ControlModifier);
  CHECK(hour.Window.isWindowModified());

  // The form, its menu and its properties.
  const FormCanvas& canvas = hour.Window.Form().Canvas();
  StrikeUntil(Qt::Key_F6, [&] { return canvas.hasFocus(); });
  StrikeUntil(Qt::Key_Tab, [&] { return hour.Place().starts_with("txtHomeCity TextBox"); });
  CHECK(hour.Property("Property") == "Home.City");
  Strike(Qt::Key_F4);
  CHECK_FALSE(canvas.hasFocus());
  Strike(Qt::Key_F7, Qt::ShiftModifier);
  Strike(Qt::Key_Return);
  CHECK(hour.LineOfCode() == "Private Sub txtHomeCity_Change()");
  CHECK(hour.Window.Code().isVisible());
  Strike(Qt::Key_F7, Qt::ShiftModifier);
  StrikeUntil(Qt::Key_Up, [&] { return hour.Place().starts_with("mnuObject"); });
  Strike(Qt::Key_Return);
  Type("s");
  CHECK(hour.LineOfCode() == "Private Sub mnu__Save_Click()");

  Strike(Qt::Key_F, Qt::ControlModifier);
  Type("sub syncscreentoobject");
  CHECK(hour.LineOfCode() == "Private Sub SyncScreenToObject()");
  CHECK(hour.Place() == "Line 268, column 31");
  Strike(Qt::Key_Escape);
  Strike(Qt::Key_S, Qt::ControlModifier);
  hour.CheckSaved();

  DesktopFixture::WhenShown(
      [] {
        KeyboardUser user;
        FirstHour::ChangeByWizard(user, [](QWidget&) { Strike(Qt::Key_U, Qt::AltModifier); });
      },
      [] { return IsAtAttributes(5); });
  Strike(Qt::Key_E, Qt::ControlModifier);
  CHECK(QTest::qWaitFor([&] { return hour.Window.isWindowModified(); }));
  Strike(Qt::Key_S, Qt::ControlModifier);
  hour.CheckChanged();
  Strike(Qt::Key_Q, Qt::ControlModifier);
  CHECK_FALSE(hour.Window.isVisible());
}

TEST_CASE("In a first hour by mouse alone a form is made, looked at, found in its code, saved and changed") {
  FirstHour hour;
  const QString before = QDir::currentPath();
  QDir::setCurrent(QFileInfo(hour.Dictionary).path());
  const auto back = std::shared_ptr<void>(nullptr, [&](void*) { QDir::setCurrent(before); });
  ClickPath({"new-project", "Project1.vbp"});
  ClickOn(SeenWith<QCommandLinkButton>(hour.Window, "Open Project..."));
  CHECK(hour.Window.windowTitle().startsWith("Project1.vbp"));
  ClickPath({"..", "dictionary.json"});
  ClickOn(SeenWith<QToolButton>(*hour.Window.statusBar(), "No dictionary"));
  DesktopFixture::WhenShown([] {
    QWidget& needs = ModalWindow();
    ClickPath({"..", "toolbox.ini"});
    ClickOn(*Seen<QPushButton>(needs).at(2));
    DesktopFixture::WhenShown([] {
      MouseUser user;
      FirstHour::UseWizard(user);
    });
    ClickOn(SeenWith<QPushButton>(needs, "Continue"));
  });
  ClickOn(
      *hour.Window.Commands().Bar().widgetForAction(hour.Window.Commands().Menu(MenuName::AddIns).actions().back()));
  CHECK(hour.Window.isWindowModified());

  FormCanvas& canvas = hour.Window.Form().Canvas();
  const auto middle = [&](const std::string& name) {
    const auto found = std::ranges::find_if(canvas.Places(), [&](auto& place) { return place.Node->Name == name; });
    return canvas.PlaceOnWidget(static_cast<std::size_t>(found - canvas.Places().begin())).center();
  };
  MouseUser::Click(canvas, middle("txtHomeCity"));
  CHECK(hour.Place().starts_with("txtHomeCity TextBox"));
  CHECK(hour.Property("Property") == "Home.City");
  MouseUser::DoubleClick(canvas, middle("txtHomeCity"));
  CHECK(hour.LineOfCode() == "Private Sub txtHomeCity_Change()");
  CHECK(hour.Window.Code().isVisible());
  ClickEntry(hour.Window, "View", "Form");
  MouseUser::Click(canvas, middle("mnuObject"));
  auto& menu = *qobject_cast<QMenu*>(QApplication::activePopupWidget());
  MouseUser::Click(menu, menu.actionGeometry(menu.actions().at(3)).center());
  CHECK(hour.LineOfCode() == "Private Sub mnu__Save_Click()");
  ClickOn(SeenWith<QToolButton>(hour.Window, "Save"));
  hour.CheckSaved();

  DesktopFixture::WhenShown(
      [] {
        MouseUser user;
        FirstHour::ChangeByWizard(user, [](QWidget& view) { ClickOn(SeenWith<QPushButton>(view, "Update")); });
      },
      [] { return IsAtAttributes(5); });
  ClickOn(SeenWith<QToolButton>(hour.Window, "Change Form"));
  CHECK(QTest::qWaitFor([&] { return hour.Window.isWindowModified(); }));
  ClickOn(SeenWith<QToolButton>(hour.Window, "Save"));
  hour.CheckChanged();
  ClickEntry(hour.Window, "File", "Close Project");
  CHECK(hour.Window.Tree().Chosen() == nullptr);
}
