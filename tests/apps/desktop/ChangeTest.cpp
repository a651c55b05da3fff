// "Change Form...": a kept form by other choices, in real windows and by keyboard.
#include "apps/desktop/basics/Messages.h"
#include "apps/desktop/update/UpdateView.h"
#include "tests/apps/desktop/FreshDesktop.h"
#include "tests/apps/desktop/Nameless.h"
#include "tests/apps/desktop/Users.h"
#include "tests/support/RunProgram.h"

#include <QMessageBox>
#include <QSpinBox>
#include <QTextDocument>
#include <QTreeWidgetItemIterator>

using namespace formwizard;
using namespace formwizard::apps::desktop;
using namespace formwizard::tests;
using adapters::qt::Text;

namespace {

const std::string Program = "ostrel-form-wizard";

// A project with a kept form, in which a line was written by hand.
struct KeptDesktop : DesktopFixture {
  KeyboardUser User;
  std::string Form = Home + "/frmPerson.frm", Kept = Home + "/Project1.forms/frmPerson";
  std::string SaveSub = "Private Sub actionSave()\r\n", Guard = "    If txtName.Text = \"\" Then Exit Sub\r\n";

  KeptDesktop() : DesktopFixture("ENU") {
    WriteFile(Folder / "form.json", R"({"class":"Sample.Person","settings":{"Columns":2},"fields":["Name",
      {"property":"Notes","rows":4},{"property":"Spouse.Name","combo":{"query":"ByName","column":"Name"}}]})");
    Run("generate", " --keep --toolbox '" + SourceFolder() + "/samples/toolbox.ini' form.json");
    Run("generate", " --class Sample.Company --fields Name --toolbox '" + SourceFolder() + "/samples/toolbox.ini'");
    Edit(Form, SaveSub, SaveSub + Guard);
    Reopen();
  }
  Outcome Run(const std::string& command, const std::string& more = "", int status = 0) const {
    const Outcome outcome = RunProgram(
        BuiltProgram(Program), command + " --project project/Project1.vbp --dictionary d.sqlite" + more, Folder);
    CHECK_MESSAGE(outcome.Status == status, outcome.Error);
    return outcome;
  }
  static void Edit(const std::string& file, const std::string& from, const std::string& to) {
    std::string text = ReadFile(file);
    REQUIRE_MESSAGE(Has(text, from), from);
    WriteFile(file, text.replace(text.find(from), from.size(), to));
  }
  void Reopen() const {
    CHECK(Window->OpenProject(Text(Home + "/Project1.vbp")));
    CHECK(Window->Tree().Choose("frmPerson"));
  }
  // The dictionary, with something else in it.
  void OpenOther(const std::string& from, const std::string& to) const {
    std::string json = ReadFile(SourceFolder() + "/samples/dictionary.json");
    for (std::size_t at = json.find(from); at != std::string::npos; at = json.find(from, at + to.size())) {
      json.replace(at, from.size(), to);
    }
    std::istringstream in(json);
    apps::common::ImportDictionary(in, "dictionary.json", Folder / "other.sqlite", true);
    CHECK(Window->OpenDictionary(Text(Folder / "other.sqlite")));
  }
  std::map<std::string, std::string> Files() const { return FilesIn(NativePath(Home)); }
  bool IsEnabled() const { return Window->Commands()[Command::ChangeForm].isEnabled(); }

  void Press() const {
    Window->activateWindow();
    WaitForFocus();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_E, Qt::ControlModifier);
    QApplication::processEvents();
  }
  // Looked at again and again, because a wizard that goes on its way by itself hears of no user.
  static void When(const std::function<bool()>& isShown, const std::function<void()>& use, int tries = 2000) {
    QTimer::singleShot(5, [=] {
      auto* window = qobject_cast<QDialog*>(QApplication::activeModalWidget());
      if (window && isShown()) {
        WaitForFocus();
        use();
      } else if (tries > 0) {
        When(isShown, use, tries - 1);
      } else {
        FAIL_CHECK("another window than expected");
        if (window) window->done(0);
      }
    });
  }
  // Once the wizard stands at the Attributes step with so many fields.
  static void AtAttributes(int fields, const std::function<void()>& use) {
    When([fields] { return IsAtAttributes(fields); }, use);
  }
  // Answers the next message; what it says.
  static void Answer(const QString& button, QString& said) {
    const auto box = [] { return qobject_cast<QMessageBox*>(QApplication::activeModalWidget()); };
    When([box] { return box() != nullptr; },
         [box, button, &said] {
           said += box()->text() + "|" + box()->informativeText() + "\n";
           for (const QAbstractButton* each : box()->buttons()) {
             if (each->text().remove('&') != button) continue;
             const auto key = static_cast<Qt::Key>(QKeySequence::mnemonic(each->text())[0].key());
             return QTest::keyClick(box(), key, Qt::AltModifier);
           }
           FAIL_CHECK(button.toStdString());
         });
  }
  // What the update view shows, before a key with Alt ends it; where something is not decided, the new is taken first.
  static void Decide(Qt::Key key, QString& shown) {
    const auto view = [] { return dynamic_cast<UpdateView*>(QApplication::activeModalWidget()); };
    When([view] { return view() != nullptr; },
         [view, key, &shown] {
           CHECK(Nameless(*view()).empty());
           shown += view()->findChild<QLabel*>()->text() + "|";
           for (QTreeWidgetItemIterator it(view()->findChild<QTreeWidget*>()); *it; ++it) shown += (*it)->text(0) + "|";
           for (const auto* box : view()->findChildren<QComboBox*>()) shown += box->currentText() + "|";
           for (const auto* label : view()->findChildren<QLabel*>()) shown += label->text() + "|";
           if (!view()->Forms()[0].IsDecided()) {
             for (const Qt::Key each : {Qt::Key_Down, Qt::Key_Tab, Qt::Key_Down, Qt::Key_Down}) Strike(each);
             CHECK(QTest::qWaitFor([view] { return view()->Forms()[0].IsDecided(); }));
           }
           Strike(key, key == Qt::Key_Escape ? Qt::NoModifier : Qt::AltModifier);
         });
  }
  static void Cancel() { QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Escape); }
};

}  // namespace

