#include "adapters/vb6files/ProjectOnDisk.h"

#include "runtime/Conversions.h"
#include "system/Aside.h"
#include "system/ContentSum.h"
#include "tests/support/MemoryFileSystem.h"
#include "tests/support/Test.h"

namespace {

using namespace formwizard;
using namespace formwizard::adapters::vb6files;
using namespace formwizard::tests;
using generator::ide::ComponentType;
using generator::ide::VBComponents;
using Trouble = MemoryFileSystem::Trouble;
using Contents = MemoryFileSystem::Contents;

const std::string ProjectPath = "P/Lending.vbp";
const std::string EmptyForm =
    "VERSION 5.00\r\nBegin VB.Form Form1 \r\n   ClientHeight    =   3195\r\nEnd\r\nAttribute VB_Name = \"Form1\"\r\n"
    "Attribute VB_Exposed = False\r\n";

// A project whose empty Form1 stands in a folder below.
Contents OldProject() {
  return {{ProjectPath, "Type=Exe\r\nForm=Forms\\Form1.frm\r\nModule=modA; modA.bas\r\nStartup=\"Form1\"\r\n"},
          {"P/Forms/Form1.frm", EmptyForm},
          {"P/modA.bas", "Attribute VB_Name = \"modA\"\r\n"}};
}

// Reuses Form1 and adds a form that needs a companion file.
void Change(ProjectOnDisk& project, bool finishesForms, std::string_view text = "txtNotes") {
  VBComponents& components = project.ActiveVBProject().Components();
  const auto reused = components.Find("Form1");
  reused->SetName("frmPerson");
  reused->DesignerControls()->Add("VB.Label", nullptr);
  if (finishesForms) project.FinishForms();
  const auto added = components.Add(ComponentType::Form);
  added->SetName("frmHome");
  const auto notes = added->DesignerControls()->Add("VB.TextBox", nullptr);
  notes->SetProperty("MultiLine", std::string_view("-1"));
  notes->SetProperty("Text", text);
}

void Generate(system::FileSystem& files, std::string_view text = "txtNotes") {
  ProjectOnDisk project(files, ProjectPath, {});
  Change(project, true, text);
  project.Save();
}

Contents NewProject(std::string_view text = "txtNotes") {
  MemoryFileSystem files(OldProject());
  Generate(files, text);
  return files.Files;
}

// Files of the new project that the old one already refers to by nothing may lie beside it.
bool Holds(const Contents& found, const Contents& expected) {
  return std::ranges::all_of(expected, [&](const auto& file) {
    const auto at = found.find(file.first);
    return at != found.end() && at->second == file.second;
  });
}

TEST_CASE("A saved project lists the new files, and the old form stays beside them") {
  Contents after = NewProject();
  CHECK(after.at(ProjectPath) ==
        "Type=Exe\r\nForm=Forms\\frmPerson.frm\r\nModule=modA; "
        "modA.bas\r\nForm=frmHome.frm\r\nStartup=\"frmPerson\"\r\n");
  CHECK(after.at("P/Forms/Form1.frm") == EmptyForm);
  CHECK(Has(after.at("P/Forms/frmPerson.frm"), "Begin VB.Label Label1 \r\n"));
  CHECK(Has(after.at("P/frmHome.frm"), "\"frmHome.frx\":0000"));
  CHECK(after.at("P/frmHome.frx") == "\x08txtNotes");
  CHECK(after.size() == OldProject().size() + 3);
}

TEST_CASE("A crash at any operation leaves the old or the new project, and any next save is as if nothing had been") {
  const Contents before = OldProject(), after = NewProject(), other = NewProject("other fields");
  bool stopped = true;
  for (int operation = 1; stopped; ++operation) {
    CAPTURE(operation);
    REQUIRE(operation < 100);
    MemoryFileSystem files(before, Trouble::Stops, operation);
    files.CanExchange = operation % 2 == 0 || operation > 40;
    try {
      Generate(files);
    } catch (const support::SaveError&) {
      CHECK(files.IsStopped);
    }
    for (const Contents& found : files.AfterCrash()) {
      const bool isOld = found.at(ProjectPath) == before.at(ProjectPath);
      REQUIRE(Holds(found, isOld ? before : after));
      MemoryFileSystem again(found);
      again.Folders = files.Folders;
      if (isOld) {
        Generate(again, "other fields");
        CHECK(again.Files == other);
      } else {
        ProjectOnDisk project(again, ProjectPath, {});
        project.ActiveVBProject().Components().Add(ComponentType::Form)->SetName("frmNext");
        project.Save();
        CHECK(Has(again.Files.at(ProjectPath), "Form=frmHome.frm\r\nForm=frmNext.frm\r\n"));
      }
      CHECK(again.Folders.empty());
    }
    stopped = files.IsStopped;
  }
}

TEST_CASE("What a save of an older version has left is taken back by the sums that it wrote down") {
  const auto line = [](std::string_view bytes, const std::string& path) {
    return system::Hexadecimal(system::BytewiseSum(bytes)) + " " + std::to_string(path.size()) + " " + path + "\n";
  };
  CHECK(system::BytewiseSum("a") == 0xAF63DC4C8601EC8C);
  MemoryFileSystem files(OldProject());
  files.Files["P/frmHome.frm"] = "moved already";
  files.Files["P/" + system::AsideName("Lending.vbp") + "/record"] =
      "A save of this project is under way, or was cut off.\n" + line(files.Files[ProjectPath], "") +
      line("new project", "") + line("moved already", "frmHome.frm") + "end\n";
  Generate(files);
  CHECK(files.Files == NewProject());
}

TEST_CASE("A look that fails is an error, never an empty file: nothing is changed, or all is saved") {
  const Contents before = OldProject(), after = NewProject();
  bool failed = true;
  for (int look = 1; failed; ++look) {
    CAPTURE(look);
    REQUIRE(look < 200);
    MemoryFileSystem files(before);
    files.FailsToRead = look;
    try {
      Generate(files);
      CHECK(Holds(files.Files, after));
    } catch (const support::InputError& error) {
      CHECK(std::string(error.what()).starts_with("P"));
      CHECK(files.Files == before);
    } catch (const support::SaveError&) {
      CHECK(files.Files == before);
    }
    failed = files.Looks >= look;
  }
}

TEST_CASE("What somebody changes while a run goes on stays, up to the last step") {
  const std::string other = runtime::ReplaceAll(EmptyForm, "Form1", "frmOther");
  Contents before = OldProject();
  before["P/frmOther.frm"] = other;
  before[ProjectPath] += "Form=frmOther.frm\r\n";
  for (const auto& edited : Contents{{ProjectPath, before.at(ProjectPath) + "Form=frmNew.frm\r\n"},
                                     {"P/Forms/Form1.frm", EmptyForm + "' mine\r\n"},
                                     {"P/Forms/Form1.frx", "mine"},
                                     {"P/frmOther.frm", runtime::ReplaceAll(other, "Other", "Mine")}}) {
    const std::string &path = edited.first, &bytes = edited.second;
    for (const bool atLastStep : {false, true}) {
      CAPTURE(path);
      MemoryFileSystem files(before);
      ProjectOnDisk project(files, ProjectPath, {});
      Change(project, true);
      const auto edit = [&] { files.Files[path] = bytes; };
      if (atLastStep) {
        files.BeforeExchange = edit;
      } else {
        edit();
      }
      CHECK_THROWS_WITH_AS(project.Save(), doctest::Contains(path.c_str()), support::SaveError);
      Contents expected = before;
      expected[path] = bytes;
      CHECK(files.Files == expected);
    }
  }
}

// What follows its class: a form replaced with its companion file taken away, one kept text replaced, one new in a
// folder that is new, and a new form in the project file.
Contents KeptProject() {
  Contents files = OldProject();
  files["P/Forms/Form1.frx"] = "old companion";
  files["P/kept.json"] = "old";
  return files;
}

void Follow(system::FileSystem& files, bool addsForm, std::string_view text = "new") {
  ProjectOnDisk project(files, ProjectPath, {});
  const FormFiles old = project.TextsOf("Form1");
  project.PutTexts("Form1", {EmptyForm + "' " + std::string(text) + "\r\n", ""}, old);
  project.Put("P/kept.json", std::string(text), "old");
  project.Put("P/Lending.forms/Form1.frm", std::string(text), std::nullopt);
  if (addsForm) project.ActiveVBProject().Components().Add(ComponentType::Form)->SetName("frmNew");
  project.Save();
}

Contents FollowedProject(bool addsForm) {
  MemoryFileSystem files(KeptProject());
  Follow(files, addsForm);
  return files.Files;
}

TEST_CASE("Files that are put are written, replaced and removed with the new forms, as announced") {
  for (const bool addsForm : {false, true}) {
    Contents expected = KeptProject();
    expected["P/Forms/Form1.frm"] = EmptyForm + "' new\r\n";
    expected.erase("P/Forms/Form1.frx");
    expected["P/kept.json"] = expected["P/Lending.forms/Form1.frm"] = "new";
    const Contents after = FollowedProject(addsForm);
    CHECK(after.size() == expected.size() + (addsForm ? 1 : 0));
    if (addsForm) {
      CHECK(Has(after.at(ProjectPath), "Form=frmNew.frm\r\n"));
    } else {
      CHECK(after == expected);
    }
  }
}

TEST_CASE("A failing operation or a full disk leaves every file as it was, or saves everything") {
  const Contents before = OldProject(), after = NewProject();
  const auto tryAll = [](const Contents& from, const Contents& to, bool canExchange, auto&& save) {
    for (const Trouble kind : {Trouble::Fails, Trouble::TearsAndFails}) {
      bool failed = true;
      for (int operation = 1; failed; ++operation) {
        CAPTURE(operation);
        REQUIRE(operation < 100);
        MemoryFileSystem files(from, kind, operation);
        files.CanExchange = canExchange;
        try {
          save(files);
          // Only cleaning up afterwards may leave something behind, for the next save to remove.
          CHECK(Holds(files.Files, to));
        } catch (const support::SaveError&) {
          CHECK(files.Files == from);
          CHECK(files.Folders.empty());
        }
        failed = files.Operations >= operation;
      }
    }
  };
  tryAll(before, after, true, [](system::FileSystem& files) { Generate(files); });
  for (const bool canExchange : {false, true}) {
    tryAll(KeptProject(), FollowedProject(true), canExchange, [](system::FileSystem& files) { Follow(files, true); });
  }
}

TEST_CASE("A project that could not be saved is still open, and is saved when it is tried again") {
  for (int operation = 1; operation < 12; ++operation) {
    CAPTURE(operation);
    MemoryFileSystem files(OldProject(), Trouble::Fails, operation);
    ProjectOnDisk project(files, ProjectPath, {});
    Change(project, false);
    CHECK(project.IsChanged());
    const std::string shown = project.TextsOf("frmHome").Frm;
    try {
      project.Save();
    } catch (const support::SaveError&) {
      CHECK(files.Files == OldProject());
      CHECK(project.IsChanged());
      CHECK(project.TextsOf("frmHome").Frm == shown);
      project.Save();
    }
    CHECK(files.Files == NewProject());
    CHECK_FALSE(project.IsChanged());
    CHECK(project.TextsOf("frmHome").Frm == shown);
    CHECK(project.Summaries().back().File == "P/frmHome.frm");
  }
}

TEST_CASE("Saving refuses what would destroy somebody's work, and changes nothing") {
  const Contents before = OldProject(), after = NewProject();
  struct Case {
    std::string Path, Bytes;
    bool IsLocked;
    const char* Reason;
  };
  for (const Case& c : {Case{"P/frmHome.frm", "another form", false, "P/frmHome.frm"},
                        Case{"P/frmHome.frx", "another record", false, "P/frmHome.frx"},
                        Case{"P/Forms/frmPerson.frm", "", false, "P/Forms/frmPerson.frm"},
                        Case{"P/FRMHOME.FRM", "another form", false, "other letter cases, FRMHOME.FRM"},
                        Case{ProjectPath, "Type=Exe\r\nForm=Forms\\Form1.frm\r\n", false, "changed"},
                        Case{ProjectPath, before.at(ProjectPath), true, "another program is saving"}}) {
    CAPTURE(c.Path);
    MemoryFileSystem files(before);
    Contents disturbed;
    {
      ProjectOnDisk project(files, ProjectPath, {});
      files.Files[c.Path] = c.Bytes;
      files.IsLocked = c.IsLocked;
      disturbed = files.Files;
      Change(project, false);
      CHECK_THROWS_WITH_AS(project.Save(), doctest::Contains(c.Reason), support::SaveError);
    }
    CHECK(files.Files == disturbed);
  }

  // The very same file is no obstacle, and what only looks like ours stays.
  MemoryFileSystem files(before);
  Contents expected = after;
  for (const char* own : {"P/Lending.vbp.saving/0", "P/Lending.vbp.0123456789abcdef01234567.new/record"}) {
    files.Files[own] = expected[own] = "mine";
  }
  files.Files["P/frmHome.frm"] = after.at("P/frmHome.frm");
  Generate(files);
  CHECK(files.Files == expected);
}

TEST_CASE("Nothing is written for an unchanged project or in a dry run, which announces what saving would write") {
  MemoryFileSystem files(OldProject());
  ProjectOnDisk project(files, ProjectPath, {});
  project.ActiveVBProject().Components().Find("Form1")->DesignerControls();
  project.Save();
  Contents announced = OldProject();
  project.OnChange(
      [&](const FileChange& change) {
        CHECK(change.Old.has_value() == announced.contains(change.Path));
        CHECK(change.Old.value_or("") == announced[change.Path]);
        announced[change.Path] = change.New.value();
      },
      true);
  Change(project, true);
  project.Save();
  CHECK(files.Operations == 0);
  CHECK(announced == NewProject());
}

}  // namespace
