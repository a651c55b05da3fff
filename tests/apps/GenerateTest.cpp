// The program itself, run as a user runs it.
#include "adapters/satellite/StringResources.h"
#include "adapters/vb6files/CodePage.h"
#include "tests/support/Golden.h"
#include "tests/support/RunProgram.h"
#include "tests/support/TemporaryFolder.h"

#include <doctest/doctest.h>

#include <nlohmann/json.hpp>

#include <filesystem>

using namespace formwizard::tests;

namespace {

std::string Quoted(const std::string& argument) { return '"' + argument + '"'; }

struct Workplace {
  TemporaryFolder Folder;
  std::string Home = Folder / "project";
  std::string Project = Home + "/Project1.vbp";

  explicit Workplace(const std::string& sample = "new-project") {
    CopySample(sample, Home);
    CHECK(Run("dictionary import \"" FORMWIZARD_SOURCE_DIR "/samples/dictionary.json\" " + Dictionary()).Status == 0);
  }
  std::string Dictionary() const { return Quoted(Folder / "d.sqlite"); }

  Outcome Run(const std::string& arguments) const { return RunProgram(FORMWIZARD_PROGRAM, arguments, Folder); }
  std::string Generation() const {
    return "generate --project " + Quoted(Project) + " --dictionary " + Dictionary() +
           " --toolbox \"" FORMWIZARD_SOURCE_DIR "/samples/toolbox.ini\" --profile outility.ini ";
  }
  Outcome Generate(const std::string& arguments) const { return Run(Generation() + arguments); }
  Outcome Describe(const std::string& json, const std::string& arguments = "") const {
    WriteFile(Folder / "form.json", json);
    return Generate("form.json " + arguments);
  }
};

const std::string Typical = "--class Sample.Person --fields Name,Home.City --set Columns=2";

}  // namespace

TEST_CASE("The typical request gives exactly the expected project") {
  Workplace work;
  const Outcome made = work.Generate(Typical + " --journal journal.jsonl");
  CHECK(made.Error.empty());
  CHECK(made.Status == 0);
  CHECK(FilesIn(work.Home) == FilesIn(FORMWIZARD_SOURCE_DIR "/tests/golden/typical-project"));
  CHECK(ReadFile(work.Folder / "journal.jsonl") == Golden("typical-journal.jsonl"));
  CHECK(ReadFile(work.Folder / "outility.ini") == "[OstrelFormWizard]\r\nLastConnect=Samples\r\n");
}

TEST_CASE("A form comes out the same alone and in a batch, and names go on counting") {
  Workplace alone;
  CHECK(alone.Generate("--class Sample.Company --fields Name,Revenue").Status == 0);
  Workplace batch;
  const std::string company = R"({"class":"Sample.Company","fields":["Name","Revenue"]})";
  WriteFile(batch.Folder / "person.json", R"({"class":"Sample.Person","fields":["Name"]})");
  WriteFile(batch.Folder / "company.json", company);
  CHECK(batch.Generate("person.json company.json company.json").Status == 0);
  const auto files = FilesIn(batch.Home);
  CHECK(files.contains("frmPerson.frm"));
  CHECK(files.contains("frmCompany2.frm"));
  // Only the first form of the batch is the start-up form, whose LinkTopic is Form1.
  std::string first = FilesIn(alone.Home).at("frmCompany.frm");
  std::string second = files.at("frmCompany.frm");
  CHECK(first == second);
}