TEST_CASE("A kept form is changed by other choices with what was edited in it, and written when it is saved") {
  KeptDesktop desktop;
  const wizard::frmWizard& dialog = WizardDesign();
  const auto before = desktop.Files();
  CHECK(desktop.IsEnabled());
  CHECK(desktop.Window->Tree().Choose("frmCompany"));
  CHECK_FALSE(desktop.IsEnabled());
  CHECK(desktop.Window->Tree().Choose("frmPerson"));

  // As it stands, cancelled or finished, nothing changes.
  QString said;
  desktop.AtAttributes(3, [] { KeptDesktop::Cancel(); });
  desktop.Press();
  desktop.AtAttributes(3, [&] { desktop.User.Press(dialog.cmdFinish); });
  desktop.Press();
  CHECK_FALSE(desktop.Window->isWindowModified());

  const auto choose = [&] {
    desktop.AtAttributes(3, [&] {
      desktop.User.ChooseRow(dialog.lstFields, 2);
      CHECK(Find<QComboBox>(dialog.lstQueryName)->currentText() == "ByName");
      desktop.User.ChooseRow(dialog.lstFields, 1);
      CHECK(Find<QLineEdit>(dialog.txtRowHeight[4])->text() == "4");
      desktop.User.TypeOver(dialog.txtCaption[4], "Remarks");
      desktop.User.Press(dialog.cmdBack);
      desktop.User.Take(dialog.tvwAttributes, "*SSN", "", dialog.cmdSelectOne);
      desktop.User.Press(dialog.cmdNext);
      // First looked at, then chosen once more.
      desktop.Decide(Qt::Key_G, said);
      desktop.AtAttributes(4, [&] {
        desktop.Decide(Qt::Key_U, said);
        desktop.User.Press(dialog.cmdFinish);
      });
      desktop.User.Press(dialog.cmdFinish);
    });
    desktop.Press();
    CHECK(QTest::qWaitFor([&] { return desktop.Window->isWindowModified(); }));
  };
  choose();
  const QString asked = "frmPerson changes by these choices.|Controls (";
  CHECK_MESSAGE(said.count(asked) == 2, said.toStdString());
  for (const char* name : {"|lblNotes|", "|txtSSN|", "|lblSSN|", "|txtSSN_Change|", "|actionSave|"}) {
    CAPTURE(std::string(name));
    CHECK(said.count(name) == 2);
  }
  CHECK(said.indexOf("|txtSSN|") < said.indexOf("|frmPerson|"));  // which only makes room
  CHECK(desktop.Files() == before);
  const auto hasField = [&] {
    return QTest::qWaitFor(
        [&] { return desktop.Window->Code().View().document()->toPlainText().contains("txtSSN_Change"); });
  };
  CHECK(hasField());

  // Before it is saved it goes on from these choices; those of the disk take it back.
  desktop.AtAttributes(4, [&] {
    desktop.User.ChooseRow(dialog.lstFields, 1);
    desktop.User.TypeOver(dialog.txtCaption[4], "Notes");
    desktop.User.Press(dialog.cmdBack);
    desktop.User.ChooseRow(dialog.lstSelected, 3);
    desktop.User.Press(dialog.cmdDeSelectOne);
    desktop.User.Press(dialog.cmdNext);
    desktop.User.Press(dialog.cmdFinish);
  });
  desktop.Press();
  CHECK(QTest::qWaitFor([&] { return !desktop.Window->isWindowModified(); }));
  choose();

  desktop.Save();
  CHECK(Has(ReadFile(desktop.Form), desktop.SaveSub + desktop.Guard));
  CHECK(Has(ReadFile(desktop.Form), "\"Remarks\""));
  const std::string kept = ReadFile(desktop.Kept + ".json");
  CHECK(Has(kept, R"(    "Name",
    { "property": "Notes", "caption": "Remarks", "rows": 4 },
    { "property": "Spouse.Name", "combo": {"query":"ByName","column":"Name"} },
    "SSN" ])"));
  CHECK(Has(kept, "\"Columns\": 2"));
  CHECK(Has(desktop.Run("status").Out, "frmPerson: edited\n"));
}

