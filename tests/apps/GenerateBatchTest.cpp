// Several forms of one run, and runs that only look.
#include "tests/apps/Workplace.h"

#include <nlohmann/json.hpp>

#include <random>
#include <regex>

using namespace formwizard::tests;
using namespace std::string_literals;

TEST_CASE("A form comes out the same alone and in a batch, whatever was made before it, and names go on counting") {
  using nlohmann::json;
  std::vector<std::string> descriptions{
      R"({"class":"Sample.Person","settings":{"Columns":2},"fields":["Name","SSN"]})",
      R"({"class":"Sample.Company","fields":["Name","Revenue"]})",
      R"({"class":"Sample.Person","settings":{"Menu":false,"CollectionRows":7},"fields":["Phones","Spouse.Name","Notes"]})",
      R"({"class":"Sample.Person","fields":["Age",{"property":"Name","readOnly":true,"updateAfter":"Age"}]})",  // fails
      R"({"class":"Sample.Person","fields":[{"property":"Name","caption":"Naam"},{"property":"Notes","rows":7},
          {"property":"Spouse.Name","combo":{"query":"ByName","column":"Name"}}]})",
      R"({"class":"Sample.Person","settings":{"Columns":4,"Button":false},"fields":["Name","Age","Photo","Home.City"]})"};
  auto dictionary = json::parse(ReadFile(Samples + "dictionary.json"));
  dictionary["systems"][0]["classes"].push_back({{"Name", "Undotted"}});  // an error in each list of classes
  // What a form looks like but for the number in its name, and what is said of it.
  const auto look = [](const Workplace& work, json form) {
    std::string texts;
    for (const std::string ending : {".frm", ".frx"}) {
      texts += work.Files()[form["component"].get<std::string>() + ending];
    }
    form.erase("component");
    form.erase("files");
    return std::regex_replace(texts, std::regex("(frm[A-Z][a-z]+)[0-9]*"), "$1") + form.dump();
  };
  for (const bool listFails : {false, true}) {
    std::map<std::string, std::pair<std::string, std::string>> alone;  // what it looks like, and errors
    const auto workplace = [&] {
      auto work = std::make_unique<Workplace>();
      WriteFile(work->Folder / "undotted.json", dictionary.dump());
      if (listFails) CheckDone(work->Run("dictionary import undotted.json " + work->Dictionary));
      return work;
    };
    for (const std::string& description : descriptions) {
      const auto work = workplace();
      const Outcome made = work->Describe(description, "--json");
      alone[description] = {look(*work, json::parse(made.Out)["forms"][0]), made.Error};
    }
    std::mt19937 random(1);
    for (int order = 0; order < 4; ++order) {
      std::ranges::shuffle(descriptions, random);
      const auto work = workplace();
      std::string files, list = "\xEF\xBB\xBF", errors;
      WriteFile(work->Folder / "Masken 項目/.hidden.json", "");
      WriteFile(work->Folder / "Masken 項目/read.me", "");
      for (const std::string& description : descriptions) {
        const std::string file = "Masken 項目/" + std::to_string(&description - descriptions.data()) + ".json";
        WriteFile(work->Folder / file, description);
        files += Quoted(file) + " ";
        list += file + (files.size() % 2 == 0 ? "\r\n\r\n" : "\n");
        errors += alone[description].second;
      }
      WriteFile(work->Folder / "list.txt", order == 2 ? list : "Masken 項目/\n");
      if (order == 1) files = "\"Masken 項目\" ";
      if (order > 1) files = "--descriptions-from list.txt ";
      const Outcome made = work->Generate(files + "--json");
      CHECK(made.Status == 5);
      CHECK(made.Error == errors);
      const auto forms = json::parse(made.Out)["forms"];
      REQUIRE(forms.size() == descriptions.size());
      for (std::size_t i = 0; i < forms.size(); ++i) CHECK(look(*work, forms[i]) == alone[descriptions[i]].first);
      CHECK(work->Files().contains("frmPerson5.frm"));
    }
  }
}