TEST_CASE("Every kind of field and setting goes through the description") {
  Workplace work;
  const Outcome made = work.Describe(R"({ "class": "Sample.Person", "settings": { "Columns": 2, "Menu": false },
    "fields": [ "Name", { "property": "DOB", "caption": "Né le" }, "Age",
                { "property": "SSN", "readOnly": true, "updateAfter": "Name" },
                { "property": "Spouse.Name", "combo": { "query": "BySearch", "column": "SSN" } },
                "Spouse.DOB", { "property": "FavoriteColors", "rows": 4 }, "Phones", "Photo", "Notes" ] })",
                                     "--json");
  CHECK(made.Error.empty());
  CHECK(made.Status == 0);
  const auto summary = nlohmann::json::parse(made.Out);
  std::string fields;
  for (const auto& field : summary["forms"][0]["fields"]) {
    fields += field["ControlName"].get<std::string>() + ":" + std::to_string(field["FieldKind"].get<int>()) + ":" +
              std::to_string(field["RowCount"].get<int>()) + " ";
  }
  CHECK(fields ==
        "txtName:1:1 txtDOB:1:1 conAge:2:1 conSSN:2:1 cmbSpouseName:4:1 refSpouseDOB:3:1 lstFavoriteColors:5:4 "
        "lvwPhones:6:3 imgPhoto:7:5 txtNotes:8:5 ");
  CHECK(summary["forms"][0]["component"] == "frmPerson");
  CHECK(summary["forms"][0]["layout"]["CharWidth"] == 135);
  CHECK(summary["files"].size() == 3);
  const auto files = FilesIn(work.Home);
  const std::string& frm = files.at("frmPerson.frm");
  CHECK(frm.find("\"N\xE9 le\"") != std::string::npos);
  CHECK(frm.find("    rs.Execute \"\", \"\", \"\"\r\n") != std::string::npos);
  CHECK(
      frm.find("Private Sub txtName_LostFocus()\r\n    SyncScreenToObject\r\n    conSSN.Caption = m_object.SSN\r\n") !=
      std::string::npos);
  CHECK(files.at("frmPerson.frx") == "\x08txtNotes");
}

TEST_CASE("What the environment refuses is reported under its routine, the form stands and the status says so") {
  Workplace work;
  // A label has no LostFocus event.
  const Outcome made = work.Describe(R"({ "class": "Sample.Person", "fields": [ "Age",
    { "property": "Name", "readOnly": true, "updateAfter": "Age" } ] })");
  CHECK(made.Status == 1);
  CHECK(made.Error ==
        "ostrel-form-wizard: Error occurred in procedure WriteSubControlEvents : Event handler is invalid: "
        "conAge_LostFocus: there is no such event\n");
  CHECK(made.Out.find("frmPerson: 2 fields of Sample.Person, incomplete\n") != std::string::npos);
  CHECK(FilesIn(work.Home).contains("frmPerson.frm"));

  // Names that are illegal in the environment: a popup is named after the property, which keeps its "%" and its blank;
  // two properties make the same control name.
  WriteFile(work.Folder / "odd.json", R"({"systems":[{"name":"S","connect":"c","classes":[{"Name":"A.B","properties":[
    {"Name":"%Owner","Datatype":0,"Type":"A.B"}, {"Name":"two words"}, {"Name":"%Id"}, {"Name":"sys_Id"}]}]}]})");
  CHECK(work.Run("dictionary import odd.json d.sqlite").Status == 0);
  const Outcome odd =
      work.Describe(R"({"class":"A.B","fields":["%Owner.two words","%Owner.%Id","two words","%Id","sys_Id"]})");
  CHECK(odd.Status == 1);
  for (const char* message :
       {"WriteConField - name is txttwo words : Not a legal object name: "
        "'txttwo words'",
        "WriteConField - name is txtsys_Id : Name conflicts: the form already has a control 'txtsys_Id'",
        "WriteConMenus : Not a legal object name: 'mnu%Owner'",
        "WriteSubContextMenuReference : Event handler is invalid: mnu%OwnerChange_Click"}) {
    CHECK_MESSAGE(odd.Error.find(message) != std::string::npos, odd.Error);
  }
  CHECK(FilesIn(work.Home).contains("frmB.frm"));
}

TEST_CASE("A control library that is not known costs its control and says what to supply") {
  Workplace work;
  const Outcome made = work.Run("generate --project " + Quoted(work.Project) + " --dictionary " + work.Dictionary() +
                                " --profile o.ini " + Typical);
  CHECK(made.Status == 1);
  CHECK(
      made.Error.find("WriteForm : ActiveX control 'OSTRELQUERY.OstrelQueryCtrl.1' not found: copy what stands behind "
                      "\"Object=\"") != std::string::npos);
  CHECK(made.Error.find("--toolbox") != std::string::npos);
  CHECK(made.Error.find("Error occurred in procedure WriteConHelper  : ActiveX control") != std::string::npos);
}

