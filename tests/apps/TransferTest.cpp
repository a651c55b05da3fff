// Import and export by the program itself, run as a user runs it.
#include "system/Text.h"
#include "system/Utf8Input.h"
#include "tests/support/RunProgram.h"

#include <iterator>

using namespace formwizard::tests;
using namespace std::string_literals;
using formwizard::system::Utf16, formwizard::system::Utf8;

namespace {

const std::string Sample = "\"" + SourceFolder() + "/samples/dictionary.json\"";

struct Place {
  TemporaryFolder Folder;
  Place() { CHECK(Run("dictionary import " + Sample + " d.sqlite").Status == 0); }
  Outcome Run(const std::string& arguments) const {
    return RunProgram(BuiltProgram("ostrel-form-wizard"), arguments, Folder);
  }
};

}  // namespace

TEST_CASE("A dictionary is written to a file or to standard output, from which it can be made again") {
  const Place place;
  const Outcome shown = place.Run("dictionary export d.sqlite -");
  for (int times = 0; times < 2; ++times)
    CHECK(place.Run("dictionary export d.sqlite \"Ausfuhr 項目.json\"").Status == 0);
  CHECK(shown.Out.starts_with("{ \"systems\": [\n"));
  CHECK(ReadFile(place.Folder / "Ausfuhr 項目.json") == shown.Out);
  CHECK(place.Run("dictionary import \"Ausfuhr 項目.json\" d.sqlite").Status == 0);
  CHECK(place.Run("dictionary export d.sqlite -").Out == shown.Out);
  CHECK(place.Run("dictionary import d.json -").Status == 2);
}

TEST_CASE("Two dictionaries differ by what was added, removed and changed, however their classes are ordered") {
  const Place place;
  const auto json = [](const std::string& classes, const std::string& others) {
    return R"({"systems":[{"name":"S","connect":"s","classes":[)" + classes + "]}" + others + "]}";
  };
  const std::string same = R"({"Name":"A.Same","properties":[{"Name":"P","MaxLen":5},{"Name":"Q"}]})";
  WriteFile(place.Folder / "old.json",
            json(R"({"Name":"Z","Persistent":0},{"Name":"M.Gone","properties":[{"Name":"X"}]},
                   {"Name":"B","properties":[{"Name":"Kept","Type":"T"},{"Name":"Out"}],
                    "queries":[{"Name":"Q","ContainId":2,"columns":["ID"],"params":["a, b"]},{"Name":"Off"}]},)" +
                     same,
                 R"(,{"name":"Old","connect":"o","classes":[]})"));
  WriteFile(place.Folder / "new.json",
            json(same + R"(,{"Name":"B","properties":[{"Name":"In"},{"Name":"Kept","Caption":"K \"x\"","Serial":1}],
                    "queries":[{"Name":"On"},{"Name":"Q","columns":["ID"],"params":["a","b"]}]},
                   {"Name":"b"},{"Name":"Z"})",
                 R"(,{"name":"New","connect":"n","classes":[]})"));
  WriteFile(place.Folder / "same.json",
            json(R"({"Name":"A.Same","properties":[{"Name":"Q"},{"Name":"P","MaxLen":5}]})", ""));
  CHECK(place.Run("dictionary import new.json new.sqlite").Status == 0);
  const std::string expected =
      "S: property B.Kept changed: Caption \"Kept\" -> \"K \"x\"\", Type \"T\" -> \"%Library.String\", Serial 0 -> 1\n"
      "S: property B.Out removed\nS: property B.In added\n"
      "S: query B.Q changed: ContainId 2 -> 1, params \"a, b\" -> \"a, b\"\nS: query B.Off removed\n"
      "S: query B.On added\nS: class M.Gone removed\nS: class Z changed: Persistent 0 -> 1\nS: class b added\n"
      "system Old removed\nsystem New added\n";
  for (const char* names : {"old.json new.json", "old.json new.sqlite"}) {
    CAPTURE(names);
    const Outcome made = place.Run(std::string("dictionary diff ") + names);
    CHECK(made.Status == 1);
    CHECK(made.Out == expected);
  }
  const Outcome all = place.Run("dictionary diff old.json new.sqlite --json");
  CHECK(all.Status == 1);
  CHECK(Has(all.Out, R"({"change":"changed","what":"query","system":"S","class":"B","name":"Q","attributes":[)"
                     R"({"name":"ContainId","old":2,"new":1},{"name":"params","old":["a, b"],"new":["a","b"]}]})"));
  CHECK(all.Out.ends_with("],\n  \"equal\": false\n}\n"));
  WriteFile(place.Folder / "one.json", json(same, ""));
  CHECK(place.Run("dictionary diff one.json same.json").Status == 0);
  CHECK(place.Run("dictionary diff one.json none.json").Status == 3);
  CHECK(place.Run("dictionary diff - -").Status == 2);
}

