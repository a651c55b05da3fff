#include "adapters/vb6files/ProjectOnDisk.h"

#include "adapters/vb6files/SaveRecord.h"
#include "adapters/vb6files/Undo.h"
#include "runtime/Conversions.h"
#include "system/Aside.h"
#include "system/ContentSum.h"
#include "tests/support/MemoryFileSystem.h"
#include "tests/support/TemporaryFolder.h"
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

// What follows its class: a form replaced with its companion file taken away, one kept text replaced, one new in a
// folder that is new, and a new form in the project file.
Contents KeptProject() {
  Contents files = OldProject();
  files["P/Forms/Form1.frx"] = "old companion";
  files["P/kept.json"] = "old";
  return files;
}

void Follow(system::FileSystem& files, bool addsForm, const std::string& text = "new") {
  ProjectOnDisk project(files, ProjectPath, {});
  const FormFiles old = project.TextsOf("Form1");
  project.PutTexts("Form1", {EmptyForm + "' " + text + "\r\n", ""}, old);
  project.Put("P/kept.json", text, *files.Read("P/kept.json"));
  project.Put("P/Lending.forms/Form1.frm", text, files.Read("P/Lending.forms/Form1.frm"));
  if (addsForm) project.ActiveVBProject().Components().Add(ComponentType::Form)->SetName("frmNew");
  project.Save();
}

void UndoSave(system::FileSystem& files) {
  Undo(files, ProjectPath, false, [](const FileChange&) {});
}

Contents After(const Contents& before, void (*save)(system::FileSystem& files)) {
  MemoryFileSystem files(before);
  save(files);
  return files.Files;
}

// Without what saves keep beside it.
Contents Project(Contents files) {
  std::erase_if(files, [](const auto& file) {
    return file.first.starts_with("P/Lending.undo/") || file.first.find(".new/") != std::string::npos;
  });
  return files;
}

struct SaveCase {
  std::string Name;
  Contents Before;
  void (*Save)(system::FileSystem& files);
};

std::vector<SaveCase> ReplacingSaves() {
  const auto follow = [](system::FileSystem& files) { Follow(files, true); };
  const auto again = [](system::FileSystem& files) { Follow(files, false, "newer"); };
  const Contents followed = After(KeptProject(), follow);
  return {{"follow", KeptProject(), follow},
          {"follow again", followed, again},
          {"undo", followed, UndoSave},
          {"undo of undo", After(followed, UndoSave), UndoSave},
          {"new forms", followed, [](system::FileSystem& files) {
             ProjectOnDisk project(files, ProjectPath, {});
             project.ActiveVBProject().Components().Add(ComponentType::Form)->SetName("frmOther");
             project.Save();
           }}};
}

TEST_CASE("Files that are put are written, replaced and removed with the new forms, and undo brings all of them back") {
  for (const bool addsForm : {false, true}) {
    Contents expected = KeptProject();
    expected["P/Forms/Form1.frm"] = EmptyForm + "' new\r\n";
    expected.erase("P/Forms/Form1.frx");
    expected["P/kept.json"] = expected["P/Lending.forms/Form1.frm"] = "new";
    MemoryFileSystem files(KeptProject());
    Follow(files, addsForm);
    const Contents after = Project(files.Files);
    if (addsForm) {
      CHECK(Has(after.at(ProjectPath), "Form=frmNew.frm\r\n"));
      expected[ProjectPath] = after.at(ProjectPath);
      expected["P/frmNew.frm"] = after.at("P/frmNew.frm");
    }
    CHECK(after == expected);
    CHECK(files.Files.at("P/Lending.undo/.gitignore") == "*\n");
    UndoSave(files);
    CHECK(Project(files.Files) == KeptProject());
    CHECK(files.Folders == std::set<std::string>{"P/Lending.undo"});
    UndoSave(files);
    CHECK(Project(files.Files) == after);
  }
}