TEST_CASE("Dry run, diff and check write nothing and say what would be") {
  Workplace work;
  const auto before = FilesIn(work.Home);
  const Outcome dry = work.Generate(Typical + " --dry-run");
  CHECK(dry.Status == 0);
  CHECK(dry.Out == "would write " + work.Home + "/frmPerson.frm\nfrmPerson: 2 fields of Sample.Person\nwould write " +
                       work.Project + "\n");
  const Outcome diff = work.Generate(Typical + " --dry-run --diff");
  CHECK(diff.Out.find("--- /dev/null\n+++ " + work.Home + "/frmPerson.frm\n@@ -0,0 +1,") == 0);
  CHECK(diff.Out.find("-Form=Form1.frm\r\n+Form=frmPerson.frm\r\n") != std::string::npos);
  CHECK(work.Generate(Typical + " --check").Status == 1);
  CHECK(FilesIn(work.Home) == before);
  CHECK_FALSE(std::filesystem::exists(work.Folder / "outility.ini"));
}

TEST_CASE("A link to a project stands for the project") {
  Workplace work;
  const std::filesystem::path link = work.Folder.Path() / "link.vbp";
  std::error_code error;
  std::filesystem::create_symlink(NativePath(work.Project), link, error);
  if (error) return;  // not on this machine
  work.Project = work.Folder / "link.vbp";
  CHECK(work.Generate(Typical).Status == 0);
  CHECK(std::filesystem::is_symlink(link));
  CHECK(FilesIn(work.Home) == FilesIn(FORMWIZARD_SOURCE_DIR "/tests/golden/typical-project"));
}

TEST_CASE("Files and folders may have names in any script") {
  Workplace work;
  const std::string folder = work.Folder / "Gebühren Žluťoučký 項目";
  std::filesystem::rename(NativePath(work.Home), NativePath(folder));
  for (const char* name : {"d.sqlite", "form.json"}) {
    const std::string bytes =
        name[0] == 'f' ? R"({"class":"Sample.Person","fields":["Name","Home.City"]})" : ReadFile(work.Folder / name);
    WriteFile(folder + "/" + name, bytes);
  }
  const auto at = [&](const std::string& name) { return Quoted(folder + "/" + name); };
  const Outcome made =
      work.Run("generate --project " + at("Project1.vbp") + " --dictionary " + at("d.sqlite") +
               " --toolbox \"" FORMWIZARD_SOURCE_DIR "/samples/toolbox.ini\" --profile " + at("outility.ini") +
               " --journal " + at("journal.jsonl") + " --set Columns=2 " + at("form.json"));
  CHECK(made.Error.empty());
  CHECK(made.Status == 0);
  CHECK(made.Out.starts_with("writing " + folder + "/frmPerson.frm\n"));
  CHECK(ReadFile(folder + "/frmPerson.frm") == Golden("typical-project/frmPerson.frm"));
  CHECK(ReadFile(folder + "/journal.jsonl") == Golden("typical-journal.jsonl"));
  CHECK(ReadFile(folder + "/outility.ini") == "[OstrelFormWizard]\r\nLastConnect=Samples\r\n");
  CHECK(work.Run("dictionary export " + at("d.sqlite") + " " + at("out.json")).Status == 0);
  CHECK(work.Run("dictionary import " + at("out.json") + " " + at("d.sqlite")).Status == 0);
}

TEST_CASE("A larger project gets the form beside what it has, and keeps its control libraries") {
  Workplace work("library");
  work.Project = work.Home + "/Lending.vbp";
  const auto before = FilesIn(work.Home);
  const Outcome made =
      work.Generate("--class Library.Book --fields Title,Edition,Cover,Abstract,Keywords,Borrower.Name");
  CHECK(made.Error.empty());
  CHECK(made.Status == 0);
  auto after = FilesIn(work.Home);
  // The project has a frmBook already.
  CHECK(after.at("frmBook2.frm")
            .find("Caption         =   \"\xC9"
                  "dition\"\r\n") != std::string::npos);
  CHECK(after.erase("frmBook2.frm") == 1);
  CHECK(after.erase("frmBook2.frx") == 1);
  std::string project = after.at("Lending.vbp");
  const std::string form = "Form=frmBook2.frm\r\n",
                    object = "Object={2B7E4F10-9C3D-4A55-8E61-7D0F3B9A1C24}#1.0#0; OSTRELQUERY.OCX\r\n";
  for (const std::string& added : {form, object}) {
    if (project.find(added) != std::string::npos) project.erase(project.find(added), added.size());
  }
  after["Lending.vbp"] = project;
  CHECK(after == before);
}

