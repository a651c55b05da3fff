// Kept forms in the main window: how they stand, what updates them, and what takes that back.
#include "apps/desktop/update/UpdateView.h"
#include "tests/apps/Keeper.h"
#include "tests/apps/desktop/FreshDesktop.h"
#include "tests/apps/desktop/Nameless.h"
#include "tests/apps/desktop/Users.h"

#include <QMessageBox>
#include <QTreeWidgetItemIterator>

using namespace formwizard::tests;
using namespace formwizard::apps::desktop;
using formwizard::adapters::qt::Text;

namespace {

// A project with a kept form, in the main window.
struct KeptWindow : Keeper {
  MainWindow Window{EnvironmentOptions{.Profile = Folder / "none.ini",
                                       .Language = "ENU",
                                       .Toolbox = Samples + "toolbox.ini",
                                       .Memory = Folder / "desktop.ini"}};

  // The class gets another caption and a property, and the form a line of the user's.
  void ChangeBoth() {
    Property("Name")["Caption"] = "Full name";
    nlohmann::json more = Property("Name");
    more["Name"] = "Nickname";
    for (auto& of : Classes["systems"][0]["classes"]) {
      if (of["Name"] == "Sample.Person") of["properties"].push_back(more);
    }
    Import();
    Edit(Form(), SaveClick, SaveClick + Guard);
  }
  void Open() {
    Window.show();
    CHECK(Window.OpenProject(Text(Project)));
    CHECK(Window.OpenDictionary(Text(Folder / "d.sqlite")));
    CHECK(Window.Tree().Choose("frmPerson"));
    Wait();
  }
  void Wait() const {
    CHECK(QTest::qWaitFor([this] { return Window.Kept().IsDone(); }));
  }
  void Press(Qt::Key key, Qt::KeyboardModifiers modifiers) {
    Window.activateWindow();
    WaitForFocus();
    QTest::keyClick(&Window, key, modifiers);
    Wait();
  }
  // Opens the update view by a key; whoever uses it closes it.
  void Update(const std::function<void(UpdateView& view, QTreeWidget& changes)>& user,
              Qt::KeyboardModifiers keys = Qt::ControlModifier) {
    DesktopFixture::WhenShown([&user] {
      auto& view = dynamic_cast<UpdateView&>(*QApplication::activeModalWidget());
      user(view, *view.findChild<QTreeWidget*>());
      CHECK(QTest::qWaitFor([] { return !QApplication::activeModalWidget(); }));
    });
    Press(Qt::Key_U, keys);
  }
  // Chooses a command and answers its message; what that says.
  QString Answer(Command command, const QString& button) {
    QString said;
    DesktopFixture::WhenShown([&] {
      auto& box = dynamic_cast<QMessageBox&>(*QApplication::activeModalWidget());
      said = box.text();
      for (QAbstractButton* each : box.buttons()) {
        if (each->text().remove('&') == button) return each->click();
      }
    });
    Window.Commands()[command].trigger();
    Wait();
    return said;
  }
  QString Spoken() { return Window.Tree().View().currentIndex().data(Qt::AccessibleTextRole).toString(); }
  QStringList Icons() {
    const QModelIndex entry = Window.Tree().View().currentIndex();
    return entry.siblingAtColumn(ProjectModel::StateColumn).data(ProjectModel::IconsRole).toStringList();
  }
};

}  // namespace

TEST_CASE("The tree, the heading, the message bar and the code tell how a kept form stands") {
  KeptWindow work;
  work.Open();
  CHECK(work.Spoken() == "frmPerson, form, unchanged, saved");
  CHECK(work.Icons() == QStringList{"kept"});
  const MessageBar& bar = work.Window.Page().Bar();
  CHECK_FALSE(bar.isVisible());

  work.ChangeBoth();
  const auto check = [&] {
    work.Window.activateWindow();
    WaitForFocus();
    QTest::keyClick(&work.Window, Qt::Key_F5);
    work.Wait();
  };
  check();
  CHECK(work.Spoken() == "frmPerson, form, edited and outdated, saved");
  CHECK(work.Icons() == QStringList{"edited", "outdated"});
  CHECK(bar.isVisible());
  CHECK(bar.accessibleName().toStdString() ==
        "Sample.Person has changed since this form was made: Name (caption), Spouse.Nickname (new), Nickname (new).");
  const CodeView& code = work.Window.Code().View();
  const auto edited =
      code.toPlainText().replace(QChar::LineSeparator, '\n').split('\n').indexOf(Text(Guard).chopped(2));
  const LineMargin* margin = nullptr;
  for (const QWidget* each : code.findChildren<QWidget*>())
    margin = margin ? margin : dynamic_cast<const LineMargin*>(each);
  REQUIRE(margin);
  CHECK(edited > 0);
  CHECK(margin->IsMarked(static_cast<int>(edited)));
  CHECK_FALSE(margin->IsMarked(static_cast<int>(edited) - 1));

  work.Edit(work.Kept + "frmPerson.frm", "Caption", "caption");  // by somebody who merged it by hand
  check();
  CHECK(work.Spoken() == "frmPerson, form, kept text of another form, saved");
  CHECK(work.Icons() == QStringList{"missing"});
  WriteFile(work.Kept + "frmPerson.json", "{");
  check();
  CHECK(work.Spoken() == "frmPerson, form, cannot be compared, saved");
  CHECK(Has(bar.accessibleName().toStdString(), "frmPerson.json:1"));
  std::filesystem::remove_all(work.Kept);
  check();
  CHECK(work.Spoken() == "frmPerson, form, saved");
}

