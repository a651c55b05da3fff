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
      Shown += Text(dialog.CurrentStep()) + dialog.cmdNext.Caption.Get() + ", ";
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
  FakeClipboard Clipboard{Environment.Transcript};
  std::string Shown;  // the first step of each dialog, with the text of its button Next
  addin::Wizard AddIn{{.Desktop = Desktop,
                       .Measure = Measure,
                       .Profiles = Profile,
                       .Factories = Server,
                       .Libraries = Libraries,
                       .ProgramFolder = "/addin/"},
                      Clipboard};

  void Connect(ConnectMode mode = ConnectMode::Startup) { AddIn.IDTExtensibility_OnConnection(Environment, mode); }
  void Disconnect() { AddIn.IDTExtensibility_OnDisconnection(); }
  tests::Transcript& Transcript() { return Environment.Transcript; }
  // A click on the last command of the Add-Ins menu. False when nobody listens to it.
  bool Click() {
    const auto& commands = Environment.Menu(11).Items;
    return !commands.empty() && Environment.Click(*commands.back());
  }
};

}  // namespace

TEST_CASE("The command stands on the Add-Ins menu, which the version tells, with its face from the clipboard") {
  for (const auto& [version, menu] : {std::pair{"6.00", "11"}, std::pair{"5.00", "9"}, std::pair{"6.0", "9"}}) {
    CAPTURE(std::string(version));
    AddInFixture fixture(version);
    fixture.Connect();
    CHECK(fixture.Transcript().Joined() ==
          "Add 1 to menu " + std::string(menu) +
              "\nCaption = Ostrel Form Wizard\nOnAction = hello\nClipboard\nPasteFace\nConnectEvents\n");
    CHECK(std::ranges::equal(fixture.Clipboard.Picture, resources::Bitmap(9999)));
    CHECK(fixture.Shown.empty());
  }
}

TEST_CASE("The command starts a group when the last command before it does and the one before that does not") {
  for (const auto& [groups, starts] : {std::pair{"", false}, std::pair{"--", false}, std::pair{"-|", true},
                                       std::pair{"||", false}, std::pair{"|-", false}, std::pair{"|-|", true}}) {
    CAPTURE(std::string(groups));
    AddInFixture fixture;
    for (const char c : std::string(groups)) fixture.Environment.Menu(11).Append(c == '|');
    fixture.Connect(ConnectMode::AfterStartup);
    CHECK(fixture.Environment.Menu(11).Items.back()->BeginsGroup == starts);
    CHECK(fixture.Transcript().Has("PasteFace"));
  }
}

TEST_CASE_FIXTURE(AddInFixture, "Each click shows a fresh wizard, until the add-in is disconnected") {
  Libraries.Texts = {{52, "&Weiter >"}};
  Environment.Menu(11).Append();
  Connect();
  const auto command = Environment.Menu(11).Items.back();
  CHECK_FALSE(Environment.Click(*Environment.Menu(11).Items.front()));
  CHECK(Click());
  CHECK(Click());
  CHECK(Shown == "1&Weiter >, 1&Weiter >, ");
  CHECK_FALSE(AddIn.FormDisplayed);
  CHECK_FALSE(Environment.Handled);
  CHECK(Environment.CancelDefault);

  for (int i = 0; i < 2; ++i) Disconnect();
  CHECK(Environment.Menu(11).Items.size() == 1);
  CHECK_FALSE(Environment.Click(*command));
  CHECK(std::ranges::count(Transcript().Calls, "Delete") == 1);
  CHECK(Desktop.Texts().empty());
}

TEST_CASE_FIXTURE(AddInFixture, "Connected by another program the wizard opens at once and leaves the menus alone") {
  for (const double width : {120, 6000}) {  // six of the second are more than 16 bits hold
    Measure.Width = width;
    Connect(ConnectMode::External);
  }
  Disconnect();
  CHECK(Shown == "1&Next >, ");
  CHECK(Transcript().Calls.empty());
  CHECK(Desktop.Texts().empty());
}

TEST_CASE("An environment without an Add-Ins menu is left alone") {
  for (const bool null : {false, true}) {
    AddInFixture fixture("6.00", 10);
    fixture.Environment.MenuBar->NullOutside = null;
    fixture.Connect();
    fixture.Disconnect();
    CHECK(fixture.Transcript().Calls.empty());
    CHECK(fixture.Desktop.Texts().empty());
  }
}

TEST_CASE("What the environment refuses is passed over in silence") {
  struct Case {
    std::string refused, last;  // the last call that was tried
    bool listens;
  };
  for (const Case& c :
       {Case{"Add 1", "Add 1 to menu 11", false}, Case{"OnAction", "Delete", false}, Case{"Clipboard", "Delete", false},
        Case{"ConnectEvents", "Delete", false}, Case{"Delete", "Delete", true}}) {
    CAPTURE(c.refused);
    AddInFixture fixture;
    fixture.Transcript().Refuse[c.refused] = runtime::AutomationError;
    fixture.Connect();
    CHECK(fixture.Click() == c.listens);
    fixture.Disconnect();
    CHECK(fixture.Transcript().Calls.back() == c.last);
    CHECK(fixture.Environment.Menu(11).Items.empty() == (c.refused != "Delete"));
    CHECK_FALSE(fixture.Click());
    CHECK(fixture.Desktop.Texts().empty());
  }
}

TEST_CASE_FIXTURE(AddInFixture, "A wizard that cannot be loaded says so on the click, and the next click tries again") {
  Connect();
  Measure.Width = 6000;
  Click();
  CHECK(Desktop.Shown() == "Ostrel Form Wizard[48]: Run-time error '6':\n\nOverflow\n");
  CHECK_FALSE(AddIn.FormDisplayed);
  Measure.Width = 120;
  Click();
  CHECK(Shown == "1&Next >, ");
}