TEST_CASE(
    "A crash in a save that replaces or in undo leaves the old set or the new one when the project is opened again") {
  for (const SaveCase& c : ReplacingSaves()) {
    CAPTURE(c.Name);
    const Contents after = After(c.Before, c.Save);
    for (const bool canExchange : {false, true}) {
      bool stopped = true;
      for (int operation = 1; stopped; ++operation) {
        CAPTURE(operation);
        REQUIRE(operation < 150);
        MemoryFileSystem files(c.Before, Trouble::Stops, operation);
        files.CanExchange = canExchange;
        try {
          c.Save(files);
        } catch (const support::SaveError&) {
          CHECK(files.IsStopped);
        } catch (const support::InputError&) {
          CHECK(files.IsStopped);
        }
        for (const Contents& found : files.AfterCrash()) {
          MemoryFileSystem again(found);
          again.Folders = files.Folders;
          const ProjectOnDisk opened(again, ProjectPath, {});
          const bool isOld = again.Files.at(ProjectPath) == c.Before.at(ProjectPath) &&
                             again.Files.at("P/kept.json") == c.Before.at("P/kept.json");
          REQUIRE(Holds(Project(again.Files), Project(isOld ? c.Before : after)));
          if (isOld) c.Save(again);
          CHECK(Project(again.Files) == Project(after));
          if (c.Name == "new forms") CHECK_THROWS_AS(UndoSave(again), support::InputError);
        }
        stopped = files.IsStopped;
      }
    }
  }
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

TEST_CASE("What somebody changes stays: before a set is saved, in the middle of that, and before it is undone") {
  for (const char* const path :
       {"P/Forms/Form1.frm", "P/Forms/Form1.frx", "P/kept.json", "P/Lending.forms/Form1.frm", "P/Lending.vbp"}) {
    CAPTURE(std::string(path));
    for (const bool atExchange : {false, true}) {
      MemoryFileSystem files(KeptProject());
      const auto edit = [&] { files.Files[path] = "mine"; };
      ProjectOnDisk project(files, ProjectPath, {});
      project.PutTexts("Form1", {"new", "new"}, project.TextsOf("Form1"));
      project.Put("P/Lending.forms/Form1.frm", "new", std::nullopt);
      project.Put("P/kept.json", std::nullopt, "old");
      CHECK(project.IsChanged());
      if (atExchange) {
        files.BeforeExchange = edit;
      } else {
        edit();
      }
      CHECK_THROWS_WITH_AS(project.Save(), doctest::Contains(path), support::SaveError);
      Contents expected = KeptProject();
      expected[path] = "mine";
      CHECK(files.Files == expected);
    }
    MemoryFileSystem files(KeptProject());
    Follow(files, true);
    files.Files[path] = "mine";
    const Contents edited = files.Files;
    CHECK_THROWS_WITH_AS(UndoSave(files), doctest::Contains(path), support::SaveError);
    CHECK(files.Files == edited);
  }
}

TEST_CASE("This machine's files are replaced and brought back, and none of them where one cannot be replaced") {
  const TemporaryFolder temporary;
  for (const auto& [name, bytes] : KeptProject()) WriteFile(temporary / name.substr(2), bytes);
  system::FileSystem& files = system::RealFileSystem();
  const std::string path = temporary / "Lending.vbp";
  const auto save = [&] {
    ProjectOnDisk project(files, path, {});
    project.PutTexts("Form1", {EmptyForm, ""}, project.TextsOf("Form1"));
    project.Put(temporary / "kept.json", "new", "old");
    project.Put(temporary / "Lending.forms/Form1.frm", "new", std::nullopt);
    project.ActiveVBProject().Components().Add(ComponentType::Form)->SetName("frmNew");
    project.Save();
  };
  const Contents before = FilesIn(temporary.Path());
  const auto refuses = [&](auto&& action) {
    const Contents whole = FilesIn(temporary.Path());
    CHECK_THROWS_WITH_AS(action(), doctest::Contains("kept.json"), support::SaveError);
    CHECK(FilesIn(temporary.Path()) == whole);
  };
  const auto undo = [&] { Undo(files, path, false, [](const FileChange&) {}); };
  const auto project = [&] {
    Contents found = FilesIn(temporary.Path());
    std::erase_if(found, [](const auto& file) { return file.first.starts_with("Lending.undo/"); });
    return found;
  };
#ifdef _WIN32
  const auto held = [&](auto&& action) {
    const std::ifstream open(NativePath(temporary / "kept.json"));  // which lets nobody replace it
    refuses(action);
  };
  held(save);
#endif
  save();
  const Contents after = project();
  CHECK(after.at("kept.json") == "new");
  CHECK_FALSE(after.contains("Forms/Form1.frx"));
#ifdef _WIN32
  held(undo);
#endif
  WriteFile(temporary / "kept.json", "mine");
  refuses(undo);
  // Nothing of a set that cannot be is left in the way of the next one.
  refuses([&] {
    ProjectOnDisk other(files, path, {});
    other.Put(temporary / "kept.json/new.json", "new", std::nullopt);
    other.Save();
  });
  WriteFile(temporary / "kept.json", "new");
  undo();
  CHECK(project() == before);
  undo();
  CHECK(project() == after);
}

TEST_CASE("Nothing is undone where the last save made new forms only, or by a record that reaches out of the project") {
  MemoryFileSystem files(KeptProject());
  const auto refuses = [&] {
    const Contents before = files.Files;
    CHECK_THROWS_WITH_AS(UndoSave(files), doctest::Contains("nothing to undo"), support::InputError);
    CHECK(files.Files == before);
  };
  refuses();
  Follow(files, false);
  Generate(files);
  CHECK(files.Folders == std::set<std::string>{"P/Lending.forms"});
  refuses();

  const auto record = [](const std::string& path) {
    return SaveRecord::OfSet({{path, 0, system::ContentSum("planted")}});
  };
  for (const std::string& path :
       {std::string("../.profile"), std::string("/home/x/.profile"), std::string("x/../../y")}) {
    MemoryFileSystem from(OldProject());
    from.Files["P/Lending.undo/0"] = "planted";
    from.Files["P/Lending.undo/committed"] = record(path);
    CHECK_THROWS_AS(UndoSave(from), support::SaveError);
    CHECK(from.Files.size() == OldProject().size() + 2);
    const std::string staging = "P/" + system::AsideName("Lending.vbp");
    from = MemoryFileSystem(OldProject());
    from.Files[staging + "/0"] = "planted";
    from.Files[staging + "/record"] = record(path);
    from.IsLocked = true;
    CHECK_THROWS_WITH_AS(ProjectOnDisk(from, ProjectPath, {}), doctest::Contains("another program"),
                         support::InputError);
    from.IsLocked = false;
    Generate(from);
    CHECK(from.Files == NewProject());
    ProjectOnDisk project(from, ProjectPath, {});
    CHECK_THROWS_AS(project.Put(path.starts_with('/') ? path : "P/" + path, "x", std::nullopt), support::SaveError);
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
  for (const SaveCase& c : ReplacingSaves()) {
    CAPTURE(c.Name);
    const Contents saved = Project(After(c.Before, c.Save));
    for (const bool canExchange : {false, true}) tryAll(c.Before, saved, canExchange, c.Save);
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
