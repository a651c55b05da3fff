#include "apps/common/Dictionaries.h"
#include "support/Failures.h"
#include "tests/support/TemporaryFolder.h"

#include <sqlite3.h>

using namespace formwizard;
using namespace formwizard::apps::common;
using namespace formwizard::tests;
using runtime::Int16;
using runtime::Int32;
using runtime::Variant;
using wizard::factory::ClassColumn;
using wizard::factory::PropertyColumn;

namespace {

struct DictionaryFixture {
  TemporaryFolder Folder;
  std::string File = Folder / "d.sqlite";

  void Import(const std::string& json, bool force = false) const {
    std::istringstream in(json);
    ImportDictionary(in, "in.json", File, force);
  }
  std::string Export() const {
    std::ostringstream out;
    ExportDictionary(File, out);
    return out.str();
  }
};

// Changes a database as any program can.
void Change(const std::string& file, const std::string& sql) {
  sqlite3* database = nullptr;
  CHECK(sqlite3_open(file.c_str(), &database) == SQLITE_OK);
  CHECK_MESSAGE(sqlite3_exec(database, sql.c_str(), nullptr, nullptr, nullptr) == SQLITE_OK, sqlite3_errmsg(database));
  CHECK(sqlite3_close(database) == SQLITE_OK);
}

std::string MessageOf(auto call) {
  try {
    call();
  } catch (const support::InputError& error) {
    return error.what();
  }
  return "";
}

// What a user is told on the way through every row of a dictionary.
std::string OpeningMessage(const std::string& file) {
  std::ostringstream all;
  return MessageOf([&] { ExportServer(*OpenDictionary(file), "", all); });
}

bool IsRefused(auto call) { return ErrorNumberOf(call) == runtime::AutomationError; }

const std::string Sample = ReadFile(SourceFolder() + "/samples/dictionary.json");

}  // namespace

TEST_CASE("A dictionary comes back as it went in: classes by name, all else in its order, without what is a default") {
  DictionaryFixture dictionary, again;
  std::string many, lines;  // more than are inserted at once
  for (int i = 1; i <= 40; ++i) {
    const std::string line = R"({ "Name": "p)" + std::to_string(i) + R"(", "MaxLen": )" + std::to_string(i) + " }";
    many += "," + line;
    lines += ",\n      " + line;
  }
  dictionary.Import(R"({"systems":[{"classes":[
    {"queries":[{"columns":["b","a"],"Name":"Q","params":["to"]},{"Name":"R","ContainId":0}],"Name":"P.B","properties":[
      {"MaxLen":2147483647,"Name":"z","Caption":"Édition","Datatype":0,"Collection":"list","Required":1},
      {"Name":"y","Type":"","Serial":1,"Editable":0,"Caption":"Y"},
      {"Name":"a","Type":"%Library.String","Datatype":1,"Serial":0,"Collection":"","Caption":"a","Editable":1,"MaxLen":0})" +
                    many + R"(]},
    {"Name":"%P.A","System":1,"Persistent":0}],"connect":"c","name":"S"},{"connect":"d","name":"T"}]})");
  const std::string exported = dictionary.Export();
  CHECK(exported == R"({ "systems": [
  { "name": "S", "connect": "c", "classes": [
    { "Name": "%P.A", "System": 1, "Persistent": 0 },
    { "Name": "P.B", "properties": [
      { "Name": "z", "Caption": "Édition", "Datatype": 0, "Collection": "list", "Required": 1, "MaxLen": 2147483647 },
      { "Name": "y", "Caption": "Y", "Type": "", "Serial": 1, "Editable": 0 },
      { "Name": "a" })" +
                        lines + R"(
    ], "queries": [
      { "Name": "Q", "columns": ["b", "a"], "params": ["to"] },
      { "Name": "R", "ContainId": 0 }
    ] }
  ] },
  { "name": "T", "connect": "d" }
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
  CHECK(query->GetColumnName(Int16(1)) + query->GetColumnName(Int16(3)) == "IDSSN");
  CHECK(ErrorNumberOf([&] { query->GetColumnName(Int16(0)); }) == runtime::SubscriptOutOfRange);
  CHECK(IsRefused([&] { query->Execute({"one"}); }));

  const auto rows = factory->ResultSet("%CompiledProperty", "PropertyInfo");
  CHECK(IsRefused([&] { rows->Next(); }));
  rows->Execute({"Sample.Person"});
  CHECK(IsRefused([&] { rows->GetDataByName("Name"); }));
  CHECK(rows->Next());
  CHECK(IsRefused([&] { rows->GetDataByName("Colour"); }));
  CHECK(rows->GetDataByName("REQUIRED") == Variant(Int32(1)));
  CHECK(rows->GetData(PropertyColumn("required")) == Variant(Int32(1)));
  CHECK(rows->GetData(ClassColumn("name")) == Variant("Name"));  // as it is called in these rows
  CHECK(rows->GetColumnName(Int16(1)) + rows->GetColumnName(rows->GetColumnCount()) == "NameMaxLen");
  const auto others = factory->ResultSet("%CompiledProperty", "PropertyInfo");
  others->Execute({"No.Such"});
  CHECK_FALSE(others->Next());
  CHECK(rows->GetDataByName("Name") == Variant("Name"));
  rows->Close();
  CHECK_FALSE(rows->Next());
  CHECK(factory->Disconnect());
  CHECK_FALSE(factory->IsConnected());
}

