// Files that are damaged, gone, changed by others or called strangely: the window says so, and keeps what it has.
#include "tests/apps/desktop/FreshDesktop.h"
#include "tests/apps/desktop/Users.h"

#include <QListWidget>
#include <QMessageBox>
#include <QScreen>
#include <QSettings>
#include <QToolButton>

using namespace formwizard;
using namespace formwizard::tests;
using namespace formwizard::apps::desktop;
using adapters::qt::Text;

namespace {

// Presses the button of the next message; what it has said.
void Answer(const QString& button, QString& said) {
  DesktopFixture::WhenShown([button, &said] {
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    if (!box) throw std::runtime_error("another window than expected");
    said = box->text() + "\n" + box->informativeText();
    for (QAbstractButton* each : box->buttons()) {
      if (each->text().remove('&') == button) return each->click();
    }
  });
}

bool HasText(const QWidget& window, const QString& text) {
  const auto buttons = window.findChildren<QToolButton*>();
  return std::ranges::any_of(buttons, [&](auto* button) { return button->isVisible() && button->text() == text; });
}

QStringList RecentIn(const QWidget& window) {
  QStringList names;
  const auto* list = window.findChild<QListWidget*>();
  for (int row = 0; row < list->count(); ++row) names << list->item(row)->text();
  return names;
}

}  // namespace

TEST_CASE("A dictionary that cannot be opened leaves the one before, and the message names file and remedy") {
  FreshDesktop desktop;
  REQUIRE(desktop.Window->OpenDictionary(desktop.Copied("dictionary.json")));
  WriteFile(desktop.Folder / "empty.sqlite", "");
  WriteFile(desktop.Folder / "text.sqlite", "no database");
  WriteFile(desktop.Folder / "bad.json", "{\"systems\":[{]}");
  std::filesystem::create_directory(desktop.Folder / "folder.sqlite");
  std::filesystem::create_directory(desktop.Folder / "folder.json");
  const std::string whole = FilesIn(desktop.Folder / "cache").begin()->second;
  WriteFile(desktop.Folder / "half.sqlite", whole.substr(0, whole.size() / 2));
  struct Case {
    QString Name, Why;
  };
  for (const Case& c : {Case{"empty.sqlite", "dictionary import"}, Case{"text.sqlite", "dictionary import"},
                        Case{"none.sqlite", "there is no such file"}, Case{"none.json", "there is no such file"},
                        Case{"folder.sqlite", "folder"}, Case{"folder.json", "folder"}, Case{"bad.json", ":1:"},
                        Case{"half.sqlite", "dictionary import"}}) {
    CAPTURE(c.Name.toStdString());
    QString said;
    Answer("OK", said);
    CHECK_FALSE(desktop.Window->OpenDictionary(Text(desktop.Folder / c.Name.toStdString())));
    CAPTURE(said.toStdString());
    CHECK(said.startsWith(c.Name + " cannot be opened.\n"));
    CHECK(said.contains(Text(desktop.Folder / c.Name.toStdString())));
    CHECK(said.contains(c.Why));
    CHECK(HasText(*desktop.Window, "dictionary.json"));
  }
}

TEST_CASE(
    "A dictionary that another program has changed is read again when the window is used, and one that is gone stays") {
  FreshDesktop desktop;
  const QString file = desktop.Copied("dictionary.json");
  REQUIRE(desktop.Window->OpenDictionary(file));
  desktop.Window->Commands()[Command::ShowDictionary].trigger();
  const auto* tree = desktop.Window->Dictionary().findChild<QTreeView*>();
  const auto systemIs = [&](const QString& name) {
    QEvent used(QEvent::ActivationChange);
    QApplication::sendEvent(desktop.Window.get(), &used);
    CHECK(tree->model()->index(0, 0).data().toString() == name);
  };
  systemIs("Samples");
  const std::string text = ReadFile(file.toStdString());
  const auto write = [&](const std::string& name) {
    std::string changed = text;
    WriteFile(file.toStdString(), changed.replace(text.find("\"Samples\""), 9, name));
  };
  write("\"Sampled again\"");
  systemIs("Sampled again");
  write("damaged");
  systemIs("Sampled again");
  CHECK(desktop.Window->findChild<QStatusBar*>()->currentMessage().contains("dictionary.json"));
  std::filesystem::remove(file.toStdString());
  systemIs("Sampled again");
}

