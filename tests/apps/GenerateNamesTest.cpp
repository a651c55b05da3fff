// What a form and its controls can be called, in which letters and in which language.
#include "adapters/satellite/StringResources.h"
#include "system/CodePage.h"
#include "tests/apps/Workplace.h"

#include <nlohmann/json.hpp>

#include <regex>

using namespace formwizard::tests;
using namespace std::string_literals;

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