TEST_CASE("An update is decided by keyboard, saved with everything else, and taken back before and after that") {
  KeptWindow work;
  work.ChangeBoth();
  work.Edit(work.Form(), "\"Name\"", "\"My name\"");  // which the class has changed, too
  const auto before = work.Files(), own = OwnFiles(work.Folder / "App");
  work.Open();
  bool wasDecided = false;
  const auto takeNew = [&](UpdateView& view, QTreeWidget& changes) {
    CHECK(Nameless(view).empty());
    CHECK(changes.hasFocus());
    CHECK(changes.topLevelItem(0)->text(0) == "To decide (1)");
    Strike(Qt::Key_Down);
    Strike(Qt::Key_Tab);
    const auto told = [](QAccessible::Text text) {
      return QAccessible::queryAccessibleInterface(QApplication::focusWidget())->text(text);
    };
    CHECK(told(QAccessible::Description) == "lblName");
    CHECK((told(QAccessible::Name) == "Take new") == wasDecided);  // also when it was taken back
    if (!std::exchange(wasDecided, true)) {
      Strike(Qt::Key_U, Qt::AltModifier);
      CHECK(view.isVisible());  // it is not decided yet
      Strike(Qt::Key_Down);
      Strike(Qt::Key_Down);
      CHECK(QTest::qWaitFor([&] { return view.Forms()[0].IsDecided(); }));
    }
    Strike(Qt::Key_U, Qt::AltModifier);
  };
  work.Update(takeNew);
  CHECK(work.Spoken() == "frmPerson, form, edited, changed, not saved");
  CHECK(work.Window.isWindowModified());
  CHECK(work.Files() == before);
  const QString today = "frmPerson becomes what it was today at ";
  CHECK(work.Answer(Command::UndoLastUpdate, "Undo").startsWith(today));
  CHECK(work.Spoken() == "frmPerson, form, edited and outdated, saved");
  CHECK_FALSE(work.Window.isWindowModified());

  work.Update(takeNew);
  work.Press(Qt::Key_S, Qt::ControlModifier);
  CHECK(work.Spoken() == "frmPerson, form, edited, saved");
  CHECK(work.Status()["state"] == nlohmann::json{"edited"});
  CHECK(Has(ReadFile(work.Form()), "\"Full name\""));
  CHECK(Has(ReadFile(work.Form()), Guard));
  CHECK(work.Answer(Command::UndoLastUpdate, "Undo").startsWith(today));
  CHECK(work.Spoken() == "frmPerson, form, edited and outdated, saved");
  CHECK(OwnFiles(work.Folder / "App") == own);
  CHECK(work.Files().at("Project1.forms/frmPerson.json") == before.at("Project1.forms/frmPerson.json"));
}