TEST_CASE("A report that is too long for memory waits in a file, without room for which nothing is saved") {
  const Workplace work;
  const auto before = work.Files();
  WriteFile(work.Folder / "one.json", R"({"class":"Sample.Person","fields":["Name","SSN","DOB","Age"]})");
  std::string arguments = "--json";
  for (int i = 0; i < 80; ++i) arguments += " one.json";
#ifndef _WIN32
  CHECK(work.Generate(arguments, "", "TMPDIR=none").Status == 4);
  CHECK(work.Files() == before);
  std::filesystem::create_directory(work.Folder.Path() / "room");
  work.Generate(arguments, "", "TMPDIR=room");
  CHECK(std::filesystem::is_empty(work.Folder.Path() / "room"));
#endif
  const auto summary = nlohmann::json::parse(work.Generate(arguments).Out);
  CHECK(summary["forms"].size() == 80);
  CHECK(summary["forms"][79]["fields"][3]["property"] == "Age");
}

TEST_CASE("Dry run, diff and check write nothing, and no settings") {
  const Workplace work;
  const auto before = work.Files();
  CHECK(work.Generate(Typical + " -nq").Out.empty());
  const Outcome diff = work.Generate(Typical + " --dry-run --diff");
  CHECK(diff.Out.starts_with("--- /dev/null\n+++ " + work.Home + "/frmPerson.frm\n@@ -0,0 +1,"));
  CHECK(Has(diff.Out, "-Form=Form1.frm\r\n+Form=frmPerson.frm\r\n"));
  CHECK(work.Generate(Typical + " --check").Status == 1);
  CHECK(work.Files() == before);
  CHECK(ReadFile(work.Folder / work.Profile).empty());
}

TEST_CASE("What a run has made does not differ from what it would make, and an edit does") {
  // A start-up form with properties, a picture and code of its own; a form of the name that the wizard did not make.
  Workplace coded, library("library");
  library.Project = library.Home + "/Lending.vbp";
  std::string form = coded.Files().at("Form1.frm");
  form.insert(form.find("   ClientHeight"), "   BackColor       =   &H000000FF&\r\n");
  WriteFile(coded.Home + "/Form1.frm", form + "Option Explicit\r\nSub Mine()\r\nEnd Sub");
  WriteFile(coded.Folder / "two.json", R"([{"class":"Sample.Person","fields":["Name","Photo",{"property":"Phones",
    "caption":"ä"}],"settings":{"FormSizable":true}},{"class":"sample.person","fields":["SSN"]}])");
  const std::string book = "--class Library.Book --fields Title,Cover";
  for (const auto& [work, arguments, file] :
       {std::tuple{&coded, "two.json"s, "frmPerson2.frm"s}, {&library, book, "frmBook2.frm"s}}) {
    CHECK(work->Generate(arguments).Status == 0);
    const auto files = work->Files();
    const Outcome same = work->Generate(arguments + " --check");
    CHECK_MESSAGE(same.Status == 0, same.Out, same.Error);
    CHECK(same.Out.find("instead") == std::string::npos);
    const std::string& text = files.at(file);
    const std::string path = work->Home + "/" + file;
    WriteFile(path, std::regex_replace(text, std::regex("disableclick As"), "disableClick As"));
    const Outcome edited = work->Generate(arguments + " --check --json");
    CHECK(edited.Status == 1);
    const auto difference = nlohmann::json::parse(edited.Out)["differences"].at(0);
    const auto line =
        1 + std::count(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(text.find("disableclick As")), '\n');
    CHECK(difference["file"] == path);
    CHECK(difference["line"] == line);
    CHECK(difference["found"] == "Private disableClick As Boolean");
    WriteFile(path, text);
    CHECK(work->Generate(arguments + " --check --set Columns=2").Status == 1);
    CHECK(work->Files() == files);
  }
  CHECK(coded.Generate("two.json two.json -q --check").Status == 1);  // two more are not there
}
