// The main window: what it shows, what it asks, and what it does when something fails.
#include "tests/apps/desktop/Users.h"

#include <QLineEdit>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>

using namespace formwizard::tests;
using formwizard::apps::desktop::MessageBar;

namespace {

// Answers the next message box, and keeps what it said.
void Answer(const QString& button, std::string& text) {
  DesktopFixture::WhenShown([button, &text] {
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    if (!box) throw std::runtime_error("another window than expected");
    text = (box->text() + "\n" + box->informativeText()).toStdString();
    for (QAbstractButton* each : box->buttons()) {
      if (each->text().remove('&') != button) continue;
      each->click();
      return;
    }
    throw std::runtime_error("no button " + button.toStdString());
  });
}

// To the list of properties of a class.
std::string Chosen(const DesktopFixture& desktop) { return desktop.Window->Tree().Chosen()->Name; }

QString Code(const DesktopFixture& desktop) { return desktop.Window->findChild<QPlainTextEdit*>()->toPlainText(); }

}  // namespace

TEST_CASE("A new form is shown with its code, and nothing of it is lost without being asked for") {
  DesktopFixture desktop;
  CHECK(Chosen(desktop) == "Form1");
  CHECK(Code(desktop).isEmpty());
  MakePersonForm(desktop);
  CHECK(desktop.Window->isWindowModified());
  CHECK(Chosen(desktop) == "frmPerson");
  CHECK(Code(desktop).startsWith("Const m_classname = \"Sample.Person\""));

  std::string asked;
  Answer("Cancel", asked);
  CHECK_FALSE(desktop.Window->close());
  CHECK(asked.starts_with("Project1.vbp has changes that are not saved.\n"));
  CHECK_FALSE(FilesIn(desktop.Home).contains("frmPerson.frm"));
  Answer("Save", asked);
  CHECK(desktop.Window->close());
  CHECK(FilesIn(desktop.Home).contains("frmPerson.frm"));
}

TEST_CASE("Saving that fails is said, leaves the form open, and can be tried again") {
  DesktopFixture desktop;
  MakePersonForm(desktop);
  const std::string obstacle = desktop.Home + "/frmPerson.frm";
  WriteFile(obstacle, "somebody else's");
  std::string said;
  Answer("OK", said);
  desktop.PressSave();
  CHECK(Has(said, "frmPerson.frm"));
  CHECK(desktop.Window->isWindowModified());
  CHECK(ReadFile(obstacle) == "somebody else's");
  std::filesystem::remove(obstacle);
  const std::string project = desktop.Home + "/Project1.vbp", before = ReadFile(project);
  WriteFile(project, before + "Title=\"theirs\"\r\n");  // by another program
  Answer("Cancel", said);
  desktop.PressSave();
  CHECK(said.starts_with("Project1.vbp uses a file that another program has changed."));
  CHECK(desktop.Window->isWindowModified());
  WriteFile(project, before);
  desktop.Save();
  CHECK(FilesIn(desktop.Home).at("frmPerson.frm").starts_with("VERSION 5.00"));

  // A second form follows the first one into the project.
  MakePersonForm(desktop);
  CHECK(Chosen(desktop) == "frmPerson2");
  REQUIRE(desktop.Window->Tree().Choose("frmPerson"));
  desktop.UseWizard([] { Find<QAbstractButton>(WizardDesign().cmdCancel)->click(); });
  CHECK(Chosen(desktop) == "frmPerson");  // what is looked at stays when nothing was made
  WriteFile(project, ReadFile(project) + "Title=\"theirs\"\r\n");
  Answer("Reload", said);
  desktop.PressSave();
  CHECK_FALSE(desktop.Window->isWindowModified());  // what was not saved is given up
  CHECK_FALSE(desktop.Window->Tree().Choose("frmPerson2"));
  MakePersonForm(desktop);
  desktop.Save();
  CHECK(FilesIn(desktop.Home).contains("frmPerson2.frm"));
}

