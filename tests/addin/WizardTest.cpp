#include "addin/Wizard.h"

#include "resources/Bitmaps.h"
#include "tests/support/FakeApplication.h"
#include "tests/support/FakeDesktop.h"
#include "tests/support/FakeLibraries.h"
#include "tests/support/FakeProfile.h"
#include "tests/support/FakeServer.h"

#include <doctest/doctest.h>

using namespace formwizard;
using namespace formwizard::tests;
using addin::ConnectMode;

namespace {

class WideCharacters : public ui::TextMeasure {
 public:
  double WidthOf(std::string_view) const override { return Width; }
  double Width = 120;
};

struct AddInFixture {
  explicit AddInFixture(const std::string& version = "6.00", int menus = 12) : Environment(version, menus) {
    Desktop.OnShowModal = [this](ui::Form& form) {
      CHECK(AddIn.FormDisplayed);
      form.Load();
      auto& dialog = dynamic_cast<wizard::frmWizard&>(form);
      Shown += Text(dialog.CurrentStep());
      NextCaption = dialog.cmdNext.Caption.Get();
      dialog.cmdNext.Click();
      dialog.Close();
    };
  }

  FakeApplication Environment;
  FakeDesktop Desktop;
  WideCharacters Measure;
  FakeProfile Profile;
  FakeServer Server;
  FakeLibraries Libraries;
  support::Strings Strings{Libraries, "/addin/"};
  support::Localization Localization{Strings, Libraries};
  wizard::AddInState State;
  FakeClipboard Clipboard{Environment.Project.Transcript};
  std::string Shown;  // the first step of each dialog
  std::string NextCaption;
  addin::Wizard AddIn{{Desktop, Measure, Profile, "outility.ini", Server, Strings, Localization, "", State}, Clipboard};

  tests::Transcript& Transcript() { return Environment.Project.Transcript; }
  // The new command, behind the others of the Add-Ins menu.
  FakeCommand& Command(int menu = 11) { return *Environment.Menu(menu).Items.back(); }
};

}  // namespace

TEST_CASE("The command stands on the Add-Ins menu, which the version tells, with its face from the clipboard") {
  for (const auto& [version, menu] : {std::pair{"6.00", 11}, std::pair{"5.00", 9}, std::pair{"6.0", 9}}) {
    CAPTURE(version);
    AddInFixture fixture(version);
    fixture.AddIn.IDTExtensibility_OnConnection(fixture.Environment, ConnectMode::Startup);
    CHECK(fixture.Transcript().Joined() ==
          "Add 1 to menu " + std::to_string(menu) +
              "\nCaption = Ostrel Form Wizard\nOnAction = hello\nClipboard\nPasteFace\n"
              "ConnectEvents\n");
    const auto face = resources::Bitmap(9999);
    CHECK(face.size() > 54);  // more than the headers of a bitmap file
    CHECK(std::ranges::equal(fixture.Clipboard.Picture, face));
    CHECK(fixture.AddIn.VBInstance == &fixture.Environment);
    CHECK(fixture.Shown.empty());
  }
}

TEST_CASE("The command starts a group when the last command before it does and the one before that does not") {
  for (const auto& [groups, starts] :
       {std::pair{"", false}, std::pair{"-", false}, std::pair{"--", false}, std::pair{"-|", true},
        std::pair{"||", false}, std::pair{"|-", false}, std::pair{"|-|", true}}) {
    CAPTURE(groups);
    AddInFixture fixture;
    for (const char c : std::string(groups)) fixture.Environment.Menu(11).Append(c == '|');
    fixture.AddIn.IDTExtensibility_OnConnection(fixture.Environment, ConnectMode::AfterStartup);
    CHECK(fixture.Command().BeginsGroup == starts);
    CHECK(fixture.Transcript().Has("PasteFace"));
  }
}

