// The preview beside the wizard, in real windows: what it shows is what comes out.
#include "apps/desktop/preview/WizardPreview.h"
#include "tests/apps/desktop/Nameless.h"
#include "tests/apps/desktop/Users.h"

#include <QCloseEvent>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenu>

using namespace formwizard;
using namespace formwizard::apps::desktop;
using namespace formwizard::tests;

namespace {

// The environment over a copy of a sample project, without the main window.
struct PreviewFixture {
  TemporaryFolder Folder;
  QMainWindow Window;
  QMenu AddIns;
  std::unique_ptr<Environment> Ide;
  MouseUser User;

  explicit PreviewFixture(const std::string& toolbox = SourceFolder() + "/samples/toolbox.ini") {
    CopySample("new-project", Folder / "project");
    std::ifstream in(SourceFolder() + "/samples/dictionary.json");
    apps::common::ImportDictionary(in, "dictionary.json", Folder / "d.sqlite");
    Window.resize(300, 200);
    Window.show();
    Ide = std::make_unique<Environment>(Window, AddIns, EnvironmentOptions{Folder / "outility.ini", "ENU", toolbox});
    Ide->OpenProject(Folder / "project/Project1.vbp", apps::desktop::Environment::UsualCodePage);
    Ide->OpenDictionary(Folder / "d.sqlite");
  }

  WizardPreview& Preview() { return Ide->Preview(); }
  // Opens the wizard, goes to its properties and lets somebody use it, who has to close it.
  void UseWizard(const std::function<void()>& use) {
    DesktopFixture::WhenShown([&] {
      CHECK_FALSE(IsSeen());
      User.Press(WizardDesign().cmdNext);
      User.GoOnWith(WizardDesign().tvwConnection, "Samples");
      CHECK_FALSE(IsSeen());
      User.GoOnWith(WizardDesign().tvwClasses, "Person");
      use();
    });
    Ide->OpenWizard();
    CHECK_FALSE(Preview().Window());
  }
  void Take(const char* property) {
    User.Take(WizardDesign().tvwAttributes, property, "", WizardDesign().cmdSelectOne);
  }
  bool IsSeen() {
    QApplication::processEvents();
    CHECK(QTest::qWaitFor([this] { return !Preview().IsDue(); }));
    return Preview().Window() && Preview().Window()->isVisible();
  }
  FormCanvas& Canvas() { return Preview().Window()->View().Canvas(); }
  std::string Notes() {
    CHECK(IsSeen());
    return Preview().Window()->Notes().join('|').toStdString();
  }
  // The captions of the labels in front of the fields.
  std::string Captions() {
    CHECK(IsSeen());
    std::string captions;
    for (const PlacedNode& place : Canvas().Places()) {
      if (place.Node->Name.starts_with("lbl")) captions += place.Node->Text("Caption") + " ";
    }
    return captions;
  }
};

void AppendText(const adapters::vb6files::FormNode& node, std::string& text) {
  text += node.Class + " " + node.Name + "\n";
  for (const auto& property : node.Properties) text += property.Name + "=" + property.Value + "\n";
  for (const auto& child : node.Children) AppendText(child, text);
}

}  // namespace