TEST_CASE("A start-up form that had code is shown with a note on it") {
  DesktopFixture desktop;
  const std::string form = desktop.Home + "/Form1.frm";
  WriteFile(form, ReadFile(form) + "Sub Form_Load()\r\nEnd Sub\r\n");
  MakePersonForm(desktop);
  const MessageBar& bar = desktop.Window->Page().Bar();
  CHECK(bar.isVisible());
  CHECK(Has(bar.accessibleName().toStdString(), "twice: Form_Load"));
}

TEST_CASE("What cannot be opened is said, and what was open stays") {
  DesktopFixture desktop;
  std::string said;
  Answer("Close", said);
  CHECK_FALSE(desktop.Window->OpenProject("nowhere.vbp"));
  CHECK(said.starts_with("nowhere.vbp cannot be opened.\nnowhere.vbp: there is no such project file"));
  WriteFile(desktop.Folder / "no.sqlite", "no dictionary");
  Answer("OK", said);
  CHECK_FALSE(desktop.Window->OpenDictionary(QString::fromStdString(desktop.Folder / "no.sqlite")));
  CHECK(Has(said, "no.sqlite"));
  MakePersonForm(desktop);
  CHECK(Chosen(desktop) == "frmPerson");
}

TEST_CASE("The wizard opens at once where it is asked for, unless what it needs cannot be opened") {
  const DesktopFixture desktop;
  const QString project = QString::fromStdString(desktop.Home + "/Project1.vbp");
  const auto dictionary = [&](const char* name) { return QString::fromStdString(desktop.Folder / name); };
  std::string title, said;
  DesktopFixture::WhenShown([&] {
    title = QApplication::activeModalWidget()->windowTitle().toStdString();
    Find<QAbstractButton>(WizardDesign().cmdCancel)->click();
  });
  desktop.Window->Open(project, dictionary("d.sqlite"), true);
  QApplication::processEvents();
  CHECK(title == "Ostrel Form Wizard - Step 1 of 6");
  Answer("OK", said);
  desktop.Window->Open(project, dictionary("none.sqlite"), true);
  QApplication::processEvents();
  CHECK(Has(said, "none.sqlite: "));
  CHECK_FALSE(QApplication::activeModalWidget());
}

TEST_CASE("A dictionary that holds what would become code is refused when that is met") {
  const DesktopFixture desktop;
  const std::string path = desktop.Folder / "d.sqlite", name = "Sample.Company";
  std::string bytes = ReadFile(path), said;
  for (std::size_t at = bytes.find(name); at != std::string::npos; at = bytes.find(name, at)) bytes[at + 10] = '"';
  WriteFile(path, bytes);
  CHECK(desktop.Window->OpenDictionary(QString::fromStdString(path)));
  desktop.UseWizard([&] {
    Find<QAbstractButton>(WizardDesign().cmdNext)->click();
    Answer("OK", said);
    Find<QAbstractButton>(WizardDesign().cmdNext)->click();
    Find<QAbstractButton>(WizardDesign().cmdCancel)->click();
  });
  CHECK(Has(said, path + ": the Name of a class is \"Sample.Com\"any\""));
}

TEST_CASE("A name that the project's code page cannot hold ends the generation, and the wizard can be closed") {
  DesktopFixture desktop;
  std::string said;
  desktop.UseWizard([&said] {
    MouseUser user;
    GoToProperties(user);
    user.Press(WizardDesign().cmdSelectAll);
    user.Press(WizardDesign().cmdNext);
    auto* caption = Find<QLineEdit>(WizardDesign().txtCaption[0]);
    caption->clear();
    caption->insert(QString::fromUtf8("名"));  // as an input method does
    Answer("OK", said);
    user.Press(WizardDesign().cmdFinish);
    CHECK(Find(WizardDesign().cmdCancel)->isEnabled());
    CHECK_FALSE(Find(WizardDesign().cmdFinish)->isEnabled());
    QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Escape);
  });
  CHECK(Has(said, "名"));
  CHECK_FALSE(QApplication::activeModalWidget());
  CHECK(Chosen(desktop) == "frmPerson");  // half written, and shown
}
