// Files that are saved in place of others, and undo, which brings those back.
#include "adapters/vb6files/SaveRecord.h"
#include "system/Aside.h"
#include "system/ContentSum.h"
#include "tests/adapters/vb6files/Saves.h"
#include "tests/support/TemporaryFolder.h"

using namespace formwizard;
using namespace formwizard::tests;

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
