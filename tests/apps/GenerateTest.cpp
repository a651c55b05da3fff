// The program itself, run as a user runs it.
#include "adapters/satellite/StringResources.h"
#include "system/CodePage.h"
#include "tests/apps/Workplace.h"
#include "tests/support/Golden.h"

#include <nlohmann/json.hpp>

#include <random>
#include <regex>

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

TEST_CASE("What the environment refuses is reported under its routine, the form stands and the status says so") {
  Workplace work;
  // A label has no LostFocus event.
  const Outcome made = work.Describe(R"({ "class": "Sample.Person", "fields": [ "Age",
    { "property": "Name", "readOnly": true, "updateAfter": "Age" } ] })");
  CHECK(made.Status == 5);
  CHECK(made.Error ==
        "ostrel-form-wizard: Error occurred in procedure WriteSubControlEvents : Event handler is invalid: "
        "conAge_LostFocus: there is no such event\n");
  CHECK(Has(made.Out, "frmPerson: 2 fields of Sample.Person, incomplete\n"));
  CHECK(work.Files().contains("frmPerson.frm"));

  // Names that are illegal in the environment: a popup is named after the property, which keeps its "%";
  // two properties make the same control name.
  WriteFile(work.Folder / "odd.json", R"({"systems":[{"name":"S","connect":"c","classes":[{"Name":"A.B","properties":[
    {"Name":"%Owner","Datatype":0,"Type":"A.B"}, {"Name":"%Id"}, {"Name":"sys_Id"},
    {"Name":"ThirtyFiveLettersInTheNameOfThisOne","Collection":"list"}]}]}]})");
  CheckDone(work.Run("dictionary import odd.json " + work.Dictionary));
  const auto before = work.Files();
  for (const auto& [fields, message] :
       {std::pair{R"("%Owner.%Id")", R"(1:26: a control for %Owner.%Id would be called "mnu%Owner", which is no name)"},
        {R"("%Id","sys_Id")", R"(1:32: a control for sys_Id would be called "lblsys_Id", which another control)"},
        {R"("ThirtyFiveLettersInTheNameOfThisOne")",
         R"(AddToEnd", which has 46 characters, and Visual Basic takes 40; leave)"}}) {
    const Outcome refused = work.Describe(R"({"class":"A.B","fields":[)"s + fields + "]}");
    CHECK(refused.Status == 3);
    CHECK_MESSAGE(Has(refused.Error, message), refused.Error);
    CHECK(work.Files() == before);
  }
  const Outcome odd = work.Describe(R"({"class":"A.B","fields":["%Owner.%Id","%Id","sys_Id"]})", "--allow-incomplete");
  CHECK(odd.Status == 5);
  for (const char* message :
       {"WriteConField - name is txtsys_Id : Name conflicts: the form already has a control 'txtsys_Id'",
        "WriteConMenus : Not a legal object name: 'mnu%Owner'",
        "WriteSubContextMenuReference : Event handler is invalid: mnu%OwnerChange_Click"}) {
    CHECK_MESSAGE(Has(odd.Error, message), odd.Error);
  }
  CHECK(work.Files().contains("frmB.frm"));
}

