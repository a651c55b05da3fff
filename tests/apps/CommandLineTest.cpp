// What the program says when something is wrong with what it is given, or with where its output goes.
#include "tests/apps/Workplace.h"

#include <nlohmann/json.hpp>

using namespace formwizard::tests;
using namespace std::string_literals;

TEST_CASE("A description with a fault ends with its place and what was expected, and everything as it was") {
  const Workplace work;
  const auto before = work.Files();
  const std::string good = R"([{"class":"Sample.Person","fields":["Name"]},)",
                    person = R"({"class":"Sample.Person","fields":)";
  for (const auto& [json, message] :
       {std::pair{"{ \"class\": \"Sample.Person\",\n  \"fields\": [ \"Name\" \n"s, "3:1: this is not valid JSON"s},
        {person + R"(["Name",{"property":"Notes","rows":0}]})", "1:70: fields[1].rows: expected a whole number from 1"},
        {person + "[\n" + R"({"property":"Spouse.Name","combo":{"query":"Statistics","column":"City"}}]})",
         "2:44: there is no query that returns the object id \"Statistics\"; available: Extent, BySearch, ByName"},
        {person + R"(["Name",{"property":"Notes","rows":1e400}]})", "1:70: this number is out of range"},
        {person + R"([{"property":"Phones","caption":"a\r\nShell"}]})",
         "1:67: fields[0].caption: expected a text without line breaks"},
        {person + "[5]}", "1:36: fields[0]: expected a property's name or an object, found 5"},
        {R"({"class":1,"fields":[1,)", "1:24: this is not valid JSON"},  // said before that a class is a text
        {good + person + R"(["Name",5]}])", "1:88: [1].fields[1]: expected a property's name or an object, found 5"},
        {good + R"({"class":"Sample.Nobody","fields":["Name"]}])",
         "1:55: there is no persistent class \"Sample.Nobody\""},
        {"[]", " no form is described in this array"},
        {"[[]]", "1:2: [0]: expected an object, found []"},
        {"\xFF\xFE[\0]"s, " the text begins like UTF-16 and is none"},
        {R"({"fields":["a",{"combo":{"query":"Q"},"rows":0}],"class":"A.B"})",
         "1:37: fields[1].combo: \"column\" is missing"},
        {std::string(100'000, '['), "1:17: nested more than 16 deep"},
        {person + R"([{"property":"Notes","rows":[")" + std::string(100'000, 'x') + "\"]}]}",
         "1:63: fields[0].rows: expected a whole number from 1 to 32767, found [\"x"}}) {
    const Outcome made = work.Describe(json);
    CHECK(made.Status == 3);
    CHECK_MESSAGE(Has(made.Error, ".json:" + message), made.Error);
    CHECK(made.Error.size() < 2000);  // a screen
    CHECK(work.Files() == before);
  }
}

TEST_CASE("Bad input ends with its status, a message and everything as it was") {
  Workplace work;
  WriteFile(work.Folder / "rows.json", R"({"class":"Sample.Person","fields":["Name",{"property":"Notes","rows":0}]})");
  WriteFile(work.Folder / "empty/read.me", "\r\n\n");
  WriteFile(work.Folder / "list.txt", "rows.json");
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
    const std::string line = command;  // clang captures no binding
    CAPTURE(line);
    const Outcome made = work.Run(line);
    CHECK(made.Status == status);
    const auto json = nlohmann::json::parse(made.Out);
    CHECK(json.is_array() == (status == 0));
    if (status == 0) continue;
    CHECK(json["error"]["status"] == status);
    CHECK(Has(made.Error, json["error"]["message"].get<std::string>()));
  }
  CHECK(work.Generate(Typical + " --json --diff").Status == 2);
}

TEST_CASE(
    "Keys that nobody reads in the section of the settings are warned about, and settings that cannot be written cost "
    "nothing") {
  Workplace work;
  WriteFile(work.Folder / work.Profile,
            "[Other]\r\nX=1\r\n[OstrelFormWizard]\r\n;Y=2\r\nMenu=1\r\n Colums=3\r\n"
            "lastconnect=Samples\r\n");
  const Outcome odd = work.Generate(Typical + " -n");
  CHECK(Has(odd.Error,
            "warning: outility.ini:6:2: [OstrelFormWizard]: nobody reads the key \"Colums\"; available: Columns"));
  CHECK(std::ranges::count(odd.Error, '\n') == 1);
  CHECK(work.Generate(Typical + " -nq").Error.empty());
  work.Profile = work.Dictionary.substr(1, work.Dictionary.size() - 2) + "/outility.ini";  // below a file
  const Outcome made = work.Generate(Typical);
  CHECK(made.Status == 0);
  CHECK(Has(made.Error, "warning: " + work.Profile + ": the settings cannot be written"));
  CHECK(work.Files() == FilesIn(SourceFolder() + "/tests/golden/typical-project"));
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
    CHECK_MESSAGE(made.Status == 2, made.Error);
    CHECK_MESSAGE(made.Error.starts_with("ostrel-form-wizard: "), made.Error);
    CHECK_MESSAGE(Has(made.Error, message), made.Error);
  }
}
