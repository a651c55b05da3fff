// The window around form and code: how it opens, what it asks for, what it remembers, and that everybody can use it.
#include "apps/desktop/basics/Theme.h"
#include "apps/desktop/window/NeedsDialog.h"
#include "tests/apps/desktop/FreshDesktop.h"
#include "tests/apps/desktop/Nameless.h"
#include "tests/apps/desktop/Users.h"
#include "tests/support/Languages.h"

#include <QAccessible>
#include <QFileDialog>
#include <QListWidget>
#include <QMessageBox>
#include <QMimeData>
#include <QTabWidget>
#include <QTextBrowser>

using namespace formwizard;
using namespace formwizard::tests;
using namespace formwizard::apps::desktop;
using adapters::qt::Text;

namespace {

// Somebody types a path into the next window, which asks for a file.
void TypeFile(const QString& path) {
  DesktopFixture::WhenShown([path] {
    auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
    if (!dialog) throw std::runtime_error("another window than expected");
    QTest::keyClicks(dialog->findChild<QLineEdit*>("fileNameEdit"), path);
    Strike(Qt::Key_Return);
  });
}

// Answers the next message; what it says.
void Press(const QString& button, QString* said = nullptr) {
  DesktopFixture::WhenShown([button, said] {
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    if (!box) throw std::runtime_error("another window than expected");
    if (said) *said = box->windowTitle() + ": " + box->text();
    CHECK(Nameless(*box) == "");
    for (QAbstractButton* each : box->buttons()) {
      if (each->text().remove('&') == button) return each->click();
    }
  });
}

QStringList Keys(const QStringList& texts) {
  QStringList keys;
  for (const QString& text : texts) {
    const QKeySequence key = QKeySequence::mnemonic(text);
    if (!key.isEmpty()) keys << key.toString();
  }
  return keys;
}

QStringList TextsOf(const QMenu& menu) {
  QStringList texts;
  for (const QAction* action : menu.actions()) texts << action->text();
  return texts;
}

template <typename Widget>
QStringList TextsIn(const QWidget& window) {
  QStringList texts;
  for (const Widget* widget : window.findChildren<Widget*>()) texts << widget->text();
  return texts;
}

}  // namespace

TEST_CASE("The wizard's command asks by keyboard for what is missing, and remembers it for the project") {
  FreshDesktop desktop;
  const QString project = desktop.Copied("library") + "/Lending.vbp", dictionary = desktop.Copied("dictionary.json"),
                toolbox = desktop.Copied("toolbox.ini");
  std::string title;
  const auto leaveWizard = [&title] {
    title = QApplication::activeModalWidget()->windowTitle().toStdString();
    Strike(Qt::Key_Escape);
  };
  DesktopFixture::WhenShown([&] {
    auto* needs = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    CHECK(needs->windowTitle() == "New Form");
    const auto* go = needs->findChildren<QPushButton*>()[3];
    for (const QString& file : {project, dictionary, toolbox}) {  // the focus goes on to what is still missing
      CHECK_FALSE(go->isEnabled());
      TypeFile(file);
      Strike(Qt::Key_Space);
    }
    WaitForFocus();
    CHECK(go->hasFocus());
    const auto labels = needs->findChildren<QLabel*>();
    for (const QString found :
         {"Lending.vbp, 6 forms", "dictionary.json, 6 classes in 2 systems", "toolbox.ini, OstrelQueryCtrl"}) {
      CAPTURE(found.toStdString());
      CHECK(QTest::qWaitFor([&] { return std::ranges::count(labels, found, &QLabel::text) == 1; }));
    }
    DesktopFixture::WhenShown(leaveWizard);
    Strike(Qt::Key_O, Qt::AltModifier);
    CHECK(QTest::qWaitFor([needs] { return !needs->isVisible(); }));  // a button is shown pressed for a while
  });
  Strike(Qt::Key_N, Qt::ControlModifier);
  CHECK(QTest::qWaitFor([&] { return title == "Ostrel Form Wizard - Step 1 of 6"; }));
  CHECK(desktop.Window->Tree().Choose("frmPerson"));
  CHECK(desktop.Window->close());

  // The next time all is there, and what was looked at is shown again.
  desktop.Start();
  title.clear();
  CHECK(desktop.Window->OpenProject(project));
  CHECK(desktop.Window->Tree().Chosen()->Name == "frmPerson");
  DesktopFixture::WhenShown(leaveWizard);
  Strike(Qt::Key_N, Qt::ControlModifier);
  CHECK(title == "Ostrel Form Wizard - Step 1 of 6");

  // What was open can be opened again; whoever does not go on has no wizard.
  CHECK(desktop.Window->close());
  desktop.Start();
  desktop.Window->OpenLast();
  CHECK(desktop.Window->windowTitle().startsWith("Lending.vbp"));
  desktop.Window->Commands()[Command::CloseProject].trigger();
  CHECK(desktop.Window->Tree().Chosen() == nullptr);
  DesktopFixture::WhenShown([] { Strike(Qt::Key_Escape); });
  Strike(Qt::Key_N, Qt::ControlModifier);
  CHECK_FALSE(QApplication::activeModalWidget());
}