TEST_CASE("A project whose files are gone or called strangely is shown as far as it is there") {
  FreshDesktop desktop;
  const QString folder = desktop.Copied("library");
  const std::string strange = folder.toStdString() + "/Ä & <b>[*] %1.vbp";
  std::filesystem::rename(folder.toStdString() + "/Lending.vbp", strange);
  WriteFile(folder.toStdString() + "/R&D <i>.ini", ReadFile(SourceFolder() + "/samples/toolbox.ini"));
  REQUIRE(desktop.Window->OpenProject(Text(strange)));
  desktop.Window->Open(folder + "/R&D <i>.ini", "", false);
  CHECK(desktop.Window->windowTitle() == "Ä & <b>[*][*] %1.vbp[*] - Ostrel Form Wizard");
  CHECK(HasText(*desktop.Window, "R&&D <i>.ini"));
  const QAbstractItemModel& tree = *desktop.Window->Tree().View().model();
  const QString tip = FindItem(desktop.Window->Tree().View(), "frmPerson").data(Qt::ToolTipRole).toString();
  CHECK(tip.endsWith("frmPerson.frm"));
  CHECK(tree.index(0, 0).data().toString() == "Ä & <b>[*] %1 (Ä & <b>[*] %1.vbp)");
  CHECK(RecentIn(*desktop.Window) == QStringList{"Ä & <b>[*] %1"});
  const auto* recent = desktop.Window->findChild<QListWidget*>();
  CHECK(recent->item(0)->toolTip().contains("&lt;b&gt;"));

  std::filesystem::remove_all(folder.toStdString());
  REQUIRE(desktop.Window->Tree().Choose("frmPerson"));
  CHECK(desktop.Window->Page().ShowInstead().Text().contains("frmPerson.frm"));
  QString said;
  Answer("Close", said);
  CHECK_FALSE(desktop.Window->OpenProject(Text(strange)));
  CHECK(said.startsWith("Ä & <b>[*] %1.vbp cannot be opened.\n"));
  CHECK(desktop.Window->Tree().Chosen()->Name == "frmPerson");  // what was open
}

TEST_CASE("A project opens without the files that are not there, which the tree and a message tell") {
  FreshDesktop desktop;
  const std::string folder = desktop.Copied("library").toStdString();
  const MessageBar& bar = desktop.Window->Missing();
  const auto open = [&] { REQUIRE(desktop.Window->OpenProject(Text(folder + "/Lending.vbp"))); };
  std::filesystem::remove(folder + "/frmAbout.frm");
  open();
  CHECK(desktop.Window->Tree().Chosen()->Name == "frmBook");
  CHECK(bar.accessibleName().startsWith("The project lists a file that is not there."));
  const std::string project = ReadFile(folder + "/Lending.vbp"), type = project.substr(0, project.find('\n') + 1);
  WriteFile(folder + "/Lending.vbp", type + "Module=modGone; gone\\modGone.bas\r\n" + project.substr(type.size()));
  open();
  CHECK(bar.isVisible());
  CHECK(bar.accessibleName().startsWith("The project lists 2 files that are not there."));
  CHECK_FALSE(desktop.Window->isWindowModified());
  for (const auto& [name, file] : {std::pair{"frmAbout", "/frmAbout.frm"}, {"modGone", "/gone/modGone.bas"}}) {
    const QModelIndex row = FindItem(desktop.Window->Tree().View(), name);
    CHECK(row.data().toString() == name);
    CHECK(row.data(Qt::ToolTipRole).toString() == Text(folder + file + " is not there"));
    CHECK(row.data(Qt::AccessibleTextRole).toString().endsWith(", file missing"));
    CHECK(row.data(Qt::ForegroundRole).isValid());
    REQUIRE(desktop.Window->Tree().Choose(name));
    CHECK(desktop.Window->Page().ShowInstead().Text().contains(Text(file)));
    CHECK_FALSE(desktop.Window->Commands()[Command::SavePicture].isEnabled());
  }
  CHECK_FALSE(FindItem(desktop.Window->Tree().View(), "frmBook").data(Qt::ForegroundRole).isValid());
  WriteFile(folder + "/Lending.vbp", type + "Form=Forms\\frmBook.frm\r\n");
  open();
  CHECK_FALSE(bar.isVisible());
}

