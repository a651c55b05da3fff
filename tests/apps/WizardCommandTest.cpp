// The command that opens the native dialogs over the files of a project, used by keyboard.
#include "apps/common/Dictionaries.h"
#include "tests/adapters/win32/Anew.h"
#include "tests/adapters/win32/User.h"
#include "tests/support/Golden.h"
#include "tests/support/RunHere.h"
#include "tests/support/SampleDictionary.h"

#include <commctrl.h>

using namespace formwizard;
using namespace formwizard::tests;

namespace {

const std::string Sample = SourceFolder() + "/samples/new-project";

// A project, its dictionary and a profile in one folder.
struct Place {
  std::string Folder, Home = Folder + "/項目", Project = Home + "/Project1.vbp", Profile = Folder + "/outility.ini";

  auto Files() const { return FilesIn(NativePath(Home)); }

  Outcome Use(const std::vector<std::string>& options, const std::function<void()>& work) const {
    std::vector<std::string> arguments{"wizard",       "--project",          Project,
                                       "--dictionary", Folder + "/d.sqlite", "--profile",
                                       Profile,        "--toolbox",          SourceFolder() + "/samples/toolbox.ini"};
    arguments.insert(arguments.end(), options.begin(), options.end());
    Outcome outcome;
    UseWindows([&] { outcome = RunHere(arguments); }, work);
    return outcome;
  }
};

struct NewPlace : TemporaryFolder, Place {
  NewPlace() : Place{Utf8(Path())} {
    CopySample("new-project", Home);
    OpenSampleDictionary(*this);
    WriteFile(Profile, "[OstrelFormWizard]\r\n");
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

void MakeGoldenForm() {
  KeyboardUser user;
  PassThroughWizard(user);
  Press(VK_RETURN);
}

LRESULT CALLBACK DieAtStatus(int code, WPARAM isOwn, LPARAM sent) {
  if (reinterpret_cast<const CWPSTRUCT*>(sent)->message == SB_SETTEXTW) KillThisProcess();
  return CallNextHookEx(nullptr, code, isOwn, sent);
}

// The work goes on while this thread waits for the end, at the first file that is in its place.
void MakeFormAndDie(const Place& place, const std::string& when) {
  KeyboardUser user;
  PassThroughWizard(user);
  if (when == "open") KillThisProcess();
  const DWORD thread = GetWindowThreadProcessId(ActiveWindow(), nullptr);
  if (when == "made") SetWindowsHookExW(WH_CALLWNDPROC, DieAtStatus, nullptr, thread);
  PostMessageW(WindowOf(WizardDesign().cmdFinish), BM_CLICK, 0, 0);
  while (!std::filesystem::exists(NativePath(place.Home + "/frmPerson.frm"))) continue;
  KillThisProcess();
}

}  // namespace

TEST_CASE("A form made in the dialogs is saved and told of, a cancelled one leaves the project as it was") {
  const NewPlace place;
  const auto before = place.Files();
  const std::string journal = place / "journal", frm = place.Home + "/frmPerson.frm\n";
  const Outcome cancelled = place.Use({"--journal", journal}, [] {
    Choose();
    Press(VK_ESCAPE);
  });
  CHECK(cancelled.Status == 5);
  CHECK(cancelled.Out.empty());
  CHECK(cancelled.Error == "ostrel-form-wizard: " + place.Project + ": no form was made; the project is as it was\n");
  CHECK(ReadFile(journal).empty());
  CHECK(Has(ReadFile(place.Profile), "LastConnect=Samples"));

  const Outcome tried = place.Use({"--journal", journal, "--dry-run"}, MakeForm);
  CHECK(tried.Status == 0);
  CHECK(tried.Out == "would write " + frm + "frmPerson: 1 field of Sample.Person\nwould write " + place.Project + "\n");
  CHECK(ReadFile(journal).starts_with("{\"call\":\"AddToolboxProgID\""));
  CHECK(place.Files() == before);

  const Outcome made = place.Use({}, MakeGoldenForm);
  CHECK(made.Status == 0);
  CHECK(made.Error.empty());
  CHECK(made.Out == "wrote " + frm + "wrote " + place.Home +
                        "/frmPerson.frx\nfrmPerson: 5 fields of Sample.Person\nwrote " + place.Project + "\n");
  CheckSameFiles(place.Files(), FilesIn(SourceFolder() + "/tests/golden/addin-project"));
}

TEST_CASE("What keeps the project from being opened or saved, and a note on it, is said in a box and on the console") {
  const NewPlace place;
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
       {Case{{"--journal", place.Home + "/Form1.frm"}, [] {}, 3, place.Home + "/Form1.frm: "},
        Case{{}, editProject, 4, place.Project + ": "}, Case{{}, MakeForm, 0, "note: frmPerson was the form Form1"}}) {
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

TEST_CASE(
    "Killed while its form is chosen, made or saved, the program leaves a whole project, which the next run goes on "
    "with") {
  constexpr wchar_t variable[] = L"FORMWIZARD_KILLED";
  if (const wchar_t* told = _wgetenv(variable)) {
    const std::string text = Utf8(std::filesystem::path(told));
    const Place place{text.substr(text.find(' ') + 1)};
    place.Use({}, [&] { MakeFormAndDie(place, text.substr(0, text.find(' '))); });
    return;
  }
  const auto golden = FilesIn(SourceFolder() + "/tests/golden/addin-project");
  for (const std::wstring when : {L"open", L"made", L"saved"}) {
    CAPTURE(when == L"made");
    CAPTURE(when == L"saved");
    const NewPlace place;
    const auto before = place.Files();
    WriteFile(place.Profile, "[OstrelFormWizard]\r\nRows=4\r\n");
    CHECK(RunAnew(variable, when + L" " + place.Path().wstring()) == Killed);
    CHECK(ReadFile(place.Profile) == "[OstrelFormWizard]\r\nRows=4\r\n");
    const auto after = place.Files();
    if (when != L"saved") CHECK(after == before);
    const bool isSaved = after.at("Project1.vbp") == golden.at("Project1.vbp");
    for (const auto& [name, text] : isSaved ? golden : before) CHECK(after.at(name) == text);
    if (isSaved) continue;
    CHECK(place.Use({}, MakeGoldenForm).Status == 0);
    CheckSameFiles(place.Files(), golden);
  }
}

TEST_CASE("A form that cannot be called what it should is not made, and the dialog waits for another choice") {
  const NewPlace place;
  WriteFile(place.Project, "Type=Exe\r\nForm=Form1.frm\r\nModule=FRMPERSON; gone.bas\r\n");
  const auto before = place.Files();
  const std::string note = "ostrel-form-wizard: note: " + place.Project + ":3: the file " + place.Home +
                           "/gone.bas is not there; restore it or take its line out of the project\n";
  std::string said;
  const Outcome refused = place.Use({}, [&] {
    MakeForm();
    said = DismissMessage();
    Press(VK_ESCAPE);
  });
  CHECK(refused.Status == 5);
  CHECK(Has(said, "class Sample.Person would be called \"frmPerson\", and the project has \"FRMPERSON\", in which"));
  CHECK(refused.Error ==
        note + "ostrel-form-wizard: " + place.Project + ": no form was made; the project is as it was\n");
  CHECK(place.Files() == before);
}