TEST_CASE(
    "A form that cannot be called what it should is refused before it is made, and a path takes the longest name") {
  Workplace work;
  const std::string longest = "N" + std::string(35, 'o') + "n";
  WriteFile(work.Folder / "odd.json", R"({"systems":[{"name":"S","connect":"c","classes":[
    {"Name":"A.B","properties":[{"Name":"Home","Datatype":0,"Serial":1,"Type":"A.B"}, {"Name":"Home.Zip"}, {"Name":"Zip"}, {"Name":"Zip.Code"}]},
    {"Name":"A.project1","properties":[{"Name":"x"}]}, {"Name":"A.B)" +
                                          longest + R"(","properties":[{"Name":"x"}]},
    {"Name":"A.)" + longest + R"(","properties":[{"Name":"x"}]}]}]})");
  CheckDone(work.Run("dictionary import odd.json " + work.Dictionary));
  // Each of them is its own, so that the first may be chosen beside the second.
  const Outcome dotted = work.Generate("--class a.b --fields \"home.zip,Home.Zip.Code,zip.code\" --json");
  CheckDone(dotted);
  std::string fields;
  const auto summary = nlohmann::json::parse(dotted.Out);
  for (const auto& field : summary["forms"][0]["fields"]) {
    fields += field["ControlName"].get<std::string>() + " " + field["property"].get<std::string>() + "; ";
  }
  CHECK(fields == "txtHomeZip Home.Zip; txtHomeZipCode Home.Zip.Code; txtZipCode Zip.Code; ");

  CheckDone(work.Generate("--class A." + longest + " --fields x"));  // 40 characters
  WriteFile(work.Home + "/Two.vbp", "Type=Exe\r\nForm=frmB.frm\r\nName=\"FRMProject1\"\r\n");
  auto form = work.Files().at("frmB.frm");
  WriteFile(work.Home + "/frmB.frm", std::regex_replace(form, std::regex("frmB"), "FRMb"));
  const auto before = work.Files();
  for (const auto& [project, name, message] :
       {std::tuple{"Project1", longest,
                   "which has 41 characters, and Visual Basic takes 40; rename or remove the form frmNooo"},
        {"Project1", "B" + longest, "which has 41 characters, and Visual Basic takes 40; give the class another"},
        {"Two", "project1"s, "which is the project's own name; rename"},
        {"Two", "B"s,
         "\"frmB\", and the project has \"FRMb\", in which only the case of letters is another; rename"}}) {
    work.Project = work.Home + "/" + project + ".vbp";
    const std::string fieldsOf = name == "B" ? "Zip" : "x";
    const Outcome made = work.Generate("--class A." + name + " --fields " + fieldsOf);
    CHECK(made.Status == 3);
    CHECK_MESSAGE(Has(made.Error, message), made.Error);
    CHECK(made.Error.starts_with("ostrel-form-wizard: --class A." + name + ": the form of class A." + name));
    CHECK(work.Files() == before);
    CHECK(work.Generate("--dry-run --allow-incomplete --class A." + name + " --fields " + fieldsOf).Status == 5);
  }
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
    const std::string text = files.at(file), path = work->Home + "/" + file;
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