TEST_CASE("Bad input ends with its status, a message and everything as it was") {
  Workplace work;
  WriteFile(work.Folder / "broken.json", "{ \"class\": \"Sample.Person\",\n  \"fields\": [ \"Name\" \n");
  WriteFile(work.Folder / "rows.json", R"({"class":"Sample.Person","fields":["Name",{"property":"Notes","rows":0}]})");
  WriteFile(
      work.Folder / "query.json",
      R"({"class":"Sample.Person","fields":[{"property":"Spouse.Name","combo":{"query":"Statistics","column":"City"}}]})");
  WriteFile(work.Folder / "wide.ini", "[OstrelFormWizard]\r\nColumns=5\r\n");
  const auto before = FilesIn(work.Home);
  struct Case {
    std::string arguments;
    int status;
    std::string message;
  };
  for (const Case& c : {
           Case{"", 2, "give --class and --fields, or one or more form descriptions"},
           Case{"--class Sample.Person", 2, "--class and --fields belong together"},
           Case{"--class Sample.Person --fields Name --set Columns=0", 2, "Columns must be from 1 to 4, found 0"},
           Case{"--class Sample.Person --fields Name --set Columns=5", 2, "Columns must be from 1 to 4, found 5"},
           Case{"--class Sample.Person --fields Name --set Menu=maybe", 2, "Menu must be 1, 0, True or False"},
           Case{"--class Sample.Person --fields Name --set Colour=1", 2, "there is no setting \"Colour\""},
           Case{"--nonsense", 2, "--nonsense"},
           Case{"--class Sample.Person --fields Name --profile wide.ini", 3,
                "wide.ini: [OstrelFormWizard]: Columns must be from 1 to 4, found 5"},
           Case{"--class Sample.Nobody --fields Name", 3,
                "there is no persistent class \"Sample.Nobody\"; there are Billing"},
           Case{"--class Sample.Person --fields Name,Colour", 3,
                "offers no property \"Colour\"; there are Name, SSN, DOB"},
           Case{"--class Sample.Person --fields Home", 3,
                "\"Home\" cannot be chosen: of the object \"Home\" there are Home.Street"},
           Case{"--class Sample.Person --fields Name.First", 3, "property \"Name\" is no object"},
           Case{"--class Sample.Person --fields Name,Name", 3, "the property Name is chosen twice"},
           Case{"--class Sample.Person --fields Name --system Nowhere", 3,
                "there is no system \"Nowhere\"; there are Samples, Archive"},
           Case{"--class Sample.Person --fields Name --code-page 4711", 3, "code page 4711 is not known"},
           Case{"missing.json", 3, "missing.json: the form description cannot be read"},
           Case{"broken.json", 3, "broken.json:3:1: this is no valid JSON"},
           Case{"rows.json", 3, "rows.json: fields[1].rows: expected a whole number from 1"},
           Case{"query.json", 3,
                "there is no query that returns the object id \"Statistics\"; there are Extent, ByName, BySearch"},
       }) {
    CAPTURE(c.arguments);
    const bool ownProfile = c.arguments.find("--profile") != std::string::npos;
    std::string command = work.Generation();
    if (ownProfile) command.erase(command.find("--profile"));
    const Outcome made = work.Run(command + " " + c.arguments);
    CHECK(made.Status == c.status);
    CHECK_MESSAGE(made.Error.find(c.message) != std::string::npos, made.Error);
    CHECK(FilesIn(work.Home) == before);
  }
  for (const auto& [project, dictionary] :
       {std::pair{std::string("none.vbp"), work.Dictionary()}, std::pair{work.Project, std::string("none.sqlite")},
        std::pair{work.Home + "/Form1.frm", work.Dictionary()}, std::pair{work.Project, Quoted(work.Project)}}) {
    CHECK(work.Run("generate --project " + Quoted(project) + " --dictionary " + dictionary + " --profile o.ini " +
                   Typical)
              .Status == 3);
  }
  CHECK(FilesIn(work.Home) == before);
}

