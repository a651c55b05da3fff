#include "adapters/sqlite/Dictionary.h"

#include "support/Failures.h"
#include "tests/support/BuildTree.h"
#include "tests/support/ErrorNumber.h"
#include "tests/support/TemporaryFolder.h"

#include <doctest/doctest.h>

#include <sstream>

using namespace formwizard;
using namespace formwizard::adapters::sqlite;
using namespace formwizard::tests;
using runtime::Int16;
using runtime::Int32;
using runtime::Variant;

namespace {

struct DictionaryFixture {
  TemporaryFolder Folder;
  std::string File = Folder / "d.sqlite";

  void Import(const std::string& json) {
    std::istringstream in(json);
    ImportDictionary(in, "in.json", File);
  }
  std::string Export() {
    std::ostringstream out;
    ExportDictionary(File, out);
    return out.str();
  }
};

bool IsRefused(auto call) { return ErrorNumberOf(call) == runtime::AutomationError; }

const std::string Sample = ReadFile(SourceFolder() + "/samples/dictionary.json");

}  // namespace

TEST_CASE("A dictionary comes back as it went in: members in any order, classes, properties and columns in theirs") {
  DictionaryFixture dictionary, again;
  dictionary.Import(R"({"systems":[{"classes":[
    {"queries":[{"columns":["b","a"],"Name":"Q"}],"Name":"P.B","properties":[
      {"MaxLen":2147483647,"Name":"z","Caption":"Édition","Datatype":0,"Collection":"list","Required":1},{"Name":"a"}]},
    {"Name":"P.A"}],"connect":"c","name":"S"}]})");
  const std::string exported = dictionary.Export();
  CHECK(exported == R"({ "systems": [
  { "name": "S", "connect": "c", "classes": [
    { "Name": "P.B", "System": 0, "Persistent": 1, "properties": [
      { "Name": "z", "Caption": "Édition", "Type": "%Library.String", "Datatype": 0, "Serial": 0, "Collection": "list", )"
                    R"("Required": 1, "Editable": 1, "MaxLen": 2147483647 },
      { "Name": "a", "Caption": "a", "Type": "%Library.String", "Datatype": 1, "Serial": 0, "Collection": "", )"
                    R"("Required": 0, "Editable": 1, "MaxLen": 0 }
    ], "queries": [
      { "Name": "Q", "ContainId": 1, "columns": ["b", "a"], "params": [] }
    ] },
    { "Name": "P.A", "System": 0, "Persistent": 1, "properties": [], "queries": [] }
  ] }
] }
)");
  again.Import(exported);
  CHECK(again.Export() == exported);
}

TEST_CASE("The factory refuses what the server refuses, and result sets do not disturb each other") {
  DictionaryFixture dictionary;
  dictionary.Import(Sample);
  const auto factory = OpenDictionary(dictionary.File)->Create();
  CHECK_FALSE(factory->IsConnected());
  CHECK(IsRefused([&] { factory->ResultSet("%ClassDefinition", "ClassInfo"); }));
  CHECK(IsRefused([&] { factory->Connect("local:nowhere"); }));
  factory->Connect("local:samples");
  CHECK(factory->IsConnected());
  CHECK(IsRefused([&] { factory->ResultSet("Sample.Person", "Nothing"); }));

  const auto query = factory->ResultSet("Sample.Person", "BySearch");
  CHECK(query->GetColumnName(Int16(3)) == "SSN");
  CHECK(ErrorNumberOf([&] { query->GetColumnName(Int16(0)); }) == runtime::SubscriptOutOfRange);
  CHECK(IsRefused([&] { query->Execute({"one"}); }));

  const auto rows = factory->ResultSet("%CompiledProperty", "PropertyInfo");
  CHECK(IsRefused([&] { rows->Next(); }));
  rows->Execute({"Sample.Person"});
  CHECK(IsRefused([&] { rows->GetDataByName("Name"); }));
  CHECK(rows->Next());
  CHECK(IsRefused([&] { rows->GetDataByName("Colour"); }));
  CHECK(rows->GetDataByName("REQUIRED") == Variant(Int32(1)));
  const auto others = factory->ResultSet("%CompiledProperty", "PropertyInfo");
  others->Execute({"No.Such"});
  CHECK_FALSE(others->Next());
  CHECK(rows->GetDataByName("Name") == Variant("Name"));
  rows->Close();
  CHECK_FALSE(rows->Next());
  CHECK(factory->Disconnect());
  CHECK_FALSE(factory->IsConnected());
}