TEST_CASE(
    "What goes is hatched where it was, codes scroll together, and another dictionary is asked for where one lacks the "
    "class") {
  KeptWindow work;
  work.Property("Name")["Name"] = "Title";
  work.Import();
  work.Open();
  work.Update([](UpdateView& view, QTreeWidget& changes) {
    QStringList gone;
    for (QTreeWidgetItemIterator it(&changes); *it; ++it) {
      if ((*it)->text(1) == "taken out") gone << (*it)->text(0);
    }
    CHECK(gone.contains("txtName"));
    CHECK(gone.contains("txtName_Change"));
    const auto& code = view.Code();
    Strike(Qt::Key_F8);
    const int first = code.After().CurrentRow();
    CHECK(first > 0);
    CHECK(code.Before().CurrentRow() == first);
    Strike(Qt::Key_F8);
    CHECK(code.After().CurrentRow() > first);
    Strike(Qt::Key_F8, Qt::ShiftModifier);
    CHECK(code.After().CurrentRow() == first);
    CHECK(code.Before().blockCount() == code.After().blockCount());
    Strike(Qt::Key_Escape);
  });
  CHECK_FALSE(work.Window.isWindowModified());
  for (auto& of : work.Classes["systems"][0]["classes"]) {
    if (of["Name"] == "Sample.Person") of["Name"] = "Sample.Human";
  }
  work.Import();
  work.Press(Qt::Key_F5, Qt::NoModifier);
  CHECK(work.Answer(Command::UpdateForm, "Close") == "d.sqlite has no class Sample.Person.");
}

TEST_CASE("All outdated forms are updated at once, in a list, and in a narrow view picture and code are tabs") {
  KeptWindow work;
  WriteFile(work.Folder / "company.json", R"({"class":"Sample.Company","fields":["Name"]})");
  REQUIRE(work.Generate({"--keep", work.Folder / "company.json"}).Status == 0);
  for (auto& of : work.Classes["systems"][0]["classes"]) {
    if (of["Name"] != "Sample.Person" && of["Name"] != "Sample.Company") continue;
    for (auto& property : of["properties"]) {
      if (property["Name"] == "Name") property["Caption"] = "Full name";
    }
  }
  work.Import();
  work.Open();
  const auto both = Qt::ControlModifier | Qt::ShiftModifier;
  work.Update(
      [](UpdateView& view, QTreeWidget& changes) {
        CHECK(Nameless(view).empty());
        auto* names = view.findChild<QListWidget*>();
        CHECK(names->isVisible());
        CHECK(names->count() == 2);
        const QString first = names->item(0)->text();
        for (int row : {1, 0}) {
          names->setCurrentRow(row);
          QStringList changed;
          for (QTreeWidgetItemIterator it(&changes); *it; ++it) changed << (*it)->text(0);
          CHECK(changed.contains("lblName"));
        }
        CHECK(names->currentItem()->text() == first);
        auto* tabs = view.findChild<QTabWidget*>();
        CHECK_FALSE(tabs->isVisible());
        view.resize(800, 600);
        CHECK(QTest::qWaitFor([&] { return tabs->isVisible() && tabs->count() == 2; }));
        view.resize(1200, 740);
        CHECK(QTest::qWaitFor([&] { return !tabs->isVisible() && view.Code().isVisible(); }));
        Strike(Qt::Key_U, Qt::AltModifier);
      },
      both);
  work.Press(Qt::Key_S, Qt::ControlModifier);
  const Outcome status = work.Run("status");
  CHECK(status.Status == 0);
  CHECK(status.Out == "frmCompany: unchanged\nfrmPerson: unchanged\n");
}