TEST_CASE("A character that the code page lacks stops the run before anything is written") {
  Workplace work;
  const auto before = FilesIn(work.Home);
  WriteFile(work.Folder / "good.json", R"({"class":"Sample.Company","fields":["Name"]})");
  const Outcome made =
      work.Describe(R"({"class":"Sample.Person","fields":[{"property":"Name","caption":"Имя"}]})", "good.json");
  CHECK(made.Status == 3);
  CHECK(made.Error.find("the text \"Имя\" cannot be written in code page 1252, which lacks its character U+0418") !=
        std::string::npos);
  CHECK(FilesIn(work.Home) == before);
  CHECK(work.Describe(R"({"class":"Sample.Person","fields":[{"property":"Name","caption":"Имя"}]})", "--code-page 1251")
            .Status == 0);
  CHECK(FilesIn(work.Home).at("frmPerson.frm").find("\"\xC8\xEC\xFF\"") != std::string::npos);
}

TEST_CASE("The dictionary can be looked at") {
  const Workplace work;
  const std::string of = " --dictionary " + work.Dictionary();
  CHECK(work.Run("systems" + of).Out == "Samples\tlocal:samples\nArchive\tlocal:archive\n");
  CHECK(work.Run("classes" + of).Out ==
        "Billing.Core.Invoice\nLibrary.Book\nSample.Company\nSample.Employee\nSample.Person\n");
  CHECK(work.Run("classes --system Archive --json" + of).Out == "[\n  {\"Name\":\"Archive.Record\"}\n]\n");
  CHECK(work.Run("classes --all" + of).Out.find("Sample.Address\t0\t0\n") != std::string::npos);
  CHECK(
      work.Run("properties --class Sample.Address" + of).Out.find("City\tCity\t%Library.String\t1\t0\t\t1\t1\t50\n") !=
      std::string::npos);
  CHECK(work.Run("queries --class Sample.Person" + of).Out.find("ByName\t1\t[\"ID\",\"Name\",\"DOB\"]\t1\n") !=
        std::string::npos);
  CHECK(work.Run("properties --class Nobody" + of).Status == 3);
  CHECK(work.Run("classes --system Nowhere" + of).Status == 3);
  CHECK(work.Run("dictionary export d.sqlite -").Out.starts_with("{ \"systems\": [\n"));
  CHECK(work.Run("--version").Out.starts_with("ostrel-form-wizard "));
  CHECK(work.Run("").Status == 2);
}

TEST_CASE("Forms speak the language that is asked for, in the code page of the project") {
  struct Language {
    const char* Name;
    int CodePage;
  };
  for (const Language& language : {Language{"DEU", 1252}, Language{"FRA", 1252}, Language{"JPN", 932},
                                   Language{"KOR", 949}, Language{"CHS", 936}, Language{"CHT", 950}}) {
    CAPTURE(language.Name);
    const auto folder = std::filesystem::path(FORMWIZARD_PROGRAM).parent_path();
    const std::string library =
        ReadFile((folder / ("OstrelFormWizard" + std::string(language.Name) + ".dll")).string());
    const auto texts = formwizard::adapters::satellite::ReadStringTable(library);
    const formwizard::adapters::vb6files::CodePage codePage(language.CodePage);
    Workplace work;
    const Outcome made =
        work.Generate(Typical + " --language " + language.Name + " --code-page " + std::to_string(language.CodePage));
    CHECK(made.Error.empty());
    CHECK(made.Status == 0);
    const std::string form = FilesIn(work.Home).at("frmPerson.frm");
    constexpr int save = 202;
    CHECK(form.find("Caption         =   \"" + codePage.Encode(texts->at(save)) + "\"") != std::string::npos);
  }
  // A language that the code page cannot hold ends the run before anything is written.
  Workplace work;
  const auto before = FilesIn(work.Home);
  const Outcome refused = work.Generate(Typical + " --language JPN");
  CHECK(refused.Status == 3);
  CHECK(refused.Error.find("1252") != std::string::npos);
  CHECK(FilesIn(work.Home) == before);
}
