// Kept forms when something is in the way: files that are gone, cannot be read or were changed by others.
#include "tests/apps/Keeper.h"

using namespace formwizard::tests;
using nlohmann::json;

namespace {

const std::string TwoForms =
    R"([{"class":"Sample.Person","fields":["Name"]},{"class":"Sample.Company","fields":["Name"]}])";

void Remove(const std::string& file) { std::filesystem::remove_all(NativePath(file)); }

}  // namespace

TEST_CASE("A form whose file is gone is missing, one that cannot be read is named, and the others go on") {
  Keeper work(TwoForms);
  work.Property("Name")["Caption"] = "Full name";
  work.Import();
  const std::string company = work.Folder / "App/frmCompany.frm", bytes = ReadFile(company);
  const auto isUpdated = [&] { return Has(ReadFile(work.Form()), "\"Full name\""); };

  Remove(company);
  const Outcome missing = work.Run("status");
  CHECK(missing.Status == 1);
  CHECK(Has(missing.Out, "frmCompany: missing\n  " + work.Project + ":"));
  CHECK(Has(missing.Out, "frmPerson: outdated\n"));
  CHECK(Has(work.Run("update", {"frmcompany"}).Error, "frmCompany.frm is not there; restore it"));
  CHECK(Has(work.Run("keep", {work.Folder / "form.json", "frmCompany"}).Error, "forms; give the description of"));
  CHECK(work.Run("update", {"--quiet"}).Status == 0);
  CHECK(isUpdated());
  CHECK(work.Run("undo").Status == 2);
  CHECK(RunHere({"undo", "--project", work.Project}).Status == 0);

  std::filesystem::create_directory(NativePath(company));
  const auto before = work.Files();
  const std::string reason = "frmCompany.frm: this is a folder, a file is needed";
  for (const char* command : {"status", "update"}) {
    const Outcome unread = work.Run(command, {"--json"});
    CHECK(unread.Status == 3);
    const json told = json::parse(unread.Out);
    CHECK(Has(told["unreadable"][0], reason));
    CHECK(told["forms"].size() == 1);
    if (*command == 'u') CHECK(told["forms"][0]["result"] == "left as it is");
  }
  CHECK(Has(work.Run("update", {"-n"}).Error, "1 form that cannot be read; nothing was written. Leave such forms"));
  CHECK(work.Files() == before);
  CHECK(work.Run("update", {"--skip-conflicts"}).Status == 3);
  CHECK(isUpdated());

  // A file that cannot be read may hold any form; one that is not listed is missing for sure.
  Remove(company);
  WriteFile(company, bytes);
  work.Edit(work.Project, "Form=frmPerson.frm\r\n", "Form=frmOther.frm\r\n");
  std::filesystem::create_directory(NativePath(work.Folder / "App/frmOther.frm"));
  CHECK(Has(work.Run("status", {"frmPerson"}).Error, "frmOther.frm: this is a folder"));
  work.Edit(work.Project, "Form=frmOther.frm\r\n", "");
  CHECK(Has(work.Run("status").Out, "frmPerson: missing\n  " + work.Project + ": the project has no such form"));
}

TEST_CASE("An undo that cannot be says of each file what has become of it and where it was before") {
  Keeper work;
  work.Property("Name")["Caption"] = "Full name";
  work.Import();
  CHECK(work.Run("update", {"--quiet"}).Status == 0);
  const auto updated = work.Files();
  const std::string app = work.Folder / "App/", form = app + "frmPerson.frm";
  const auto check = [&](const std::string& message) {
    const auto before = work.Files();
    const Outcome refused = RunHere({"undo", "--project", work.Project});
    CHECK(refused.Status == 4);
    CHECK_MESSAGE(Has(refused.Error, message), refused.Error);
    CHECK(work.Files() == before);
    for (const auto& [name, bytes] : updated) WriteFile(app + name, bytes);
  };
  Remove(form);
  check(form + ": this file, which the save that is to be undone had written, is gone; nothing was changed. To go " +
        "back by hand: before that save it was " + app + "Project1.undo/0");
  WriteFile(form, "other");
  check(form + ": this file has changed since the save that is to be undone");
  Remove(app + "Project1.undo/0");
  check("Project1.undo: what " + form + " was before is not there any more");
}

TEST_CASE("What stands in the place of a folder is named before anything is written, and stops nobody who only looks") {
  Keeper work;
  work.Property("Name")["Caption"] = "Full name";
  work.Import();
  const auto refuses = [&](const Outcome& refused, int status, const std::string& file) {
    CHECK(refused.Status == status);
    CHECK_MESSAGE(Has(refused.Error, file + ": this is no folder; "), refused.Error);
  };
  Remove(work.Folder / "App/Project1.undo");
  WriteFile(work.Folder / "App/Project1.undo", "");
  const auto before = work.Files();
  refuses(work.Run("update"), 4, "Project1.undo");
  CHECK(work.Files() == before);
  CHECK(work.Status()["state"] == json{"outdated"});
  Remove(work.Folder / "App/Project1.undo");
  Remove(work.Kept);
  WriteFile(work.Kept.substr(0, work.Kept.size() - 1), "");
  refuses(work.Generate({"--keep", work.Folder / "form.json"}), 3, "Project1.forms");
  CHECK_FALSE(std::filesystem::exists(NativePath(work.Folder / "App/frmPerson2.frm")));
}

TEST_CASE("A form without a system is made for that of the run, whatever those before it were made for") {
  Keeper work;
  json& systems = work.Classes["systems"];
  systems[1]["classes"] = systems[0]["classes"];
  work.Import();
  WriteFile(work.Folder / "form.json", R"([{"class":"Sample.Person","system":"Archive","fields":["Name"]},
                                           {"class":"Sample.Person","fields":["Name"]}])");
  CHECK(work.Generate({"--keep", work.Folder / "form.json"}).Status == 0);
  for (const auto& [form, system] : {std::pair{"frmPerson2", "Archive"}, {"frmPerson3", "Samples"}}) {
    CHECK(json::parse(ReadFile(work.Kept + form + ".json"))["system"] == system);
  }
}
