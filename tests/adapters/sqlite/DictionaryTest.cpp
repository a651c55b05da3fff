#include "adapters/sqlite/Dictionary.h"

#include "support/Failures.h"
#include "tests/support/ErrorNumber.h"
#include "tests/support/TemporaryFolder.h"

#include <doctest/doctest.h>

#include <sstream>

using namespace formwizard;
using namespace formwizard::adapters::sqlite;
using namespace formwizard::tests;
using runtime::Int16;
using runtime::Int32;
using runtime::Null;
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
  // What an import complains of; empty when it does not.
  std::string Complaint(const std::string& json) {
    try {
      Import(json);
      return "";
    } catch (const support::InputError& error) {
      return error.what();
    }
  }
};

// Every row of a query: its columns joined by ",", rows by "|".
std::string Rows(wizard::factory::ObjectFactory& factory, const char* className, const char* query,
                 std::initializer_list<std::string_view> parameters, std::initializer_list<const char*> columns) {
  const auto rows = factory.ResultSet(className, query);
  rows->Execute(parameters);
  std::string all;
  while (rows->Next()) {
    for (const char* column : columns) all += ToText(rows->GetDataByName(column)) + ",";
    all += "|";
  }
  rows->Close();
  return all;
}

const std::string Sample = ReadFile(FORMWIZARD_SOURCE_DIR "/samples/dictionary.json");

}  // namespace

TEST_CASE("A dictionary comes back from the database as it went in") {
  DictionaryFixture dictionary;
  dictionary.Import(Sample);
  const std::string exported = dictionary.Export();
  DictionaryFixture again;
  again.Import(exported);
  CHECK(again.Export() == exported);
  CHECK(exported.find("      { \"Name\": \"Edition\", \"Caption\": \"Édition\", \"Type\": \"%Library.Integer\", "
                      "\"Datatype\": 1, \"Serial\": 0, \"Collection\": \"\", \"Required\": 0, \"Editable\": 1, "
                      "\"MaxLen\": 3 },\n") != std::string::npos);
  CHECK(exported.find("      { \"Name\": \"Statistics\", \"ContainId\": 0, \"columns\": [\"City\", \"Count\"], "
                      "\"params\": [] }\n") != std::string::npos);
}

TEST_CASE("The order of members does not matter, that of classes, properties and columns is kept") {
  DictionaryFixture dictionary;
  dictionary.Import(R"({"systems":[{"classes":[
    {"queries":[{"columns":["b","a"],"Name":"Q"}],"properties":[{"MaxLen":2147483647,"Name":"z"},{"Name":"a"}],"Name":"P.B"},
    {"Name":"P.A"}],"connect":"c","name":"S"}]})");
  const std::string exported = dictionary.Export();
  CHECK(exported.find("P.B") < exported.find("P.A"));
  CHECK(exported.find("\"z\"") < exported.find("\"Name\": \"a\""));
  CHECK(exported.find("[\"b\", \"a\"]") != std::string::npos);
  CHECK(exported.find("\"MaxLen\": 2147483647") != std::string::npos);
}

