// Saves that stop or fail at any of their operations, and what is made of that afterwards.
#include "system/Aside.h"
#include "system/ContentSum.h"
#include "tests/adapters/vb6files/Saves.h"

using namespace formwizard;
using namespace formwizard::tests;

namespace {

// Tries every save at each of its operations, counted from 1, until `run` says that this one was not reached.
void AtEachOperation(const std::function<bool(const SaveCase& save, int operation, bool canExchange)>& run) {
  for (const SaveCase& save : AllSaves()) {
    for (const bool canExchange : {false, true}) {
      bool isReached = true;
      for (int operation = 1; isReached; ++operation) {
        CAPTURE(save.Name);
        CAPTURE(operation);
        REQUIRE(operation < 200);
        isReached = run(save, operation, canExchange);
      }
    }
  }
}

bool IsAside(const std::string& path) { return path.find(".new") != std::string::npos; }

void AddNext(system::FileSystem& files) { AddForm(files, "frmNext"); }

bool IsSame(const Contents& files, const Contents& others, const std::string& path) {
  const auto one = files.find(path), other = others.find(path);
  return one == files.end() ? other == others.end() : other != others.end() && one->second == other->second;
}

}  // namespace

TEST_CASE("A crash at any operation leaves the old files or the new, and any next save is as if nothing had been") {
  AtEachOperation([](const SaveCase& c, int operation, bool canExchange) {
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
      const bool isOld = IsSame(again.Files, c.Before, ProjectPath) && IsSame(again.Files, c.Before, "P/kept.json");
      REQUIRE(Holds(Project(again.Files), Project(isOld ? c.Before : c.Saved)));
      if (isOld) {
        c.Next(again);
        CHECK(Project(again.Files) == Project(c.SavedNext));
      } else {
        if (c.Name == "new forms") CHECK_THROWS_AS(UndoSave(again), support::InputError);
        AddNext(again);
        CHECK(Project(again.Files) == Project(After(c.Saved, AddNext)));
      }
      CHECK(std::ranges::none_of(again.Folders, IsAside));
      CHECK(std::ranges::none_of(again.Files, [](const auto& file) { return IsAside(file.first); }));
    }
    return files.IsStopped;
  });
}

TEST_CASE("A failing operation or a full disk leaves every file as it was, or saves everything") {
  AtEachOperation([](const SaveCase& c, int operation, bool canExchange) {
    bool isReached = false;
    for (const Trouble kind : {Trouble::Fails, Trouble::TearsAndFails}) {
      MemoryFileSystem files(c.Before, kind, operation);
      files.CanExchange = canExchange;
      try {
        c.Save(files);
        // Only cleaning up afterwards may leave something behind, for the next save to remove.
        CHECK(Holds(files.Files, Project(c.Saved)));
      } catch (const support::SaveError&) {
        CHECK(files.Files == c.Before);
        CHECK(files.Folders.empty());
      }
      isReached = isReached || files.Operations >= operation;
    }
    return isReached;
  });
}

TEST_CASE("A look that fails is an error, never an empty file: nothing is changed, or all is saved") {
  AtEachOperation([](const SaveCase& c, int look, bool canExchange) {
    MemoryFileSystem files(c.Before);
    files.CanExchange = canExchange;
    files.FailsToRead = look;
    try {
      c.Save(files);
      CHECK(Holds(files.Files, Project(c.Saved)));
    } catch (const support::InputError& error) {
      CHECK(std::string(error.what()).starts_with("P"));
      CHECK(files.Files == c.Before);
    } catch (const support::SaveError&) {
      CHECK(files.Files == c.Before);
    }
    return files.Looks >= look;
  });
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