TEST_CASE("What is remembered may be damaged or of another screen, and several windows remember together") {
  FreshDesktop desktop;
  const QString project = desktop.Copied("library") + "/Lending.vbp", dictionary = desktop.Copied("dictionary.json");
  REQUIRE(desktop.Window->OpenProject(project));
  desktop.Window->move(4000, 3000);
  CHECK(desktop.Window->close());
  const QString file = Text(desktop.Folder / "desktop.ini");
  QStringList paths{"", project};
  for (int i = 0; i < 2000; ++i) paths << "/net/unreachable/" + QString::number(i) + ".vbp";
  {
    QSettings damaged(file, QSettings::IniFormat);
    damaged.setValue("recent/paths", paths);
    damaged.setValue("window/panes", QByteArray("no panes"));
    for (const QString& key : damaged.allKeys()) {
      if (key.endsWith("/zoom")) damaged.setValue(key, "nan");
    }
    for (const QString& group : damaged.childGroups()) {
      if (group.startsWith("project-")) damaged.setValue(group + "/zoom", "nan");
    }
  }
  desktop.Start();
  QApplication::processEvents();
  CHECK(desktop.Window->screen()->availableGeometry().intersects(desktop.Window->frameGeometry()));
  CHECK(RecentIn(*desktop.Window).size() == 10);
  CHECK(desktop.Window->OpenProject(project));
  CHECK(desktop.Window->Form().IsFitted());
  CHECK(desktop.Window->close());

  for (const std::string& content : {std::string("\0\xff[[[\n=%%%\n@ByteArray(", 17), std::string(100000, 'x')}) {
    WriteFile(file.toStdString(), content);
    desktop.Start();
    CHECK(RecentIn(*desktop.Window).isEmpty());
    CHECK(desktop.Window->OpenProject(project));
    MainWindow second({.Profile = "", .Language = "ENU", .Toolbox = "", .Memory = file.toStdString()});
    CHECK(desktop.Window->OpenDictionary(dictionary));
    CHECK(second.OpenProject(desktop.Copied("new-project") + "/Project1.vbp"));
    CHECK(RecentIn(second) == QStringList{"Project1", "dictionary.json", "Lending"});
  }
}

TEST_CASE("What cannot be remembered is told once, with its file") {
  FreshDesktop desktop;
  std::filesystem::create_directory(desktop.Folder / "none");
  MainWindow window({.Profile = "", .Language = "ENU", .Toolbox = "", .Memory = desktop.Folder / "none"});
  window.show();
  CHECK(QTest::qWaitFor([&] { return window.Notice().isVisible(); }));
  CHECK(window.Notice().accessibleName().startsWith(
      Text(desktop.Folder / "none") + " cannot be written, so that nothing is remembered for the next time. Make"));
  window.Notice().Clear();
  CHECK(window.OpenProject(desktop.Copied("new-project") + "/Project1.vbp"));
  CHECK_FALSE(QTest::qWaitFor([&] { return window.Notice().isVisible(); }, 50));
}

TEST_CASE("The code page that is chosen for a project is remembered, unless another one is given") {
  FreshDesktop desktop;
  const QString project = desktop.Copied("new-project") + "/Project1.vbp";
  const std::string form = desktop.Folder / "new-project/Form1.frm";
  std::string text = ReadFile(form);
  WriteFile(form, text.replace(text.find("\"Form1\""), 7, "\"\xE8\""));
  const auto shows = [](const std::string& caption, MainWindow& window) {
    return window.Form().Canvas().Form()->Text("Caption") == caption;
  };
  CHECK(desktop.Window->OpenProject(project));
  CHECK(shows("è", *desktop.Window));
  DesktopFixture::WhenShown([] {
    auto* list = QApplication::activeModalWidget()->findChild<QComboBox*>();
    CHECK(list->currentText().startsWith("1252 "));
    CHECK(list->count() == 15);
    list->setCurrentIndex(list->findText("1250", Qt::MatchStartsWith));
    QTest::keyClick(list, Qt::Key_Return);
  });
  desktop.Window->Commands()[Command::ChooseCodePage].trigger();
  CHECK(shows("č", *desktop.Window));
  desktop.Start();
  CHECK(desktop.Window->OpenProject(project));
  CHECK(shows("č", *desktop.Window));
  for (const auto& [given, caption] : {std::pair{1251, "и"}, {1252, "è"}}) {
    MainWindow window({"", "ENU", "", given, desktop.Folder / "desktop.ini"});
    CHECK(window.OpenProject(project));
    CHECK(shows(caption, window));
  }
}
