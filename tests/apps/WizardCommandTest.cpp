// The command that opens the native dialogs over the files of a project, used by keyboard.
#include "apps/common/Dictionaries.h"
#include "tests/adapters/win32/User.h"
#include "tests/support/BuildTree.h"
#include "tests/support/Golden.h"
#include "tests/support/RunHere.h"
#include "tests/support/SampleDictionary.h"

#include <doctest/doctest.h>

using namespace formwizard;
using namespace formwizard::tests;

namespace {

const std::string Sample = SourceFolder() + "/samples/new-project";

struct Place {
  TemporaryFolder Folder;
  std::string Home = Folder / "項目", Project = Home + "/Project1.vbp", Profile = Folder / "outility.ini";

  Place() {
    CopySample("new-project", Home);
    OpenSampleDictionary(Folder);
  }
  auto Files() const { return FilesIn(NativePath(Home)); }

  Outcome Use(const std::vector<std::string>& options, const std::function<void()>& work) const {
    std::vector<std::string> arguments{"wizard",       "--project",         Project,
                                       "--dictionary", Folder / "d.sqlite", "--profile",
                                       Profile,        "--toolbox",         SourceFolder() + "/samples/toolbox.ini"};
    arguments.insert(arguments.end(), options.begin(), options.end());
    Outcome outcome;
    UseWindows([&] { outcome = RunHere(arguments); }, work);
    return outcome;
  }
};

// Up to the step of the properties, with one of them selected.
void Choose() {
  KeyboardUser user;
  const auto& dialog = WizardDesign();
  user.PressAccessKeyOf(dialog.cmdNext);
  user.GoOnWith(dialog.tvwConnection, "Samples");
  user.GoOnWith(dialog.tvwClasses, "Person");
  user.Take(dialog.tvwAttributes, "Age", "", dialog.cmdSelectOne);
}

void MakeForm() {
  Choose();
  PressAccessKey('F');
}

}  // namespace

TEST_CASE("A form made in the dialogs is saved and told of, a cancelled one leaves the project as it was") {
  const Place place;
  const auto before = place.Files();
  const std::string journal = place.Folder / "journal", frm = place.Home + "/frmPerson.frm\n";
  const Outcome cancelled = place.Use({"--journal", journal}, [] {
    Choose();
    Press(VK_ESCAPE);
  });
  CHECK(cancelled.Status == 1);
  CHECK(cancelled.Out.empty());
  CHECK(cancelled.Error == "ostrel-form-wizard: " + place.Project + ": no form was made; the project is as it was\n");
  CHECK(ReadFile(journal).empty());
  CHECK(ReadFile(place.Profile).find("LastConnect=Samples") != std::string::npos);

  const Outcome tried = place.Use({"--journal", journal, "--dry-run"}, MakeForm);
  CHECK(tried.Status == 0);
  CHECK(tried.Out ==
        "would write " + frm + "frmPerson: 1 fields of Sample.Person\nwould write " + place.Project + "\n");
  CHECK(ReadFile(journal).starts_with("{\"call\":\"AddToolboxProgID\""));
  CHECK(place.Files() == before);

  const Outcome made = place.Use({}, [] {
    KeyboardUser user;
    PassThroughWizard(user, [](int) {});
    Press(VK_RETURN);
  });
  CHECK(made.Status == 0);
  CHECK(made.Error.empty());
  CHECK(made.Out == "wrote " + frm + "wrote " + place.Home +
                        "/frmPerson.frx\nfrmPerson: 5 fields of Sample.Person\nwrote " + place.Project + "\n");
  CheckSameFiles(place.Files(), FilesIn(SourceFolder() + "/tests/golden/addin-project"));
}

TEST_CASE("What keeps the project from being opened or saved, and a note on it, is said in a box and on the console") {
  const Place place;
  auto files = place.Files();
  WriteFile(place.Home + "/Form1.frm", files["Form1.frm"] += "Sub Form_Load()\r\nEnd Sub\r\n");
  const auto editProject = [&] {
    Choose();
    WriteFile(place.Project, files["Project1.vbp"] += "' another program\r\n");
    PressAccessKey('F');
  };
  struct Case {
    std::vector<std::string> Options;
    std::function<void()> Work;
    int Status;
    std::string Begin;
  };
  for (const Case& c :
       {Case{{"--code-page", "1"}, [] {}, 3, "code page"}, Case{{}, editProject, 4, place.Project + ": "},
        Case{{}, MakeForm, 0, "note: frmPerson was the form Form1"}}) {
    CAPTURE(c.Status);
    std::string said;
    const Outcome outcome = place.Use(c.Options, [&] {
      c.Work();
      said = DismissMessage();
    });
    CHECK(outcome.Status == c.Status);
    CHECK(outcome.Error.starts_with("ostrel-form-wizard: " + c.Begin));
    CHECK(outcome.Error.ends_with(said.substr(said.find(':') + 2) + "\n"));
    CHECK((c.Status == 0 || place.Files() == files));
  }
}