TEST_CASE("Bad input ends with its status, a message and everything as it was") {
  Workplace work;
  WriteFile(work.Folder / "broken.json", "{ \"class\": \"Sample.Person\",\n  \"fields\": [ \"Name\" \n");
  WriteFile(work.Folder / "rows.json", R"({"class":"Sample.Person","fields":["Name",{"property":"Notes","rows":0}]})");
  WriteFile(work.Folder / "query.json", R"({"class":"Sample.Person","fields":[
    {"property":"Spouse.Name","combo":{"query":"Statistics","column":"City"}}]})");
  WriteFile(work.Folder / "1e400.json",
            R"({"class":"Sample.Person","fields":["Name",{"property":"Notes","rows":1e400}]})");
  WriteFile(work.Folder / "lines.json",
            R"({"class":"Sample.Person","fields":[{"property":"Phones","caption":"a\r\nShell"}]})");
  WriteFile(work.Folder / "five.json", R"({"class":"Sample.Person","fields":[5]})");
  const std::string good = R"([{"class":"Sample.Person","fields":["Name"]},)";
  WriteFile(work.Folder / "array.json", good + R"({"class":"Sample.Person","fields":["Name",5]}])");
  WriteFile(work.Folder / "nobody.json", good + R"({"class":"Sample.Nobody","fields":["Name"]}])");
  WriteFile(work.Folder / "none.json", "[]");
  WriteFile(work.Folder / "nested.json", "[[]]");
  WriteFile(work.Folder / "half.json", "\xFF\xFE[\0]"s);
  WriteFile(work.Folder / "late.json", R"({"class":1,"fields":[1,)");
  WriteFile(work.Folder / "combo.json", R"({"fields":["a",{"combo":{"query":"Q"},"rows":0}],"class":"A.B"})");
  WriteFile(work.Folder / "deep.json", std::string(100'000, '['));
  WriteFile(work.Folder / "empty/read.me", "\r\n\n");
  WriteFile(work.Folder / "list.txt", "rows.json");
  WriteFile(work.Folder / "types.json", R"({"class":"Sample.Person","fields":[{"property":"Notes","rows":[")" +
                                            std::string(100'000, 'x') + "\"]}]}");
  const auto before = work.Files();
  const std::string name = "--class Sample.Person --fields Name";
  struct Case {
    std::string Arguments;
    int Status;
    std::string Message;
  };
  for (const Case& c :
       {Case{"--fields Name", 2, "--class is missing; give --class NAME, the class"},
        Case{name + " --set Columns=0", 2, "Columns must be a whole number from 1 to 4, found \"0\""},
        Case{name + " --set Menu=maybe", 2, "Menu must be 1, 0, True or False"},
        Case{name + " --toolbox -", 2, "--toolbox: this is a file that is read in any order or replaced as a whole"},
        Case{name + ".First", 3, "property \"Name\" is no object"},
        Case{name + " --system Nowhere", 3, "there is no system \"Nowhere\"; available: Archive, Samples"},
        Case{"broken.json", 3, "broken.json:3:1: this is not valid JSON"},
        Case{"rows.json", 3, "rows.json:1:70: fields[1].rows: expected a whole number from 1"},
        Case{"query.json", 3,
             "query.json:2:48: there is no query that returns the object id \"Statistics\"; available: Extent, "
             "BySearch, ByName"},
        Case{"1e400.json", 3, "1e400.json:1:70: this number is out of range"},
        Case{"lines.json", 3, "lines.json:1:67: fields[0].caption: expected a text without line breaks"},
        Case{"five.json", 3, "five.json:1:36: fields[0]: expected a property's name or an object, found 5"},
        Case{"late.json", 3, "late.json:1:24: this is not valid JSON"},  // said before that a class is a text
        Case{"array.json", 3, "array.json:1:88: [1].fields[1]: expected a property's name or an object, found 5"},
        Case{"nobody.json", 3, "nobody.json:1:55: there is no persistent class \"Sample.Nobody\""},
        Case{"none.json", 3, "none.json: no form is described in this array"},
        Case{"nested.json", 3, "nested.json:1:2: [0]: expected an object, found []"},
        Case{"half.json", 3, "half.json: the text begins like UTF-16 and is none"},
        Case{"combo.json", 3, "combo.json:1:37: fields[1].combo: \"column\" is missing"},
        Case{"deep.json", 3, "deep.json:1:17: nested more than 16 deep"},
        Case{"types.json", 3, "types.json:1:63: fields[0].rows: expected a whole number from 1 to 32767, found [\"x"},
        Case{"--descriptions-from empty", 3, "empty: this is a folder or a device; a list of form descriptions is"},
        Case{"--descriptions-from empty/read.me", 3, "read.me: no form description is listed"},
        Case{"--descriptions-from none.txt", 3, "none.txt: there is no such file"},
        Case{"--descriptions-from -", 3, "standard input: no form description is listed"},
        Case{"--descriptions-from - -", 3, "this is the list of form descriptions and cannot be one"},
        Case{"--descriptions-from rows.json", 3, "Notes\",\"rows\":0}]}: there is no such file"},
        Case{"--descriptions-from list.txt --journal list.txt --force", 2, "the run reads this file"},
        Case{std::string(5000, 'x') + ".json rows.json", 3, "xxx.json: "},
        Case{"--fields Name --class Sample.\x1b[31m" + std::string(5000, 'x'), 3, "--class Sample.\\x1B[31mxxx"},
        Case{name + " --dry-run --journal rows.json", 3, "rows.json: this file exists and is no journal"},
        Case{name + " --force --journal " + Quoted(work.Project), 2, "the run reads this file"},
        Case{name + " --journal none/journal.jsonl", 4, "journal.jsonl is as it was before"}}) {
    CAPTURE(c.Arguments);
    const Outcome made = work.Generate(c.Arguments);
    CHECK(made.Status == c.Status);
    CHECK_MESSAGE(Has(made.Error, c.Message), made.Error);
    CHECK(made.Error.size() < 2000);  // a screen
    CHECK(work.Files() == before);
  }
}

TEST_CASE("With --json standard output is one JSON document, whatever happens") {
  const Workplace work;
  const std::string in = " --json --dictionary " + work.Dictionary;
  for (const auto& [command, status] :
       {std::pair{"classes" + in, 0},
        {"systems --json --dictionary none", 3},
        {"classes --system Nowhere" + in, 3},
        {"queries --class Nobody" + in, 3},
        {"classes --json", 2},
        {"clases --json", 2},
        {"generate --json --project none.vbp --class A --fields B --dictionary " + work.Dictionary, 3}}) {
    CAPTURE(command);
    const Outcome made = work.Run(command);
    CHECK(made.Status == status);
    const auto json = nlohmann::json::parse(made.Out);
    CHECK(json.is_array() == (status == 0));
    if (status == 0) continue;
    CHECK(json["error"]["status"] == status);
    CHECK(Has(made.Error, json["error"]["message"].get<std::string>()));
  }
  CHECK(work.Generate(Typical + " --json --diff").Status == 2);
}

TEST_CASE("Of keys that nobody reads, those in the section of the settings are warned about") {
  Workplace work;
  WriteFile(work.Folder / work.Profile,
            "[Other]\r\nX=1\r\n[OstrelFormWizard]\r\n;Y=2\r\nMenu=1\r\n Colums=3\r\n"
            "lastconnect=Samples\r\n");
  const Outcome odd = work.Generate(Typical + " -n");
  CHECK(Has(odd.Error,
            "warning: outility.ini:6:2: [OstrelFormWizard]: nobody reads the key \"Colums\"; available: Columns"));
  CHECK(std::ranges::count(odd.Error, '\n') == 1);
  CHECK(work.Generate(Typical + " -nq").Error.empty());
}

TEST_CASE("Settings that cannot be written cost nothing") {
  Workplace work;
  work.Profile = work.Dictionary.substr(1, work.Dictionary.size() - 2) + "/outility.ini";  // below a file
  const Outcome made = work.Generate(Typical);
  CHECK(made.Status == 0);
  CHECK(Has(made.Error, "warning: " + work.Profile + ": the settings cannot be written"));
  CHECK(work.Files() == FilesIn(SourceFolder() + "/tests/golden/typical-project"));
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

#ifndef _WIN32
TEST_CASE("Output that does not arrive is a failure, but what was saved stays saved") {
  for (const char* lost : {">/dev/full", ">&-"}) {
    const Workplace work;
    for (const std::string& command :
         {"--help"s, "--version"s, "systems --dictionary " + work.Dictionary,
          "classes --json --dictionary " + work.Dictionary, "dictionary export " + work.Dictionary + " -"}) {
      CAPTURE(command);
      const Outcome listed = work.Run(command, lost);
      CHECK(listed.Status == 4);
      CHECK(Has(listed.Error, "standard output: "));
    }
    const Outcome made = work.Generate(Typical, lost);
    CHECK(made.Status == 5);
    CHECK(Has(made.Error, "Project1.vbp: the project was saved; after that: standard output: "));
    CHECK(work.Files() == FilesIn(SourceFolder() + "/tests/golden/typical-project"));
  }
}

TEST_CASE("A line of a project that leads to no file is named at once") {
  Workplace work;
  std::string folders;
  for (int i = 0; i < 20'000; ++i) folders += "a\\";
  for (const auto& [line, message] : {std::pair{"/dev/zero"s, "/dev/zero: this is a device"},
                                      {"C:\\a.frm", "C:"},
                                      {folders + "a.frm", "this path has 40"}}) {
    WriteFile(work.Project, "Type=Exe\r\nForm=" + line + "\r\n");
    const Outcome made = work.Generate(Typical);
    CHECK(made.Status == 3);
    CHECK(Has(made.Error, work.Project + ":2: "));
    CHECK_MESSAGE(Has(made.Error, message), made.Error);
  }
}
#endif

TEST_CASE("Properties are listed with what they lead to, and a class without forms has no description") {
  const Workplace work;
  const std::string of = "properties --dictionary " + work.Dictionary + " --class Sample.";
  const Outcome shown = work.Run(of + "Employee");
  CheckDone(shown);
  CHECK(Has(shown.Out,
            "Salary\ttext\t%Library.Numeric\tno\tno\t12\tSalary\n"
            "Company\tobject\tSample.Company\tyes\tno\t\tCompany\n"
            "Company.Name\treference\t%Library.String\tyes\tno\t80\tCompany Name\n"));
  CHECK(shown.Out.ends_with("\n%Concurrency\ttext\t%Library.Integer\tno\tno\t\tConcurrency\n"));
  const Outcome none = work.Run(of + "Address --description");
  CHECK(none.Status == 3);
  CHECK(Has(none.Error, "no form can be made for class \"Sample.Address\""));
}

TEST_CASE("A command or option that is mistyped is named, whatever else is missing") {
  const Workplace work;
  for (const auto& [line, message] :
       {std::pair{"generat --project x", "there is no command \"generat\"; available: generate, "},
        {"--versoin", "there is no option \"--versoin\" in front of a command; available: --version, --help; see"},
        {"properties --dictonary=a", "there is no option \"--dictonary\"; available: --dictionary, "},
        {"dictionary import a b -qv", "import: --quiet and --verbose exclude each other; give one of them; see"},
        {"classes --dictionary a --dictionary b", "--dictionary is given more than once"}}) {
    const Outcome made = work.Run(line);
    CHECK_MESSAGE(made.Status == 2, line);
    CHECK_MESSAGE(made.Error.starts_with("ostrel-form-wizard: "), made.Error);
    CHECK_MESSAGE(Has(made.Error, message), made.Error);
  }
}

TEST_CASE("Forms speak the language that is asked for, in the code page of the project") {
  const std::string library = Utf8(NativePath(BuiltProgram("ostrel-form-wizard")).parent_path() / "OstrelFormWizard");
  const Workplace work;
  for (const auto& [language, meant, number] : {std::tuple{"DEU", "german", 1252},
                                                {"DEA", "de-at.UTF-8", 1252},
                                                {"FRA", "fr", 1252},
                                                {"JPN", "ja_JP", 932},
                                                {"KOR", "\" KOR\"", 949},
                                                {"CHS", "chs", 936},
                                                {"CHT", "zh_TW", 950}}) {
    CAPTURE(meant);
    const auto texts = formwizard::adapters::satellite::ReadStringTable(ReadFile(library + language + ".dll"));
    constexpr int save = 202;
    const std::string caption = formwizard::system::CodePage(number).Encode(texts->at(save));
    const Outcome made =
        work.Generate(Typical + " --dry-run --diff --language " + meant + " --code-page " + std::to_string(number));
    CheckDone(made);
    CHECK(Has(made.Out, "Caption         =   \"" + caption + "\""));
  }
  CheckDone(work.Generate(Typical + " --dry-run --language en_GB"));
  for (const char* unknown : {"sv", "../DEU"}) {
    CHECK(work.Generate(Typical + " --dry-run --language " + unknown).Status == 2);
  }
}

TEST_CASE("A character that the code page lacks stops the run before anything is written") {
  const Workplace work;
  const auto before = work.Files();
  WriteFile(work.Folder / "good.json", R"({"class":"Sample.Company","fields":["Name"]})");
  const std::string cyrillic = R"({"class":"Sample.Person","fields":[{"property":"Name","caption":"Имя"}]})";
  const Outcome made = work.Describe(cyrillic, "good.json");
  CHECK(made.Status == 3);
  CHECK(Has(made.Error, "the text \"Имя\" cannot be written in code page 1252, which lacks its character U+0418"));
  CHECK(Has(made.Error, "nothing was written"));
  CHECK(work.Generate(Typical + " --language JPN").Status == 3);
  CHECK(work.Files() == before);
  CheckDone(work.Describe(cyrillic, "--code-page 1251"));
  CHECK(Has(work.Files().at("frmPerson.frm"), "\"\xC8\xEC\xFF\""));
}