TEST_CASE("A kept form that the project lacks has a row, and comes back or is kept no longer, and that is taken back") {
  KeptWindow work;
  work.Edit(work.Project, "Form=frmPerson.frm\r\n", "");  // as by a merge
  const std::string without = ReadFile(work.Project);
  const auto before = work.Files();
  work.Window.show();
  CHECK(work.Window.OpenProject(Text(work.Project)));
  work.Wait();  // which needs no dictionary
  REQUIRE(work.Window.Tree().Choose("frmPerson"));
  CHECK(work.Window.Tree().Chosen() == nullptr);
  CHECK(work.Spoken() == "frmPerson, form, missing");
  CHECK(work.Icons() == QStringList{"missing"});
  const auto isEnabled = [&](Command command) { return work.Window.Commands()[command].isEnabled(); };
  CHECK(Has(work.Window.Page().ShowInstead().Text().toStdString(), "the project has no such form any more"));
  CHECK_FALSE(isEnabled(Command::UpdateForm));

  work.Window.Commands()[Command::AddFormAgain].trigger();
  work.Wait();
  CHECK(work.Spoken() == "frmPerson, form, changed, not saved");
  CHECK(work.Window.OpenDictionary(Text(work.Folder / "d.sqlite")));
  work.Wait();
  CHECK(work.Spoken() == "frmPerson, form, unchanged, changed, not saved");
  CHECK(work.Answer(Command::RemoveForm, "Remove") ==
        "frmPerson leaves the project again. Its file stays where it is.");
  CHECK_FALSE(work.Window.isWindowModified());
  REQUIRE(work.Window.Tree().Choose("frmPerson"));
  CHECK(work.Spoken() == "frmPerson, form, missing");
  work.Window.Commands()[Command::AddFormAgain].trigger();
  work.Press(Qt::Key_S, Qt::ControlModifier);
  CHECK(Has(ReadFile(work.Project), "Form=frmPerson.frm\r\n"));
  CHECK(work.Spoken() == "frmPerson, form, unchanged, saved");

  for (const bool isThere : {true, false}) {
    CAPTURE(isThere);
    if (!isThere) {
      WriteFile(work.Project, without);
      std::filesystem::remove(NativePath(work.Form()));
      work.Press(Qt::Key_F5, Qt::NoModifier);  // by which the project is read again, too
      REQUIRE(work.Window.Tree().Choose("frmPerson"));
      CHECK_FALSE(isEnabled(Command::AddFormAgain));
    }
    const QString spoken = work.Spoken();
    const auto stop = [&] {
      work.Window.Commands()[Command::StopKeeping].trigger();
      work.Wait();
      CHECK(work.Window.isWindowModified());
      CHECK(work.Window.Tree().Choose("frmPerson") == isThere);
      CHECK_FALSE(isEnabled(Command::ChangeForm));
    };
    stop();
    CHECK(work.Answer(Command::UndoLastUpdate, "Undo").startsWith("frmPerson becomes what it was today at "));
    REQUIRE(work.Window.Tree().Choose("frmPerson"));
    CHECK(work.Spoken() == spoken);
    stop();
    work.Press(Qt::Key_S, Qt::ControlModifier);
    CHECK_FALSE(work.Files().contains("Project1.forms/frmPerson.json"));
    work.Answer(Command::UndoLastUpdate, "Undo");
    CHECK(work.Files().at("Project1.forms/frmPerson.json") == before.at("Project1.forms/frmPerson.json"));
    REQUIRE(work.Window.Tree().Choose("frmPerson"));
    CHECK(work.Spoken() == spoken);
  }
}

TEST_CASE(
    "What other programs do to a project while a form of it is looked at and updated is told, and nothing is lost") {
  KeptWindow work;
  work.ChangeBoth();
  work.Open();
  const std::string form = ReadFile(work.Form());
  std::filesystem::remove(NativePath(work.Form()));
  work.Press(Qt::Key_F5, Qt::NoModifier);
  CHECK(Has(work.Window.Page().ShowInstead().Text().toStdString(), "frmPerson.frm"));
  WriteFile(work.Form(), form);
  work.Press(Qt::Key_F5, Qt::NoModifier);
  work.Update([](UpdateView&, QTreeWidget&) { Strike(Qt::Key_U, Qt::AltModifier); });
  CHECK(work.Window.isWindowModified());
  work.Edit(work.Project, "Form=frmPerson.frm\r\n", "");  // as another branch has it
  std::filesystem::remove(NativePath(work.Form()));
  std::filesystem::remove_all(NativePath(work.Kept));
  const auto files = work.Files();
  CHECK(work.Answer(Command::SaveProject, "Reload") ==
        "Project1.vbp uses a file that another program has changed. Nothing was written.");
  CHECK(work.Files() == files);
  CHECK_FALSE(work.Window.isWindowModified());
  CHECK_FALSE(work.Window.Tree().Choose("frmPerson"));
}

TEST_CASE("A form of the wizard is kept when it is saved, unless that is not wanted") {
  for (const bool isWanted : {true, false}) {
    CAPTURE(isWanted);
    DesktopFixture desktop;
    desktop.Window->Commands()[Command::KeepNewForms].setChecked(isWanted);
    for (int form = 0; form < 2; ++form) {  // one that the project had, and a new one
      MakePersonForm(desktop);
    }
    desktop.Save();
    const auto files = FilesIn(desktop.Home);
    CHECK(files.contains("Project1.forms/frmPerson.json") == isWanted);
    if (!isWanted) continue;
    CHECK(files.at("Project1.forms/frmPerson.frm") == files.at("frmPerson.frm"));
    const Outcome status =
        RunHere({"status", "--project", desktop.Home + "/Project1.vbp", "--dictionary", desktop.Folder / "d.sqlite"});
    CHECK_MESSAGE(status.Out.starts_with("frmPerson: unchanged\nfrmPerson2: edited\n  tab order "), status.Out);
    CHECK(std::ranges::count(status.Out, '\n') == 3);
  }
}
