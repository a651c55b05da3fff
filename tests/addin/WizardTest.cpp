#include "addin/Wizard.h"

#include "generator/ide/CommandBars.h"
#include "resources/Bitmaps.h"
#include "tests/support/FakeDesktop.h"
#include "tests/support/FakeLibraries.h"
#include "tests/support/FakeProfile.h"
#include "tests/support/FakeServer.h"

using namespace formwizard;
using namespace formwizard::tests;
using addin::ConnectMode;
namespace ide = generator::ide;
using runtime::Int32;

namespace {

// What was done, a line each, before it was done. A line that holds `Refused` is an error instead.
struct Transcript {
  std::string Lines, Last, Refused = "\n";

  void Note(const std::string& line) {
    Last = line;
    Lines += line + "\n";
    if (line.find(Refused) != std::string::npos) runtime::Raise(runtime::AutomationError, "refused");
  }
};

// A command, or a menu with what stands on it.
class Entry : public ide::CommandBarControl,
              public ide::CommandBarControls,
              public std::enable_shared_from_this<Entry> {
 public:
  Entry(Transcript& transcript, std::string name, Entry* owner = nullptr, bool beginsGroup = false)
      : BeginsGroup(beginsGroup), transcript_(transcript), name_(std::move(name)), owner_(owner) {}

  std::shared_ptr<ide::CommandBarControls> Controls() override { return shared_from_this(); }
  bool BeginGroup() const override { return BeginsGroup; }
  void SetBeginGroup(bool value) override {
    transcript_.Note(std::string("BeginGroup = ") + (value ? "True" : "False"));
    BeginsGroup = value;
  }
  void SetCaption(std::string_view caption) override { transcript_.Note("Caption = " + std::string(caption)); }
  void SetOnAction(std::string_view action) override { transcript_.Note("OnAction = " + std::string(action)); }
  void PasteFace() override { transcript_.Note("PasteFace"); }
  void Delete() override {
    transcript_.Note("Delete");
    std::erase(owner_->Items, shared_from_this());
  }

  Int32 Count() const override { return Int32(Items.size()); }
  std::shared_ptr<ide::CommandBarControl> Item(Int32 index) override {
    if (index >= Int32(1) && index <= Count()) return Items[static_cast<std::size_t>(index.Value()) - 1];
    if (NullOutside) return nullptr;
    runtime::Raise(runtime::InvalidProcedureCall);
  }
  std::shared_ptr<ide::CommandBarControl> Add(ide::CommandBarControlType type) override {
    transcript_.Note("Add " + std::to_string(static_cast<int>(type)) + " to " + name_);
    return Append();
  }
  std::shared_ptr<Entry> Append(const std::string& name = "", bool beginsGroup = false) {
    return Items.emplace_back(std::make_shared<Entry>(transcript_, name, this, beginsGroup));
  }

  std::vector<std::shared_ptr<Entry>> Items;
  bool BeginsGroup, NullOutside = false;

 private:
  Transcript& transcript_;
  std::string name_;
  Entry* owner_;
};

// The running environment with its menus, without a project.
class FakeApplication : public ide::Application, public Transcript {
 public:
  FakeApplication(std::string version, int menus) : version_(std::move(version)) {
    for (int i = 1; i <= menus; ++i) MenuBar->Append("menu " + std::to_string(i));
  }

  ide::VBProject& ActiveVBProject() override { runtime::Raise(runtime::ObjectVariableNotSet); }
  std::string Version() const override { return version_; }
  std::shared_ptr<ide::CommandBarControls> CommandBar(Int32 index) override {
    if (index != Int32(1)) runtime::Raise(runtime::InvalidProcedureCall);
    return MenuBar;
  }
  std::unique_ptr<ide::CommandBarEvents> ConnectEvents(const std::shared_ptr<ide::CommandBarControl>& control,
                                                       ide::CommandBarEvents::Click onClick) override {
    Note("ConnectEvents");
    clicked_ = control.get();
    auto listener = std::make_shared<ide::CommandBarEvents::Click>(std::move(onClick));
    listener_ = listener;
    struct Events : ide::CommandBarEvents {
      explicit Events(std::shared_ptr<Click> kept) : Kept(std::move(kept)) {}
      std::shared_ptr<Click> Kept;
    };
    return std::make_unique<Events>(std::move(listener));
  }

  // Those of a menu of the menu bar, counted from 1.
  Entry& Menu(int index) { return *MenuBar->Items.at(static_cast<std::size_t>(index) - 1); }
  // What a user does. False when nobody listens to the control.
  bool Click(ide::CommandBarControl& control) {
    const auto listener = listener_.lock();
    if (!listener || clicked_ != &control) return false;
    (*listener)(control, Handled, CancelDefault);
    return true;
  }

  std::shared_ptr<Entry> MenuBar = std::make_shared<Entry>(*this, "menu bar");
  bool Handled = false, CancelDefault = true;  // as the last click left them