TEST_CASE("A difference names the kept forms that it touches: by their classes, by objects in them and by queries") {
  const Place place;
  const auto dictionary = [](const std::string& length, const std::string& columns) {
    return R"({"systems":[{"name":"S","connect":"s","classes":[
      {"Name":"A.P","properties":[{"Name":"Name"},{"Name":"Friend","Type":"A.Q","Datatype":0},{"Name":"Other"}]},
      {"Name":"A.Q","properties":[{"Name":"Title","MaxLen":)" +
           length + R"(}],"queries":[{"Name":"ByTitle","columns":["ID","Title")" + columns + R"(]}]},
      {"Name":"A.R","properties":[{"Name":"Name"}]}]}]})";
  };
  WriteFile(place.Folder / "old.json", dictionary("5", ""));
  WriteFile(place.Folder / "longer.json", dictionary("6", ""));
  WriteFile(place.Folder / "more.json", dictionary("5", R"(,"More")"));
  WriteFile(place.Folder / "forms.json", R"([{"class":"A.R","fields":["Name"]},{"class":"A.P","fields":["Name",
    {"property":"Friend.Title","combo":{"query":"ByTitle","column":"Title"}}]}])");
  CopySample("new-project", place.Folder / "p");
  CHECK(place.Run("dictionary import old.json old.sqlite").Status == 0);
  const Outcome kept = place.Run("generate --keep --project p/Project1.vbp --dictionary old.sqlite --toolbox \"" +
                                 SourceFolder() + "/samples/toolbox.ini\" forms.json");
  REQUIRE_MESSAGE(kept.Status == 0, kept.Error);
  const auto touched = [&](const std::string& now, const std::string& options) {
    const std::string out = place.Run("dictionary diff old.sqlite " + now + " --project p/Project1.vbp" + options).Out;
    return out.substr(std::min(out.find(options.empty() ? "form " : "\"forms\""), out.size()));
  };
  CHECK(touched("longer.json", "") == "form frmP:\n  Friend.Title: width was 5, is 6\n");
  CHECK(touched("more.json", "") ==
        "form frmP:\n  the query A.Q.ByTitle, by which objects are chosen, is gone or another\n");
  CHECK(touched("more.json", " --json")
            .starts_with(R"("forms": [{"form":"frmP","new":[],"lost":[],"changed":[],"queries":["A.Q.ByTitle"]}],)"));
  CHECK(touched("old.json", "").empty());
}

