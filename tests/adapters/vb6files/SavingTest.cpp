#include "adapters/vb6files/ProjectOnDisk.h"
#include "tests/adapters/vb6files/MemoryFileSystem.h"
#include "tests/support/TemporaryFolder.h"

#include <doctest/doctest.h>

#include <filesystem>

namespace {

using namespace formwizard;
using namespace formwizard::adapters::vb6files;
using namespace formwizard::tests;
using generator::ide::ComponentType;
using generator::ide::VBComponents;
using Trouble = MemoryFileSystem::Trouble;
using Contents = MemoryFileSystem::Contents;

const std::string ProjectPath = "P/Lending.vbp";

std::string EmptyForm(const std::string& name) {
  return "VERSION 5.00\r\nBegin VB.Form " + name +
         " \r\n   ClientHeight    =   3195\r\n   ClientWidth     =   4680\r\nEnd\r\n" + "Attribute VB_Name = \"" +
         name + "\"\r\nAttribute VB_Exposed = False\r\n";
}

// A project whose empty Form1 stands in a folder below.
Contents OldProject() {
  return {{ProjectPath, "Type=Exe\r\nForm=Forms\\Form1.frm\r\nModule=modA; modA.bas\r\nStartup=\"Form1\"\r\n"},
          {"P/Forms/Form1.frm", EmptyForm("Form1")},
          {"P/modA.bas", "Attribute VB_Name = \"modA\"\r\n"}};
}

// Reuses Form1 and adds a form that needs a companion file.
void Generate(ProjectOnDisk& project) {
  VBComponents& components = project.ActiveVBProject().Components();
  const auto reused = components.Find("Form1");
  reused->SetName("frmPerson");
  reused->DesignerControls()->Add("VB.Label", nullptr);
  project.FinishForms();
  const auto added = components.Add(ComponentType::Form);
  added->SetName("frmHome");
  const auto notes = added->DesignerControls()->Add("VB.TextBox", nullptr);
  notes->SetProperty("MultiLine", std::string_view("-1"));
  notes->SetProperty("Text", std::string_view("txtNotes"));
  project.Save();
}

Contents NewProject() {
  MemoryFileSystem files(OldProject());
  ProjectOnDisk project(files, ProjectPath, {});
  Generate(project);
  return files.Files;
}

// Files of the new project that the old one already refers to by nothing may lie beside it.
bool IsOldOrNew(const Contents& found, const Contents& before, const Contents& after) {
  const Contents& expected = found.at(ProjectPath) == before.at(ProjectPath) ? before : after;
  for (const auto& [path, bytes] : expected) {
    const auto file = found.find(path);
    if (file == found.end() || file->second != bytes) return false;
  }
  return true;
}

TEST_CASE("A saved project lists the new files, and the old form stays beside them") {
  const Contents after = NewProject();
  CHECK(after.at(ProjectPath) ==
        "Type=Exe\r\nForm=Forms\\frmPerson.frm\r\nModule=modA; "
        "modA.bas\r\nForm=frmHome.frm\r\nStartup=\"frmPerson\"\r\n");
  CHECK(after.at("P/Forms/Form1.frm") == EmptyForm("Form1"));
  CHECK(after.at("P/Forms/frmPerson.frm").find("Begin VB.Label Label1 \r\n") != std::string::npos);
  CHECK(after.at("P/frmHome.frm").find("\"frmHome.frx\":0000") != std::string::npos);
  CHECK(after.at("P/frmHome.frx") == "\x08txtNotes");
  CHECK(after.size() == OldProject().size() + 3);
}

TEST_CASE("A crash at any operation leaves the old or the new project, and the next save completes it") {
  const Contents before = OldProject(), after = NewProject();
  for (int operation = 1;; ++operation) {
    CAPTURE(operation);
    MemoryFileSystem files(before);
    files.TroubleAt = operation;
    files.Kind = Trouble::Stops;
    {
      ProjectOnDisk project(files, ProjectPath, {});
      Generate(project);
    }
    for (const Contents& found : files.AfterCrash()) {
      REQUIRE(IsOldOrNew(found, before, after));
      MemoryFileSystem again(found);
      again.Folders = files.Folders;
      ProjectOnDisk project(again, ProjectPath, {});
      if (found.at(ProjectPath) != before.at(ProjectPath)) continue;
      Generate(project);
      CHECK(again.Files == after);
      CHECK(again.Folders.empty());
    }
    if (!files.IsStopped) break;
    REQUIRE(operation < 100);
  }
}

TEST_CASE("A failing operation or a full disk leaves every file as it was, or saves everything") {
  const Contents before = OldProject(), after = NewProject();
  for (const Trouble kind : {Trouble::Fails, Trouble::TearsAndFails}) {
    for (int operation = 1;; ++operation) {
      CAPTURE(operation);
      MemoryFileSystem files(before);
      files.TroubleAt = operation;
      files.Kind = kind;
      bool refused = false;
      try {
        ProjectOnDisk project(files, ProjectPath, {});
        Generate(project);
      } catch (const support::SaveError&) {
        refused = true;
      }
      // Only cleaning up afterwards may leave something behind, for the next save to remove.
      if (refused) {
        CHECK(files.Files == before);
        CHECK(files.Folders.empty());
      } else {
        CHECK(IsOldOrNew(files.Files, after, after));
      }
      if (files.Operations < operation) break;
      REQUIRE(operation < 100);
    }
  }
}

TEST_CASE("Saving refuses what would destroy somebody's work, and changes nothing") {
  const Contents before = OldProject(), after = NewProject();
  struct Case {
    std::string Path, Bytes;
    bool IsLocked;
    std::string Reason;
  };
  for (const Case& c : {Case{"P/frmHome.frm", "another form", false, "P/frmHome.frm"},
                        Case{"P/frmHome.frx", "another record", false, "P/frmHome.frx"},
                        Case{"P/Forms/frmPerson.frm", "", false, "P/Forms/frmPerson.frm"},
                        Case{ProjectPath, "Type=Exe\r\nForm=Forms\\Form1.frm\r\n", false, "changed"},
                        Case{ProjectPath, before.at(ProjectPath), true, "another program is saving"}}) {
    CAPTURE(c.Path);
    MemoryFileSystem files(before);
    std::string message;
    Contents disturbed;
    {
      ProjectOnDisk project(files, ProjectPath, {});
      files.Files[c.Path] = c.Bytes;
      files.IsLocked = c.IsLocked;
      disturbed = files.Files;
      try {
        Generate(project);
      } catch (const support::SaveError& error) {
        message = error.what();
      }
    }
    CHECK(message.find(c.Reason) != std::string::npos);
    CHECK(files.Files == disturbed);
  }

  // The same file left by an interrupted save is no obstacle.
  MemoryFileSystem files(before);
  files.Files["P/frmHome.frm"] = after.at("P/frmHome.frm");
  ProjectOnDisk project(files, ProjectPath, {});
  Generate(project);
  CHECK(files.Files == after);
}

TEST_CASE("Nothing is written for an unchanged project or in a dry run, which announces what saving would write") {
  MemoryFileSystem files(OldProject());
  {
    ProjectOnDisk project(files, ProjectPath, {});
    project.ActiveVBProject().Components().Find("Form1")->DesignerControls();
    project.Save();
  }
  CHECK(files.Operations == 0);

  Contents announced = OldProject();
  bool oldBytesAreTrue = true;
  ProjectOnDisk project(files, ProjectPath, {});
  project.OnChange(
      [&](const FileChange& change) {
        const auto old = announced.find(change.Path);
        oldBytesAreTrue &= change.Old == (old == announced.end() ? std::nullopt : std::optional(old->second));
        announced[change.Path] = change.New;
      },
      true);
  Generate(project);
  CHECK(files.Operations == 0);
  CHECK(announced == NewProject());
  CHECK(oldBytesAreTrue);
}

TEST_CASE("A project that could not be saved is still open, and is saved when it is tried again") {
  const Contents after = NewProject();
  for (int trouble = 1; trouble < 12; ++trouble) {
    CAPTURE(trouble);
    MemoryFileSystem files(OldProject());
    ProjectOnDisk project(files, ProjectPath, {});
    VBComponents& components = project.ActiveVBProject().Components();
    const auto reused = components.Find("Form1");
    reused->SetName("frmPerson");
    reused->DesignerControls()->Add("VB.Label", nullptr);
    const auto added = components.Add(ComponentType::Form);
    added->SetName("frmHome");
    const auto notes = added->DesignerControls()->Add("VB.TextBox", nullptr);
    notes->SetProperty("MultiLine", std::string_view("-1"));
    notes->SetProperty("Text", std::string_view("txtNotes"));
    CHECK(project.IsChanged());
    const std::string shown = project.TextsOf("frmHome").Frm;
    files.TroubleAt = trouble;
    files.Kind = Trouble::Fails;
    try {
      project.Save();
    } catch (const support::SaveError&) {
      CHECK(files.Files == OldProject());
      CHECK(project.IsChanged());
      CHECK(project.TextsOf("frmHome").Frm == shown);
      project.Save();
    }
    CHECK(files.Files == after);
    CHECK_FALSE(project.IsChanged());
    CHECK(project.TextsOf("frmHome").Frm == shown);
    CHECK(project.Summaries().back().File == "P/frmHome.frm");
  }
}

TEST_CASE("The file system of this machine keeps what saving relies on") {
  namespace fs = std::filesystem;
  const TemporaryFolder temporary;
  const fs::path folder = NativePath(temporary / "Größe 項目");
  fs::create_directories(folder / "Forms");
  const std::string at = Utf8(folder) + "/";
  FileSystem& files = RealFileSystem();

  files.WriteNew(at + "a", "one", "");
  CHECK_THROWS_AS(files.WriteNew(at + "a", "two", ""), support::SaveError);
  files.WriteNew(at + "b", "two", "");
  CHECK_FALSE(files.MoveNew(at + "b", at + "a"));
  CHECK(files.Read(at + "a") == "one");
  CHECK(files.MoveNew(at + "b", at + "Forms/c.frm"));
  CHECK_FALSE(files.Read(at + "b"));
  CHECK(files.Read(at + "Forms/c.frm", 2) == "tw");

  CHECK(files.NamesIn(at + "Forms") == std::vector<std::string>{"c.frm"});
  CHECK_FALSE(files.NamesIn(at + "none"));
  CHECK_FALSE(files.Read(Utf8(folder)));

  auto lock = files.LockFolder(Utf8(folder));
  CHECK(lock);
  CHECK_FALSE(files.LockFolder(Utf8(folder)));
  lock.reset();
  CHECK(files.LockFolder(Utf8(folder)));
  CHECK_THROWS_AS(files.LockFolder(at + "none"), support::SaveError);

  fs::permissions(folder / "a", fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_write);
  files.WriteNew(at + "d", "new", at + "a");
  CHECK(fs::status(folder / "d").permissions() == fs::status(folder / "a").permissions());
  files.Replace(at + "d", at + "a");
  CHECK(files.Read(at + "a") == "new");

  CHECK_THROWS_AS(files.FlushFolder(at + "none"), support::SaveError);
  files.Remove(at + "none");
  files.RemoveFolder(Utf8(folder));
  CHECK_FALSE(fs::exists(folder));
}

}  // namespace