TEST_CASE("An import that fails leaves what was there, and only a dictionary is replaced without force") {
  const DictionaryFixture dictionary;
  dictionary.Import(Sample);
  const auto before = FilesIn(dictionary.Folder.Path());
  CHECK_THROWS_AS(dictionary.Import(Sample.substr(0, Sample.size() - 20)), support::InputError);
  CHECK(FilesIn(dictionary.Folder.Path()) == before);

  const std::string good = ReadFile(dictionary.File);
  for (const std::string& there : {std::string("a text of mine"), std::string(),
                                   std::string("SQLite format 3\0rubbish", 23), good.substr(0, 200)}) {
    WriteFile(dictionary.File, there);
    const std::string refused = MessageOf([&] { dictionary.Import(Sample); });
    CHECK_MESSAGE(Has(refused, "\"dictionary import --force\""), refused);
    CHECK(ReadFile(dictionary.File) == there);
    dictionary.Import(Sample, true);
    CHECK(OpeningMessage(dictionary.File).empty());
  }
}

TEST_CASE("A file that is no dictionary, or not one that import has made, is refused with the remedy") {
  const DictionaryFixture dictionary;
  const std::string folder = Utf8(dictionary.Folder.Path());
  CHECK(OpeningMessage(dictionary.File) ==
        dictionary.File + ": there is no such file; make a class dictionary with \"dictionary import\"");
  CHECK(OpeningMessage(folder).starts_with(folder + ": "));
  for (const std::string& text : {std::string(), std::string("SQLite format 3\0rubbish", 23), std::string(5000, 'x')}) {
    WriteFile(dictionary.File, text);
    CHECK(OpeningMessage(dictionary.File) ==
          dictionary.File + ": this is not a class dictionary; make a class dictionary with \"dictionary import\"");
  }
  for (const char* sql : {
           "DROP TABLE properties",
           "DROP TABLE queries; CREATE VIEW queries AS SELECT 1 AS id, 1 AS class, 'Q' AS name, 1 AS contain_id",
           "PRAGMA writable_schema = ON; UPDATE sqlite_master SET rootpage = 0, sql = 'CREATE VIRTUAL TABLE "
           "query_params "
           "USING fts5(query, position, name)' WHERE name = 'query_params'",
           "CREATE TRIGGER t AFTER INSERT ON classes BEGIN DELETE FROM classes; END",
           "DROP INDEX classes_by_name; ALTER TABLE classes DROP COLUMN is_persistent",
           "PRAGMA user_version = 7",
           // Values that are not what the tables say.
           "UPDATE properties SET datatype = 'x'",
           "UPDATE properties SET max_len = 5000000000",
           "UPDATE properties SET caption = x'00'",
           "UPDATE systems SET name = x'00' WHERE id = 1",
       }) {
    CAPTURE(sql);
    dictionary.Import(Sample, true);
    Change(dictionary.File, sql);
    const std::string message = OpeningMessage(dictionary.File);
    CHECK_MESSAGE(message.starts_with(dictionary.File + ": "), message);
    CHECK_MESSAGE(message.ends_with("create it again with \"dictionary import --force\""), message);
  }
}