TEST_CASE("By mouse the sample is tried, looked at, found again among the recent files, and missed when it is gone") {
  FreshDesktop desktop;
  const QString folder = Text(desktop.Folder / "tried");
  TypeFile(folder);
  auto* sample = desktop.Window->findChildren<QCommandLinkButton*>()[2];
  MouseUser::Click(*sample, sample->rect().center());
  QTreeView& tree = desktop.Window->Tree().View();
  REQUIRE(tree.isVisible());
  const QModelIndex form = FindItem(tree, "frmPerson", "Forms");
  MouseUser::Click(*tree.viewport(), tree.visualRect(form).center());
  CHECK(desktop.Window->Commands()[Command::SavePicture].isEnabled());
  MouseUser::Click(*tree.viewport(), tree.visualRect(FindItem(tree, "modFormat", "Modules")).center());
  CHECK(desktop.Window->Page().ShowInstead().Text() == "modFormat has no form.");
  CHECK_FALSE(desktop.Window->Commands()[Command::SavePicture].isEnabled());
  CHECK(desktop.Window->close());

  desktop.Start();
  auto* recent = desktop.Window->findChild<QListWidget*>();
  CHECK(recent->count() == 2);
  const auto click = [&](const QString& name) {
    const QModelIndex row = recent->model()->match(recent->model()->index(0, 0), Qt::DisplayRole, name)[0];
    MouseUser::Click(*recent->viewport(), recent->visualRect(row).center());
    QApplication::processEvents();
  };
  click("Lending");
  CHECK(desktop.Window->Tree().Chosen()->Name == "modFormat");
  desktop.Window->Commands()[Command::CloseProject].trigger();
  CHECK(desktop.Window->close());
  std::filesystem::remove_all(desktop.Folder / "tried");
  desktop.Start();
  recent = desktop.Window->findChild<QListWidget*>();
  QString said;
  Press("Remove from List", &said);
  click("Lending");
  CHECK(said == "Open Recent: Lending.vbp is no longer there.");
  CHECK(recent->count() == 1);
}

TEST_CASE("What was made and not saved is removed from the tree by Del, and asked about before") {
  const DesktopFixture desktop;
  MakePersonForm(desktop);
  const ProjectTree& tree = desktop.Window->Tree();
  QTreeView& view = desktop.Window->Tree().View();
  CHECK(view.currentIndex().data().toString() == "frmPerson *");
  CHECK(view.currentIndex().data(Qt::AccessibleTextRole).toString() == "frmPerson, form, changed, not saved");
  QString said;
  for (const QString answer : {"Cancel", "Take Back"}) {
    CHECK(tree.Chosen()->Name == "frmPerson");
    desktop.Window->activateWindow();
    view.setFocus();
    Press(answer, &said);
    Strike(Qt::Key_Delete);
  }
  CHECK(said == "Remove Form: frmPerson becomes Form1 again, as it is on the disk.");
  CHECK(tree.Chosen()->Name == "Form1");
  CHECK_FALSE(desktop.Window->isWindowModified());
  CHECK_FALSE(desktop.Window->Commands()[Command::RemoveForm].isEnabled());
}