 private:
  std::string version_;
  ide::CommandBarControl* clicked_ = nullptr;
  std::weak_ptr<ide::CommandBarEvents::Click> listener_;
};

class WideCharacters : public ui::TextMeasure {
 public:
  double WidthOf(std::string_view) const override { return Width; }
  double Width = 120;
};

struct AddInFixture : ui::Clipboard {
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
  std::string Shown;  // the first step of each dialog, with the text of its button Next
  addin::Wizard AddIn{{.Desktop = Desktop,
                       .Measure = Measure,
                       .Profiles = Profile,
                       .Factories = Server,
                       .Libraries = Libraries,
                       .ProgramFolder = "/addin/"},
                      *this};
  std::span<const std::byte> Picture;  // on the clipboard
  bool ClipboardIsBusy = false;

  bool LendPicture(std::span<const std::byte> bitmap, const std::function<void()>& use) override {
    Environment.Note("Clipboard");
    Picture = bitmap;
    if (!ClipboardIsBusy) use();
    return !ClipboardIsBusy;
  }

  void Connect(ConnectMode mode = ConnectMode::Startup) { AddIn.IDTExtensibility_OnConnection(Environment, mode); }
  void Disconnect() { AddIn.IDTExtensibility_OnDisconnection(); }
  // A click on the last command of the Add-Ins menu. False when nobody listens to it.
  bool Click() {
    const auto& commands = Environment.Menu(11).Items;
    return !commands.empty() && Environment.Click(*commands.back());
  }
};

}  // namespace

TEST_CASE(
    "The command stands on the Add-Ins menu, which the version tells, with its face unless the clipboard is busy") {
  for (const auto& [version, menu] : {std::pair{"6.00", "11"}, std::pair{"5.00", "9"}, std::pair{"6.0", "9"}}) {
    CAPTURE(std::string(version));
    AddInFixture fixture(version);
    fixture.Connect();
    CHECK(fixture.Environment.Lines ==
          "Add 1 to menu " + std::string(menu) +
              "\nCaption = Ostrel Form Wizard\nOnAction = hello\nClipboard\nPasteFace\nConnectEvents\n");
    CHECK(std::ranges::equal(fixture.Picture, resources::Bitmap(9999)));
    CHECK(fixture.Shown.empty());
  }
  AddInFixture busy;
  busy.ClipboardIsBusy = true;
  busy.Connect();
  CHECK(busy.Environment.Lines.ends_with("Clipboard\nConnectEvents\n"));
  CHECK(busy.Click());
}

TEST_CASE("The command starts a group when the last command before it does and the one before that does not") {
  for (const auto& [groups, starts] : {std::pair{"", false}, std::pair{"--", false}, std::pair{"-|", true},
                                       std::pair{"||", false}, std::pair{"|-", false}, std::pair{"|-|", true}}) {
    CAPTURE(std::string(groups));
    AddInFixture fixture;
    for (const char c : std::string(groups)) fixture.Environment.Menu(11).Append("", c == '|');
    fixture.Connect(ConnectMode::AfterStartup);
    CHECK(fixture.Environment.Menu(11).Items.back()->BeginsGroup == starts);
    CHECK(Has(fixture.Environment.Lines, "PasteFace\n"));
  }
}

TEST_CASE_FIXTURE(AddInFixture, "Each click shows a fresh wizard, until the add-in is disconnected") {
  Libraries.Texts = {{52, "&Weiter >"}};
  Environment.Menu(11).Append();
  for (int i = 0; i < 2; ++i) Connect();  // for two entries in the environment's lists
  CHECK(Environment.Menu(11).Items.size() == 2);
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
  CHECK(Environment.Lines.find("Delete") == Environment.Lines.rfind("Delete"));
  CHECK(Desktop.Texts().empty());
}

TEST_CASE_FIXTURE(AddInFixture, "Connected by another program the wizard opens at once and leaves the menus alone") {
  for (const double width : {120, 6000}) {  // six of the second are more than 16 bits hold
    Measure.Width = width;
    Connect(ConnectMode::External);
  }
  Disconnect();
  CHECK(Shown == "1&Next >, ");
  CHECK(Environment.Lines.empty());
  CHECK(Desktop.Texts().empty());
}

TEST_CASE("An environment without an Add-Ins menu is left alone") {
  for (const bool null : {false, true}) {
    AddInFixture fixture("6.00", 10);
    fixture.Environment.MenuBar->NullOutside = null;
    fixture.Connect();
    fixture.Disconnect();
    CHECK(fixture.Environment.Lines.empty());
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
    fixture.Environment.Refused = c.refused;
    fixture.Connect();
    CHECK(fixture.Click() == c.listens);
    fixture.Disconnect();
    CHECK(fixture.Environment.Last == c.last);
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