TEST_CASE("A damaged page, or one that leads in a circle, is said to be damaged whenever it is met") {
  const DictionaryFixture dictionary;
  std::string many = R"({"systems":[{"name":"S","connect":"local:samples","classes":[{"Name":"Sample.Person")";
  for (int i = 0; i < 3000; ++i) many += "},{\"Name\":\"Sample.Class" + std::to_string(100'000 + i) + '"';
  dictionary.Import(many + "}]}]}");
  const std::string good = ReadFile(dictionary.File);
  constexpr std::size_t page = 4096;
  const auto word = [&](std::size_t at) {
    return static_cast<unsigned char>(good[at]) * 256U + static_cast<unsigned char>(good[at + 1]);
  };
  int damaged = 0, circles = 0;
  for (std::size_t at = page; at < good.size(); at += page) {
    CAPTURE(at);
    std::string bytes = good;
    std::fill_n(bytes.begin() + static_cast<std::ptrdiff_t>(at), page, '\x5A');
    WriteFile(dictionary.File, bytes);
    const std::string message = OpeningMessage(dictionary.File);
    if (!message.empty()) CHECK(message.starts_with(dictionary.File + ": the class dictionary is damaged ("));
    damaged += message.empty() ? 0 : 1;
    constexpr char innerOfIndex = 2;
    if (good[at] != innerOfIndex) continue;
    bytes = good;
    for (std::size_t cell = 0; cell < word(at + 3); ++cell) {  // the next page but one is a leaf, again and again
      const std::size_t child = at + word(at + 12 + 2 * cell);
      bytes.replace(child, 4, bytes.substr(at + 8, 4));
      bytes.replace(child, 4,
                    std::string{0, 0, static_cast<char>((at / page + 1) / 256), static_cast<char>(at / page + 1)});
    }
    WriteFile(dictionary.File, bytes);
    CHECK(OpeningMessage(dictionary.File).starts_with(dictionary.File + ": the class dictionary is damaged ("));
    ++circles;
  }
  CHECK(damaged > 10);
  CHECK(circles > 0);
}

TEST_CASE("What would become code of its own in a database is refused, and can be exported to be corrected") {
  const DictionaryFixture dictionary;
  for (const auto& [sql, told] :
       {std::pair{"UPDATE classes SET name = 'Sample.Per son' WHERE name = 'Sample.Company'",
                  ": the Name of a class is \"Sample.Per son\""},
        std::pair{"UPDATE properties SET name = 'Name = Shell(Chr$(99)) ''' WHERE name = 'SSN'",
                  ": class \"Sample.Person\": the Name of a property is \"Name = Shell(Chr$(99)) '\""},
        std::pair{"UPDATE properties SET type = 'A\")' WHERE name = 'Spouse'",
                  ": class \"Sample.Person\": the Type of a property is \"A\")\""},
        std::pair{"UPDATE properties SET caption = 'a' || char(10) || 'End' WHERE name = 'SSN'",
                  ": class \"Sample.Person\": the Caption of a property is \"a\\nEnd\""},
        std::pair{"UPDATE properties SET caption = '\" & x', collection = 'array' WHERE name = 'SSN'",
                  ": class \"Sample.Person\": the Caption of a property is \"\" & x\""},
        std::pair{"UPDATE queries SET name = 'a\"b' WHERE name = 'Extent'",
                  ": class \"Sample.Company\": the Name of a query is \"a\"b\""},
        std::pair{"UPDATE query_columns SET name = 'x:y' WHERE name = 'DOB'",
                  ": class \"Sample.Person\": a column of the query \"ByName\" is \"x:y\""}}) {
    CAPTURE(sql);
    dictionary.Import(Sample, true);
    Change(dictionary.File, sql);
    const std::string message = OpeningMessage(dictionary.File);
    CHECK_MESSAGE(message.starts_with(dictionary.File + told + ", which would become code of its own; "), message);
    CHECK(dictionary.Export().starts_with("{ \"systems\": ["));
  }
}