TEST_CASE("Bad input is named by its place, with what was expected") {
  DictionaryFixture dictionary;
  const auto system = [](const std::string& classes) {
    return R"({"systems":[{"name":"S","connect":"c","classes":[)" + classes + "]}]}";
  };
  const auto property = [&](const std::string& members) {
    return system(R"({"Name":"P.A","properties":[{"Name":"a"},{)" + members + "}]}");
  };
  struct Case {
    std::string Json, Message;
  };
  for (const Case& c :
       {Case{"{\n \"systems\": [\n  nonsense", "3:4: this is no valid JSON"},
        Case{"{\"systems\":[{", "1:14: this is no valid JSON"},
        Case{"[]", " : expected an object with \"systems\", found an array"},
        Case{"{}", " systems: this member is missing"},
        Case{R"({"systems":[{"name":"a;b","connect":"c"}]})", " systems[0].name: must hold neither"},
        Case{system(R"({"Name":"P.A"},{"Name":"P.A"})"), " systems[0].classes[1]: \"P.A\" stands twice"},
        Case{property(R"("Name":"a")"), " systems[0].classes[0].properties[1]: \"a\" stands twice"},
        Case{property("\"Name\":\"\xFF\""), "1:"}}) {
    CAPTURE(c.Json);
    CHECK_THROWS_WITH_AS(dictionary.Import(c.Json), doctest::Contains(("in.json:" + c.Message).c_str()),
                         support::InputError);
  }
  for (const Case& c : {Case{R"("Name":"b","MaxLen":"50")", "MaxLen: expected a whole number"},
                        Case{R"("Name":"b","MaxLen":-1)", "MaxLen: expected a whole number"},
                        Case{R"("Name":"b","Datatype":2)", "Datatype: expected 0 or 1, found 2"},
                        Case{R"("Name":"b","Datatype":true)", "Datatype: expected 0 or 1, found true"},
                        Case{R"("Name":"b","Collection":"set")", R"(Collection: expected "", "list", "array")"},
                        Case{R"("Name":"b","Colour":1)", "Name: unknown member \"Colour\""},
                        Case{R"("Name":"b","Name":"c")", "Name: the member stands twice"},
                        Case{R"("Caption":"b")", "Name: this member is missing"},
                        Case{R"("Name":"")", "Name: a name must not be empty"},
                        Case{R"("Name":"a\nb")", "Name: a line break or control character"},
                        Case{R"("Name":"../a")", "Name: a name must hold none of"}}) {
    CAPTURE(c.Json);
    CHECK_THROWS_WITH_AS(dictionary.Import(property(c.Json)),
                         doctest::Contains(("in.json: systems[0].classes[0].properties[1]." + c.Message).c_str()),
                         support::InputError);
  }
}

TEST_CASE("An import that fails leaves what was there") {
  DictionaryFixture dictionary;
  dictionary.Import(Sample);
  const auto before = FilesIn(dictionary.Folder.Path());
  CHECK_THROWS_AS(dictionary.Import(Sample.substr(0, Sample.size() - 20)), support::InputError);
  CHECK(FilesIn(dictionary.Folder.Path()) == before);

  WriteFile(dictionary.File, "a text of mine");
  CHECK_THROWS_WITH_AS(dictionary.Import(Sample), doctest::Contains("is no class dictionary"), support::InputError);
  CHECK(ReadFile(dictionary.File) == "a text of mine");
}

TEST_CASE("A file that is no dictionary is refused with the remedy") {
  DictionaryFixture dictionary;
  CHECK_THROWS_AS(OpenDictionary(dictionary.File), support::InputError);                 // missing
  CHECK_THROWS_AS(OpenDictionary(Utf8(dictionary.Folder.Path())), support::InputError);  // a folder
  for (const std::string& text : {std::string(), std::string("SQLite format 3\0rubbish", 23), std::string(5000, 'x')}) {
    WriteFile(dictionary.File, text);
    CHECK_THROWS_AS(OpenDictionary(dictionary.File), support::InputError);
  }
  // Damaged behind its head: the error comes when the rows are read.
  std::filesystem::remove(NativePath(dictionary.File));
  dictionary.Import(Sample);
  std::string bytes = ReadFile(dictionary.File);
  std::fill(bytes.begin() + 4096, bytes.end(), '\x5A');
  WriteFile(dictionary.File, bytes);
  CHECK(IsRefused([&] { OpenDictionary(dictionary.File)->Create()->SystemList(); }));
}
