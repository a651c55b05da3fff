// Forms that come out as they were asked for.
#include "tests/apps/Workplace.h"
#include "tests/support/Golden.h"

#include <nlohmann/json.hpp>

using namespace formwizard::tests;
using namespace std::string_literals;

TEST_CASE("The typical request gives exactly the expected project, whatever script the names of its files are in") {
  Workplace work;
  work.Profile = "Einstellungen 項目/outility.ini";
  WriteFile(work.Folder / work.Profile, "");
  const std::string journal = work.Folder / "Änderungen 項目.jsonl";
  const Outcome made =
      work.Describe(R"({"class":"Sample.Person","settings":{"Columns":3},"fields":["Name","Home.City"]})",
                    "--set Columns=2 --journal " + Quoted(journal));  // the command line wins
  CheckDone(made);
  CHECK(made.Out.starts_with("wrote " + work.Home + "/frmPerson.frm\n"));
  CHECK(work.Files() == FilesIn(SourceFolder() + "/tests/golden/typical-project"));
  CHECK(ReadFile(journal) == Golden("typical-journal.jsonl"));
  CHECK(ReadFile(work.Folder / work.Profile) == "[OstrelFormWizard]\r\nLastConnect=Samples\r\n");
}

TEST_CASE(
    "A description gives the form that the same choices in the windows give, and its summary says what is in it") {
  const Workplace work;
  const Outcome made = work.Describe(R"({"class": " sample.person", "settings": {"Columns": 2}, "fields": ["Name",
    {"property": "home.CITY ", "caption": "Town"}, {"property": "Age", "updateAfter": " name"},
    {"property": "Notes", "rows": 7}, {"property": "spouse.Name", "combo": {"query": "BYname", "column": "name"}}]})",
                                     "--json --system SAMPLES");
  CheckDone(made);
  CheckSameFiles(work.Files(), FilesIn(SourceFolder() + "/tests/golden/addin-project"));
  const auto summary = nlohmann::json::parse(made.Out);
  const auto& form = summary["forms"][0];
  std::string fields;
  for (const auto& field : form["fields"]) {
    fields += field["ControlName"].get<std::string>() + field["FieldKind"].dump() + field["RowCount"].dump() + " ";
  }
  CHECK(fields == "txtName11 txtHomeCity11 conAge21 txtNotes87 cmbSpouseName41 ");
  CHECK(form["component"] == "frmPerson");
  CHECK(form["layout"]["CharWidth"] == 135);
  CHECK(summary["files"].size() == 3);
}

TEST_CASE("A start-up form that has code is reused with notes, also on what is wrong with it, a module is not reused") {
  const Workplace coded, module;
  WriteFile(coded.Home + "/Form1.frm", coded.Files().at("Form1.frm") + "Sub Form_Load()\r\nEnd Sub\r\n");
  const Outcome made = coded.Generate(Typical + " --json");
  CHECK(made.Status == 0);
  const auto notes = nlohmann::json::parse(made.Out)["forms"][0]["notes"];
  REQUIRE(notes.size() == 2);
  CHECK(Has(notes[0], "frmPerson was the form Form1"));
  CHECK(Has(notes[1], "/frmPerson.frm:"));
  CHECK(Has(notes[1], ": error: a second procedure is called Form_Load, as that of line "));
  std::string said;
  for (const auto& note : notes) said += "ostrel-form-wizard: note: " + note.get<std::string>() + "\n";
  CHECK(made.Error == said);

  std::string project = module.Files().at("Project1.vbp");
  const std::string form = "Form=Form1.frm";
  WriteFile(module.Project, project.replace(project.find(form), form.size(), "Module=Form1; Form1.bas"));
  WriteFile(module.Home + "/Form1.bas", "Attribute VB_Name = \"Form1\"\r\n");
  CheckDone(module.Generate(Typical));
  for (const char* line : {"\nModule=Form1; Form1.bas\r\n", "\nForm=frmPerson.frm\r\n", "\nStartup=\"Form1\"\r\n"}) {
    CHECK_MESSAGE(Has(module.Files().at("Project1.vbp"), line), line);
  }
}

TEST_CASE("A larger project, here behind a link, gets the form beside what it has, and keeps its control libraries") {
  Workplace work("library");
  work.Project = work.Home + "/Lending.vbp";
  const auto before = work.Files();
  const std::filesystem::path link = work.Folder.Path() / "link.vbp";
  std::error_code error;
  std::filesystem::create_symlink(NativePath(work.Project), link, error);
  if (!error) work.Project = work.Folder / "link.vbp";  // otherwise not on this machine
  CheckDone(work.Generate("--class Library.Book --fields Title,Edition,Cover,Abstract,Keywords,Borrower.Name"));
  CHECK(std::filesystem::is_symlink(link) == !error);
  // The project has a frmBook already.
  auto files = work.Files();
  CHECK(Has(files["frmBook2.frm"], "Caption         =   \"\xC9\x64ition\"\r\n"));
  CHECK(files.erase("frmBook2.frm") + files.erase("frmBook2.frx") == 2);
  std::string& project = files["Lending.vbp"];
  for (const std::string line :
       {"Form=frmBook2.frm\r\n", "Object={2B7E4F10-9C3D-4A55-8E61-7D0F3B9A1C24}#1.0#0; OSTRELQUERY.OCX\r\n"}) {
    REQUIRE(Has(project, line));
    project.erase(project.find(line), line.size());
  }
  CHECK(files == before);
}

TEST_CASE("What the environment would refuse of a new form or of its project is a note and no failure") {
  const Workplace work;
  auto dictionary = nlohmann::json::parse(ReadFile(Samples + "dictionary.json"));
  auto &classes = dictionary["systems"][0]["classes"], properties = nlohmann::json::array();
  std::string fields;
  for (int i = 0; i < 130; ++i) {
    properties.push_back({{"Name", "P" + std::to_string(i)}});
    fields += ",P" + std::to_string(i);
  }
  classes.push_back({{"Name", "Sample.Wide"}, {"properties", properties}});
  WriteFile(work.Folder / "wide.json", dictionary.dump());
  CheckDone(work.Run("dictionary import --force wide.json " + work.Dictionary));
  WriteFile(work.Project, work.Files().at("Project1.vbp") + "RelatedDoc=gone.txt\r\n");
  const std::string wide = "--dry-run --class Sample.Wide --set Columns=4 --fields " + fields.substr(1);
  const Outcome made = work.Generate(wide + " --json");
  CHECK(made.Status == 0);
  const auto json = nlohmann::json::parse(made.Out);
  CHECK(Has(json["forms"][0]["notes"][0], "is the name after the 254th"));
  CHECK(Has(json["notes"][0], "RelatedDoc gone.txt is not there"));
  CHECK(work.Generate(wide + " --quiet").Error == "");
  CHECK(Has(work.Generate(Typical).Error, ": error: RelatedDoc gone.txt is not there; restore the file"));
}

TEST_CASE("The query control comes from any project that uses it, and without it a dry run is refused, too") {
  const std::string golden = SourceFolder() + "/tests/golden/typical-project";
  Workplace work;
  work.Toolbox.clear();
  CHECK(work.Generate(Typical + " --dry-run").Status == 3);
  work.Toolbox = " --toolbox " + Quoted(golden + "/Project1.vbp");
  CheckDone(work.Generate(Typical));
  CHECK(work.Files() == FilesIn(golden));
  work.Toolbox.clear();  // the project has it now
  CheckDone(work.Generate(Typical));
}
