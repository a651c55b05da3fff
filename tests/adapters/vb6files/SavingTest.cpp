// What is on the disk when a project has been saved, and when it could not be.
#include "tests/adapters/vb6files/Saves.h"

using namespace formwizard;
using namespace formwizard::tests;

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

TEST_CASE("What somebody changes stays: before a save, at its last step, and before it is undone") {
  const std::string other = runtime::ReplaceAll(EmptyForm, "Form1", "frmOther");
  Contents before = OldProject();
  before["P/frmOther.frm"] = other;
  before[ProjectPath] += "Form=frmOther.frm\r\n";
  struct Case {
    Contents Before;
    std::function<void(ProjectOnDisk&)> Make;
    std::vector<std::string> Paths;
  };
  for (const Case& c :
       {Case{before,
             [](ProjectOnDisk& project) { Change(project, true); },
             {ProjectPath, "P/Forms/Form1.frm", "P/Forms/Form1.frx", "P/frmOther.frm"}},
        Case{KeptProject(),
             [](ProjectOnDisk& project) {
               project.PutTexts("Form1", {"new", "new"}, project.TextsOf("Form1"));
               project.Put("P/Lending.forms/Form1.frm", "new", std::nullopt);
               project.Put("P/kept.json", std::nullopt, "old");
             },
             {"P/Forms/Form1.frm", "P/Forms/Form1.frx", "P/kept.json", "P/Lending.forms/Form1.frm", ProjectPath}}}) {
    for (const std::string& path : c.Paths) {
      CAPTURE(path);
      for (const bool atLastStep : {false, true}) {
        MemoryFileSystem files(c.Before);
        ProjectOnDisk project(files, ProjectPath, {});
        c.Make(project);
        CHECK(project.IsChanged());
        const auto edit = [&] { files.Files[path] = "mine"; };
        if (atLastStep) {
          files.BeforeExchange = edit;
        } else {
          edit();
        }
        CHECK_THROWS_WITH_AS(project.Save(), doctest::Contains(path.c_str()), support::SaveError);
        Contents expected = c.Before;
        expected[path] = "mine";
        CHECK(files.Files == expected);
      }
      if (!c.Before.contains("P/kept.json")) continue;
      MemoryFileSystem files(KeptProject());
      Follow(files, true);
      files.Files[path] = "mine";
      const Contents edited = files.Files;
      CHECK_THROWS_WITH_AS(UndoSave(files), doctest::Contains(path.c_str()), support::SaveError);
      CHECK(files.Files == edited);
    }
  }
}