TEST_CASE("Each click shows a fresh wizard, until the add-in is disconnected") {
  AddInFixture fixture;
  fixture.Libraries.Texts = {{52, "&Weiter >"}};
  fixture.Environment.Menu(11).Append();
  fixture.AddIn.IDTExtensibility_OnConnection(fixture.Environment, ConnectMode::AfterStartup);
  const auto command = fixture.Environment.Menu(11).Items.back();
  CHECK_FALSE(fixture.Environment.Click(*fixture.Environment.Menu(11).Items.front()));
  CHECK(fixture.Environment.Click(*command));
  CHECK(fixture.Environment.Click(*command));
  CHECK(fixture.Shown == "11");
  CHECK_FALSE(fixture.AddIn.FormDisplayed);
  CHECK_FALSE(fixture.Environment.Handled);
  CHECK(fixture.Environment.CancelDefault);
  CHECK(fixture.Libraries.Paths.back() == "/addin/OstrelFormWizardDEU.dll");
  CHECK(fixture.NextCaption == "&Weiter >");

  fixture.AddIn.IDTExtensibility_OnDisconnection();
  CHECK(fixture.Environment.Menu(11).Items.size() == 1);
  CHECK_FALSE(fixture.Environment.Click(*command));
  fixture.AddIn.IDTExtensibility_OnDisconnection();
  CHECK(std::ranges::count(fixture.Transcript().Calls, "Delete") == 1);
  CHECK(fixture.Desktop.Messages.empty());
}

TEST_CASE("Connected by another program the wizard opens at once and leaves the menus alone") {
  AddInFixture fixture;
  fixture.AddIn.IDTExtensibility_OnConnection(fixture.Environment, ConnectMode::External);
  CHECK(fixture.Shown == "1");
  CHECK(fixture.Transcript().Calls.empty());
  fixture.Measure.Width = 6000;  // six of them are more than 16 bits hold
  fixture.AddIn.IDTExtensibility_OnConnection(fixture.Environment, ConnectMode::External);
  CHECK(fixture.Shown == "1");
  fixture.AddIn.IDTExtensibility_OnDisconnection();
  CHECK(fixture.Desktop.Messages.empty());
}

TEST_CASE("What the environment refuses is passed over in silence") {
  for (const bool null : {false, true}) {
    AddInFixture fixture("6.00", 10);  // no Add-Ins menu
    fixture.Environment.MenuBar->NullOutside = null;
    fixture.AddIn.IDTExtensibility_OnConnection(fixture.Environment, ConnectMode::Startup);
    fixture.AddIn.IDTExtensibility_OnDisconnection();
    CHECK(fixture.Transcript().Calls.empty());
    CHECK(fixture.Desktop.Messages.empty());
  }
  struct Case {
    std::string Refused, Last;  // the last call that was tried
    bool Listens;
  };
  for (const Case& c : {Case{"Add 1", "Add 1 to menu 11", false}, Case{"OnAction", "OnAction = hello", false},
                        Case{"Clipboard", "Clipboard", false}, Case{"PasteFace", "PasteFace", false},
                        Case{"ConnectEvents", "Delete", false}, Case{"Delete", "Delete", true}}) {
    CAPTURE(c.Refused);
    AddInFixture fixture;
    fixture.Transcript().Refuse[c.Refused] = runtime::AutomationError;
    fixture.AddIn.IDTExtensibility_OnConnection(fixture.Environment, ConnectMode::Startup);
    const auto& commands = fixture.Environment.Menu(11).Items;
    CHECK((!commands.empty() && fixture.Environment.Click(*commands.back())) == c.Listens);
    fixture.AddIn.IDTExtensibility_OnDisconnection();
    CHECK(fixture.Transcript().Calls.back() == c.Last);
    CHECK((!commands.empty() && fixture.Environment.Click(*commands.back())) == false);
    CHECK(fixture.Desktop.Messages.empty());
  }
}

TEST_CASE("A wizard that cannot be loaded says so on the click, and the next click tries again") {
  AddInFixture fixture;
  fixture.AddIn.IDTExtensibility_OnConnection(fixture.Environment, ConnectMode::Startup);
  fixture.Measure.Width = 6000;
  fixture.Environment.Click(fixture.Command());
  REQUIRE(fixture.Desktop.Messages.size() == 1);
  CHECK(fixture.Desktop.Messages[0].Text == "Run-time error '6':\n\nOverflow");
  CHECK(fixture.Desktop.Messages[0].Title == "Ostrel Form Wizard");
  CHECK_FALSE(fixture.AddIn.FormDisplayed);
  fixture.Measure.Width = 120;
  fixture.Environment.Click(fixture.Command());
  CHECK(fixture.Shown == "1");
}