TEST_CASE("After each choice the preview shows the form that comes out, and changes nothing of it") {
  PreviewFixture wizard;
  std::string previewed;
  wizard.UseWizard([&] {
    CHECK(wizard.IsSeen());
    CHECK_FALSE(wizard.Canvas().Form());
    CHECK(QApplication::activeWindow() == QApplication::activeModalWidget());
    wizard.Take("Age");
    CHECK(wizard.Captions() == "Age ");
    CHECK(wizard.Notes() ==
          "Name is required by the class and is not on the form.|SSN is required by the class and is not on the "
          "form.|The query control comes from toolbox.ini.");
    wizard.Take("*Name");
    CHECK(wizard.Captions() == "Age Name ");
    CHECK(Nameless(*wizard.Preview().Window()) == "");
    wizard.User.Press(WizardDesign().cmdNext);
    CHECK(wizard.Canvas().Places()[wizard.Canvas().Selected()].Node->Name == "conAge");
    wizard.Preview().Window()->View().SetScale(2);
    wizard.User.TypeOver(WizardDesign().txtCaption[0], "Years");
    CHECK(wizard.Captions() == "Years Name ");
    CHECK(wizard.Preview().Window()->View().Scale() == 2);

    // Finish would take the list as it was here before: the new field comes with Next.
    wizard.User.Press(WizardDesign().cmdBack);
    wizard.Take("*SSN");
    CHECK(wizard.Captions() == "Years Name Social Security No. ");
    CHECK(wizard.Notes().starts_with("Finish makes the form as it was before"));
    wizard.User.Press(WizardDesign().cmdNext);
    CHECK(wizard.Notes() == "The query control comes from toolbox.ini.");

    // What no form can be made of is said; the last one stays.
    auto* caption = Find<QLineEdit>(WizardDesign().txtCaption[0]);
    caption->setFocus();
    caption->selectAll();
    caption->insert(QString::fromUtf8("名"));
    CHECK(wizard.Notes().starts_with("This is the form as it was before: "));
    CHECK(Has(wizard.Notes(), "名"));
    CHECK(wizard.Captions() == "Years Name Social Security No. ");
    wizard.User.TypeOver(WizardDesign().txtCaption[0], "Age now");
    CHECK(wizard.Captions() == "Age now Name Social Security No. ");
    AppendText(*wizard.Canvas().Form(), previewed);
    wizard.User.Press(WizardDesign().cmdFinish);
  });
  adapters::vb6files::ProjectOnDisk& project = *wizard.Ide->Project();
  const std::string name = wizard.Ide->NewComponentName();
  const auto files = project.TextsOf(name);
  std::string made;
  AppendText(adapters::vb6files::ReadFormTree(name, files.Frm, files.Frx, project.ProjectCodePage()).Form, made);
  CHECK(previewed == made);
}

TEST_CASE("The preview is seen where it is wanted, and says what the form will lack or why there is none") {
  PreviewFixture wizard("");
  const auto cancel = [] { QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Escape); };
  bool wasClosed = false;
  wizard.Preview().OnClosed = [&] { wasClosed = true; };
  wizard.UseWizard([&] {
    wizard.Take("Notes");
    CHECK(Has(wizard.Notes(), "OSTRELQUERY"));
    wizard.User.Press(WizardDesign().cmdNext);
    wizard.User.TypeOver(WizardDesign().txtRowHeight[4], "9999");  // no column holds them
    CHECK(Has(wizard.Notes(), "Overflow"));
    wizard.User.TypeOver(WizardDesign().txtRowHeight[4], "2");
    wizard.User.Press(WizardDesign().cmdBack);
    wizard.Preview().Window()->close();
    CHECK(wasClosed);
    wizard.Take("*Name");
    CHECK_FALSE(wizard.IsSeen());
    wizard.Preview().SetWanted(true);
    CHECK(wizard.Captions() == "Notes Name ");
    wizard.Preview().SetWanted(false);
    CHECK_FALSE(wizard.IsSeen());
    cancel();
  });
}

TEST_CASE("The preview stands right of the wizard, else left, else below, and nowhere where it would be too small") {
  struct Case {
    QRect dialog, screen, place;  // null for none
  };
  const QRect wide(0, 0, 1920, 1080), small(0, 0, 800, 600);
  for (const Case& c :
       {Case{{100, 100, 640, 430}, wide, {748, 100, 640, 400}}, Case{{1200, 100, 640, 430}, wide, {552, 100, 640, 400}},
        Case{{80, 50, 640, 430}, {0, 0, 800, 1000}, {80, 488, 640, 450}}, Case{{80, 50, 640, 430}, small, {}},
        Case{{0, 0, 470, 430}, small, {478, 0, 322, 400}}}) {
    CAPTURE(c.dialog.x());
    QWidget dialog;
    PreviewWindow preview(dialog, {});
    CHECK(preview.PlaceBeside(c.dialog, c.screen) == !c.place.isNull());
    if (!c.place.isNull()) CHECK(preview.geometry() == c.place);
  }
  // Where the screen is wide enough for both, the wizard opens further left.
  const QRect middle(225, 180, 830, 490);
  CHECK(PreviewWindow::PlaceOfDialog(middle, {0, 0, 1280, 900}) == QPoint(8, 180));
  CHECK_FALSE(PreviewWindow::PlaceOfDialog(middle, {0, 0, 1100, 900}));
  CHECK_FALSE(PreviewWindow::PlaceOfDialog(middle, wide));
}