TEST_CASE("Files that are dropped are opened, and JSON again when it has changed") {
  FreshDesktop desktop;
  const QString project = desktop.Copied("library") + "/Lending.vbp", dictionary = desktop.Copied("dictionary.json");
  QMimeData files;
  files.setUrls({QUrl::fromLocalFile(project), QUrl::fromLocalFile(dictionary), QUrl("http://example.org/a.vbp")});
  const auto drop = [&] {
    QDragEnterEvent enter(QPoint(50, 50), Qt::CopyAction, &files, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(desktop.Window.get(), &enter);
    QDropEvent event(QPointF(50, 50), Qt::CopyAction, &files, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(desktop.Window.get(), &event);
    CHECK(event.isAccepted());
    QApplication::processEvents();
  };
  drop();
  CHECK(desktop.Window->windowTitle().startsWith("Lending.vbp"));
  const auto cached = [&] { return FilesIn(desktop.Folder / "cache"); };
  const auto before = cached();
  REQUIRE(before.size() == 1);
  drop();
  CHECK(cached() == before);
  WriteFile(dictionary.toStdString(), ReadFile(dictionary.toStdString()) + "\n");
  drop();
  CHECK(cached().size() == 1);
  CHECK_FALSE(cached().contains(before.begin()->first));
}

TEST_CASE("In a narrow window the properties are a tab at the left, and each pane is reached by keys") {
  FreshDesktop desktop;
  CHECK(desktop.Window->OpenProject(desktop.Copied("library") + "/Lending.vbp"));
  const auto tabs = desktop.Window->findChildren<QTabWidget*>();
  const QTabWidget* left = *std::ranges::find_if(tabs, [](auto* each) { return each->tabText(0) == "Project"; });
  const auto widthIs = [&](int width) {
    desktop.Window->resize(width, 600);
    QApplication::processEvents();
    CHECK(desktop.Window->size() == QSize(width, 600));
    return left->count();
  };
  for (const ShippedLanguage& language : ShippedLanguages()) {
    CAPTURE(language.Abbreviation);
    const FreshDesktop other(language.Abbreviation);
    CHECK(other.Window->minimumSizeHint().width() <= 800);
    CHECK(other.Window->minimumSizeHint().height() <= 600);
  }
  desktop.Window->activateWindow();
  CHECK(widthIs(1000) == 2);
  CHECK(widthIs(800) == 3);
  CHECK(left->tabText(2) == "Properties");
  CHECK(widthIs(1000) == 2);
  Strike(Qt::Key_F7);
  const QWidget* code = QApplication::focusWidget();
  CHECK(code->inherits("QPlainTextEdit"));
  Strike(Qt::Key_R, Qt::ControlModifier);
  CHECK(desktop.Window->Tree().View().hasFocus());
  Strike(Qt::Key_F6);
  CHECK(code->hasFocus());
  Strike(Qt::Key_F6, Qt::ShiftModifier);
  CHECK(desktop.Window->Tree().View().hasFocus());
}

TEST_CASE("Access keys are unique on every menu, page and message, in every language") {
  for (const ShippedLanguage& language : ShippedLanguages()) {
    CAPTURE(language.Abbreviation);
    FreshDesktop desktop(language.Abbreviation);
    const adapters::satellite::Satellites satellites;
    const Texts texts(satellites, BuiltFolder(), language.Abbreviation), english;
    const auto onOneScreen = [](const QStringList& shown, qsizetype count) {
      QStringList keys = Keys(shown);
      CAPTURE(shown.join(" | ").toStdString());
      CHECK(keys.size() == count);
      CHECK(keys.removeDuplicates() == 0);
    };
    QStringList bar;
    for (const MenuName name :
         {MenuName::File, MenuName::Edit, MenuName::View, MenuName::Project, MenuName::AddIns, MenuName::Help}) {
      const QMenu& menu = desktop.Window->Commands().Menu(name);
      bar << menu.title();
      const auto entries = std::ranges::count_if(menu.actions(), [](QAction* each) { return !each->isSeparator(); });
      onOneScreen(TextsOf(menu), name == MenuName::AddIns ? 0 : entries);
    }
    onOneScreen(bar, 6);
    QStringList start;
    for (const auto* button : desktop.Window->findChildren<QCommandLinkButton*>()) start << button->text();
    onOneScreen(start + bar, 10);
    for (const std::vector<T>& buttons : std::vector<std::vector<T>>{
             {T::ButtonSave, T::ButtonDiscard, T::Cancel},
             {T::ButtonChooseAnother, T::ButtonClose},
             {T::ButtonRemove, T::Cancel},
             {T::ButtonTakeBack, T::Cancel},
             {T::ButtonRemoveFromList, T::Cancel},
             {T::ButtonUpdate, T::ButtonChooseAgain, T::Cancel},
             {T::ButtonChooseDictionary, T::ButtonClose},
             {T::NeedsProject, T::NeedsDictionary, T::NeedsToolbox, T::NeedsContinue, T::Cancel}}) {
      QStringList shown;
      for (const T text : buttons) shown << texts(text);
      onOneScreen(shown, shown.size());
    }
    CHECK((texts(T::OpenProject) == english(T::OpenProject)) == (language.Abbreviation == "ENU"));
  }
}

TEST_CASE("Whatever takes the focus has a role, a name and a state for those who cannot see it") {
  FreshDesktop desktop;
  MainWindow& window = *desktop.Window;
  CHECK(Nameless(window) == "");
  CHECK(window.OpenProject(desktop.Copied("library") + "/Lending.vbp"));
  CHECK(window.Tree().Choose("frmPerson"));
  DesktopFixture::WhenShown([] {
    CHECK(Nameless(*QApplication::activeModalWidget()) == "");  // of what the wizard needs
    Strike(Qt::Key_Escape);
  });
  window.Commands().Menu(MenuName::AddIns).actions().back()->trigger();
  CHECK(window.OpenDictionary(desktop.Copied("dictionary.json")));
  window.Page().Bar().Say("info", "a <b>note</b>", "Do", [] {});
  CHECK(QAccessible::queryAccessibleInterface(&window.Page().Bar())->text(QAccessible::Name) == "a note");
  window.Dictionary().findChild<QLineEdit*>()->setText("p");
  for (const Command pane : {Command::ShowDictionary, Command::ShowProperties, Command::Find}) {
    window.Commands()[pane].trigger();
    QApplication::processEvents();
    CHECK(Nameless(window) == "");
  }
  window.Commands()[Command::Contents].trigger();
  const auto windows = QApplication::topLevelWidgets();
  const auto help = std::ranges::find(windows, "Ostrel Form Wizard Help", &QWidget::windowTitle);
  REQUIRE(help != windows.end());
  CHECK((*help)->findChild<QTextBrowser*>()->toPlainText().startsWith("The desktop program"));
  CHECK(Nameless(**help) == "");
  (*help)->close();
}

TEST_CASE("Colours follow the palette, and a selected row can be read") {
  QPalette light(QColor("#f0f0f0")), dark(QColor("#202124"));
  CHECK(ColourOf(Shade::Canvas, light) == QColor("#DCDFE3"));
  CHECK(ColourOf(Shade::Canvas, dark) == QColor("#1C1D1F"));
  light.setColor(QPalette::Highlight, QColor("#90c0f0"));
  light.setColor(QPalette::HighlightedText, Qt::white);
  const QPalette readable = ReadableHighlight(light);
  CHECK(readable.color(QPalette::Highlight).lightness() < light.color(QPalette::Highlight).lightness());
  CHECK_FALSE(readable.isBrushSet(QPalette::Active, QPalette::Window));  // which goes on following the desktop
  light.setColor(QPalette::Highlight, QColor("#1050a0"));
  CHECK_FALSE(ReadableHighlight(light).isBrushSet(QPalette::Active, QPalette::Highlight));
}