TEST_CASE("The factory answers as the server does") {
  DictionaryFixture dictionary;
  dictionary.Import(Sample);
  const auto server = OpenDictionary(dictionary.File);
  const auto factory = server->Create();
  CHECK(factory->SystemList() == "Samples,local:samples;Archive,local:archive");
  CHECK_FALSE(factory->IsConnected());
  CHECK(ErrorNumberOf([&] { factory->ResultSet("%ClassDefinition", "ClassInfo"); }) == runtime::AutomationError);
  CHECK(ErrorNumberOf([&] { factory->Connect("local:nowhere"); }) == runtime::AutomationError);
  factory->Connect("local:samples");
  CHECK(factory->IsConnected());

  // Ordered by name, so that packages stand together.
  CHECK(Rows(*factory, "%ClassDefinition", "ClassInfo", {}, {"Name", "System", "Persistent"}) ==
        "%Library.Persistent,1,1,|Billing.Core.Invoice,0,1,|Library.Book,0,1,|Sample.Address,0,0,|Sample.Company,0,1,|"
        "Sample.Employee,0,1,|Sample.Person,0,1,|");
  CHECK(Rows(*factory, "%CompiledProperty", "PropertyInfo", {"Sample.Address"}, {"NAME", "caption", "MaxLen"}) ==
        "Street,Street,80,|City,City,50,|State,State,2,|Zip,Zip Code,10,|");
  CHECK(Rows(*factory, "%CompiledProperty", "PropertyInfo", {"No.Such"}, {"Name"}).empty());
  CHECK(Rows(*factory, "%CompiledQuery", "QueryInfo", {"Sample.Person"}, {"Name", "ContainId"}) ==
        "Extent,1,|ByName,1,|BySearch,1,|Statistics,0,|");

  const auto query = factory->ResultSet("Sample.Person", "BySearch");
  CHECK(query->GetColumnCount() == Int16(3));
  CHECK(query->GetColumnName(Int16(3)) == "SSN");
  CHECK(ErrorNumberOf([&] { query->GetColumnName(Int16(0)); }) == runtime::SubscriptOutOfRange);
  CHECK(query->GetParamCount() == Int16(3));
  CHECK(ErrorNumberOf([&] { query->Execute({"one"}); }) == runtime::AutomationError);
  CHECK(ErrorNumberOf([&] { factory->ResultSet("Sample.Person", "Nothing"); }) == runtime::AutomationError);

  const auto rows = factory->ResultSet("%CompiledProperty", "PropertyInfo");
  CHECK(ErrorNumberOf([&] { rows->Next(); }) == runtime::AutomationError);
  rows->Execute({"Sample.Person"});
  CHECK(ErrorNumberOf([&] { rows->GetDataByName("Name"); }) == runtime::AutomationError);
  CHECK(rows->Next());
  CHECK(ErrorNumberOf([&] { rows->GetDataByName("Colour"); }) == runtime::AutomationError);
  CHECK(rows->GetDataByName("Required") == Variant(Int32(1)));
  // Two result sets of one query do not disturb each other.
  CHECK(Rows(*factory, "%CompiledProperty", "PropertyInfo", {"Archive.Record"}, {"Name"}).empty());
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
  const std::string second = "in.json: systems[0].classes[0].properties[1].";
  for (const auto& [json, message] :
       {std::pair{std::string("{\n \"systems\": [\n  nonsense"), std::string("in.json:3:4: this is no valid JSON")},
        std::pair{std::string("{\"systems\":[{"), std::string("in.json:1:14: this is no valid JSON")},
        std::pair{std::string("[]"), std::string("in.json: : expected an object with \"systems\", found an array")},
        std::pair{std::string("{}"), std::string("in.json: systems: this member is missing")},
        std::pair{property(R"("Name":"b","MaxLen":"50")"), second + "MaxLen: expected a whole number"},
        std::pair{property(R"("Name":"b","MaxLen":-1)"), second + "MaxLen: expected a whole number"},
        std::pair{property(R"("Name":"b","Datatype":2)"), second + "Datatype: expected 0 or 1, found 2"},
        std::pair{property(R"("Name":"b","Datatype":true)"), second + "Datatype: expected 0 or 1, found true"},
        std::pair{property(R"("Name":"b","Collection":"set")"), second + R"(Collection: expected "", "list", "array")"},
        std::pair{property(R"("Name":"b","Colour":1)"), second + "Name: unknown member \"Colour\""},
        std::pair{property(R"("Name":"b","Name":"c")"), second + "Name: the member stands twice"},
        std::pair{property(R"("Caption":"b")"), second + "Name: this member is missing"},
        std::pair{property(R"("Name":"")"), second + "Name: a name must not be empty"},
        std::pair{property(R"("Name":"a\nb")"), second + "Name: a line break or control character"},
        std::pair{property(R"("Name":"../a")"), second + "Name: a name must hold none of"},
        std::pair{property(R"("Name":"a")"),
                  std::string("in.json: systems[0].classes[0].properties[1]: \"a\" stands twice")},
        std::pair{system(R"({"Name":"P.A"},{"Name":"P.A"})"),
                  std::string("in.json: systems[0].classes[1]: \"P.A\" stands twice")},
        std::pair{std::string(R"({"systems":[{"name":"a;b","connect":"c"}]})"),
                  std::string("in.json: systems[0].name: must hold neither")},
        std::pair{property("\"Name\":\"\xFF\""), std::string("in.json:1:")}}) {
    CAPTURE(json);
    CHECK(dictionary.Complaint(json).substr(0, message.size()) == message);
  }
}

TEST_CASE("An import that fails leaves what was there") {
  DictionaryFixture dictionary;
  dictionary.Import(Sample);
  const auto before = FilesIn(dictionary.Folder.Path());
  CHECK_FALSE(dictionary.Complaint(Sample.substr(0, Sample.size() - 20)).empty());
  CHECK(FilesIn(dictionary.Folder.Path()) == before);

  WriteFile(dictionary.File, "a text of mine");
  CHECK(dictionary.Complaint(Sample).find("is no class dictionary") != std::string::npos);
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
  CHECK(ErrorNumberOf([&] { OpenDictionary(dictionary.File)->Create()->SystemList(); }) == runtime::AutomationError);
}
