// Looking at files by the program itself.
#include "tests/support/RunHere.h"

#include <doctest/doctest.h>

#include <nlohmann/json.hpp>

using namespace formwizard::tests;

TEST_CASE(
    "lint looks at files or all of a project, says place and remedy, and tells what is wrong from what is not there") {
  const TemporaryFolder folder;
  const auto file = [&](const std::string& name, const std::string& text) {
    WriteFile(folder / name, text);
    return folder / name;
  };
  const std::string project =
      file("p.vbp", "Type=Exe\r\nForm=FORM.FRM\r\nModule=M; sub\\m.bas\r\nForm=\xE9.frm\r\nName=\"P\"\r\n");
  const std::string form =
      file("Form.frm", "VERSION 5.00\r\nBegin VB.Form \xE9\r\nBegin P.Own " + std::string(41, 'n') +
                           "\r\nEnd\r\nPicture = \"form.FRX\":0003\r\nEnd\r\nAttribute VB_Name = \"f\"\r\n");
  file("form.frx", "four");
  std::filesystem::create_directory(folder.Path() / "Sub");
  const std::string module = file("Sub/M.bas", "Attribute VB_Name = \"m\"\r\nSub a()\r\nFor\r\nEnd Sub\r\n");

#ifdef _WIN32  // names of files are as the project spells them
  const std::string seenForm = folder / "FORM.FRM", seenModule = folder / "sub\\m.bas";
#else
  const std::string seenForm = form, seenModule = module;
#endif
  const Outcome found = RunHere({"lint", "--project", project});
  CHECK(found.Status == 1);
  CHECK(found.Out == seenForm + ":3: note: " + std::string(41, 'n') +
                         " has 41 characters; choose a shorter name [name-length]\n" + seenModule +
                         ":3: error: \"For\" without \"Next\"; complete the block [unbalanced-block]\n");
  CHECK(RunHere({"lint", form}).Status == 0);  // a note alone
  CHECK(RunHere({"lint", project, "--code-page", "1252"}).Out.find(":4: error: Form \xC3\xA9.frm") !=
        std::string::npos);

  const std::string other = file("other.ctl", "LOAD DATA\r\n");
  const Outcome mixed = RunHere({"lint", other, folder / "none.bas", module, "--json"});
  const auto json = nlohmann::json::parse(mixed.Out);
  CHECK(mixed.Status == 3);
  CHECK(json["unreadable"].size() == 2);
  CHECK(json["findings"][0]["rule"] == "unbalanced-block");
  CHECK(json["findings"][0]["line"] == 3);
  CHECK(RunHere({"lint"}).Status == 2);
  for (const char* name : {"library/Lending.vbp", "new-project/Project1.vbp"}) {
    CHECK(RunHere({"lint", "--project", SourceFolder() + "/samples/" + name, "--all"}).Out == "");
  }
  for (const auto& each : std::filesystem::recursive_directory_iterator(SourceFolder() + "/tests/golden")) {
    if (each.path().extension() == ".frm") CHECK(RunHere({"lint", each.path().string(), "--all"}).Out == "");
  }
}