TEST_CASE("Texts are read in every Unicode that a shell writes") {
  const Place place;
  const std::string exported = place.Run("dictionary export d.sqlite -").Out;
  std::u16string text = Utf16(exported);
  text.resize(32'767, u' ');
  text += u"\xD835\xDC9C";  // whose halves the end of a block parts, unless there is a mark
  for (const auto& [mark, high] : {std::pair{"\xFF\xFE"s, 1U}, {""s, 1U}, {"\xFE\xFF"s, 0U}, {""s, 0U}}) {
    std::string bytes = mark;
    for (const char16_t unit : text) {
      bytes += static_cast<char>(high == 1 ? unit & 0xFF : unit >> 8);
      bytes += static_cast<char>(high == 1 ? unit >> 8 : unit & 0xFF);
    }
    std::istringstream in(bytes);
    const std::string name = "in";
    formwizard::system::Utf8Input input(in, name);
    CHECK(std::string(std::istreambuf_iterator<char>(&input), {}) == Utf8(std::u16string_view(text)));
    bytes.resize(mark.size() + 2 * Utf16(exported).size());
    WriteFile(place.Folder / "wide.json", bytes);
    CHECK(place.Run("dictionary import -v wide.json e.sqlite").Out ==
          "wrote e.sqlite: 2 systems, 8 classes, 39 properties, 7 queries\n");
    CHECK(place.Run("dictionary export e.sqlite -").Out == exported);
  }
  WriteFile(place.Folder / "marked.json", "\xEF\xBB\xBF" + exported);
  CHECK(place.Run("dictionary import marked.json e.sqlite").Status == 0);
}

TEST_CASE("What is not theirs is not overwritten by import and export, unless by force") {
  const Place place;
  WriteFile(place.Folder / "App.vbp", "Type=Exe\r\n");
  const std::string dictionary = ReadFile(place.Folder / "d.sqlite");
  for (const std::string& command : {"import " + Sample + " App.vbp", std::string("export d.sqlite App.vbp"),
                                     std::string("export d.sqlite d.sqlite")}) {
    CAPTURE(command);
    const Outcome refused = place.Run("dictionary " + command);
    CHECK(refused.Status == 3);
    CHECK_MESSAGE(Has(refused.Error, "--force\""), refused.Error);
    CHECK(ReadFile(place.Folder / "App.vbp") == "Type=Exe\r\n");
    CHECK(ReadFile(place.Folder / "d.sqlite") == dictionary);
  }
  CHECK(place.Run("dictionary import --force " + Sample + " App.vbp").Status == 0);
  CHECK(place.Run("systems --dictionary App.vbp").Out == "Samples\tlocal:samples\nArchive\tlocal:archive\n");
  CHECK(place.Run("dictionary export --force d.sqlite App.vbp").Status == 0);
  CHECK(ReadFile(place.Folder / "App.vbp").starts_with("{ \"systems\": ["));
  // A folder is nobody's to replace.
  std::filesystem::create_directory(place.Folder.Path() / "sub");
  for (const char* command : {"import d.json sub", "export d.sqlite sub", "export --force d.sqlite sub",
                              "import sub d.sqlite", "import none.json d.sqlite"}) {
    const Outcome refused = place.Run(std::string("dictionary ") + command);
    CHECK_MESSAGE((refused.Status == 3 || refused.Status == 4), command);
    CHECK_MESSAGE(
        (refused.Error.find("sub: ") != std::string::npos || refused.Error.find(".json: ") != std::string::npos),
        refused.Error);
  }
  CHECK(ReadFile(place.Folder / "d.sqlite") == dictionary);
}

#ifndef _WIN32
TEST_CASE("Of many imports and exports of one file at once the last one wins whole") {
  const Place place;
  const std::string exported = place.Run("dictionary export d.sqlite -").Out;
  const std::string program = "'" + BuiltProgram("ostrel-form-wizard") + "' dictionary ";
  const std::string script = "for i in 1 2 3 4 5 6 7 8 9 10; do " + program + "import " + Sample +
                             " d.sqlite || echo failed & " + program +
                             "export d.sqlite d.json || echo failed & done; wait";
  WriteFile(place.Folder / "all.sh", script);
  const Outcome all = RunProgram("/bin/sh", "all.sh", place.Folder);
  CHECK_MESSAGE((all.Out + all.Error).empty(), all.Out, all.Error);
  CHECK(ReadFile(place.Folder / "d.json") == exported);
  CHECK(place.Run("dictionary export d.sqlite -").Out == exported);
  CHECK(FilesIn(place.Folder.Path()).size() == 5);  // nothing is left beside them
}

TEST_CASE("A pipe where a file is needed is refused at once") {
  const Place place;
  CHECK(std::system(("mkfifo '" + (place.Folder / "pipe") + "'").c_str()) == 0);
  for (const char* command :
       {"dictionary import pipe new.sqlite", "dictionary export pipe new.json", "systems --dictionary pipe",
        "dictionary export d.sqlite pipe", "dictionary import --force d.json pipe"}) {
    const Outcome refused = place.Run(command);
    CHECK_MESSAGE((refused.Status == 3 || refused.Status == 4), command);
  }
}
#endif