TEST_CASE("What the choices and the user have changed is decided before a form changes by choices") {
  KeptDesktop desktop;
  KeptDesktop::Edit(desktop.Form, "Caption         =   \"Name\"", "Caption         =   \"Mine\"");
  const auto before = desktop.Files();
  // What was decided is chosen when the user has cancelled, and when other choices were made.
  for (const auto& [end, shows] :
       {std::pair{Qt::Key_Escape, "changes, 1 conflict|"}, {Qt::Key_G, "|Take new|"}, {Qt::Key_U, "|Take new|"}}) {
    QString shown;
    desktop.AtAttributes(3, [&] {
      desktop.User.TypeOver(WizardDesign().txtCaption[0], "Theirs");
      desktop.Decide(end, shown);
      if (end == Qt::Key_G) desktop.AtAttributes(3, [] { KeptDesktop::Cancel(); });
      desktop.User.Press(WizardDesign().cmdFinish);
    });
    desktop.Press();
    CHECK(QTest::qWaitFor([&] { return desktop.Window->isWindowModified() == (end == Qt::Key_U); }));
    CHECK_MESSAGE(shown.startsWith("frmPerson changes by these choices.|To decide (1)|lblName|"), shown.toStdString());
    CHECK_MESSAGE(shown.contains(shows), shown.toStdString());
    CHECK(desktop.Files() == before);
  }
  desktop.Save();
  CHECK(Has(ReadFile(desktop.Form), "\"Theirs\""));
  CHECK(Has(ReadFile(desktop.Form), desktop.Guard));
}

TEST_CASE("What a form cannot be changed by is said, and leaves everything as it is") {
  struct Case {
    std::function<void(KeptDesktop&)> Before;
    std::function<void(KeptDesktop&, QString& said)> Use;  // of the wizard; null where it does not open
    QString Button, Said;
  };
  const auto other = [](const char* from, const char* to) {
    return [=](KeptDesktop& desktop) { desktop.OpenOther(from, to); };
  };
  const wizard::frmWizard& dialog = WizardDesign();
  const std::vector<Case> cases{
      {other("Sample.Person\"", "Sample.Human\""),
       {},
       "Close",
       "other.sqlite has no class Sample.Person.|frmPerson was made"},
      {[](KeptDesktop& desktop) { KeptDesktop::Edit(desktop.Kept + ".frm", "Caption", "caption"); },
       {},
       "OK",
       "is not the form that its description was written for.|Restore both"},
      {[](KeptDesktop& desktop) { std::filesystem::remove(NativePath(desktop.Kept + ".json")); },
       {},
       "OK",
       "frmPerson is not kept"},
      {other("\"Notes\"", "\"Memo\""), [](KeptDesktop&, QString&) { KeptDesktop::Cancel(); }, "OK",
       "Sample.Person no longer offers all that frmPerson was made with.|Left out: Notes\n"},
      {[](KeptDesktop&) {},
       [&](KeptDesktop& desktop, QString& said) {
         desktop.User.Press(dialog.cmdBack);
         desktop.User.Press(dialog.cmdBack);
         desktop.User.GoOnWith(dialog.tvwClasses, "Company");
         desktop.User.Take(dialog.tvwAttributes, "*Name", "", dialog.cmdSelectOne);
         desktop.User.Press(dialog.cmdNext);
         desktop.Answer("Cancel", said);
         desktop.User.Press(dialog.cmdFinish);
       },
       "", "frmPerson was made for Sample.Person and stays a form of that class.|Choose that class again"},
  };
  for (const Case& each : cases) {
    CAPTURE(each.Said.toStdString());
    KeptDesktop desktop;
    each.Before(desktop);
    const auto before = desktop.Files();
    QString said;
    if (each.Use) {
      desktop.AtAttributes(each.Button.isEmpty() ? 3 : 2, [&] { each.Use(desktop, said); });
    }
    if (!each.Button.isEmpty()) desktop.Answer(each.Button, said);
    desktop.Press();
    CHECK(QTest::qWaitFor([] { return !QApplication::activeModalWidget(); }));
    CHECK_MESSAGE(said.contains(each.Said), said.toStdString());
    CHECK_FALSE(desktop.Window->isWindowModified());
    CHECK(desktop.Files() == before);
  }
}
