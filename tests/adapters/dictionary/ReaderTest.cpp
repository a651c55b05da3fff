#include "adapters/dictionary/Reader.h"
#include "tests/support/Test.h"

#include "support/Failures.h"
#include "wizard/factory/DictionaryText.h"

using namespace formwizard;
using namespace formwizard::adapters::dictionary;

namespace {

// Keeps no more than what came last.
class LastRow : public wizard::factory::DictionaryStore {
 public:
  void Add(wizard::factory::Table table, const wizard::factory::Row& row) override {
    std::ostringstream text;
    text << static_cast<int>(table) << ": " << row.Id << ' ' << row.Owner << ' ' << row.Position;
    for (const auto& value : row.Values) {
      text << '|';
      std::visit([&](const auto& it) { text << it; }, value);
    }
    Text = text.str();
  }
  std::string Text;
};

void Read(std::istream& in) {
  LastRow store;
  ReadDictionary(in, "in.json", store);
}

std::string Message(const std::string& json) {
  std::istringstream in(json);
  try {
    Read(in);
  } catch (const support::InputError& error) {
    return error.what();
  }
  return "";
}

std::string Repeated(const std::string& text, std::size_t count) {
  std::string all;
  while (count-- > 0) all += text;
  return all;
}

// A document whose last object, on a line of its own, is the second one in a list of the class.
std::string Document(const std::string& list, const std::string& members) {
  return R"({"systems":[{"name":"S","connect":"c","classes":[{"Name":"P.A",")" + list +
         R"(":[{"Name":"a"},)"
         "\n {" +
         members + "}]}]}]}";
}

// Delivers a part and then fails, as a disk does.
class FailingBuffer : public std::streambuf {
 protected:
  int_type underflow() override {
    if (part_.empty()) throw std::runtime_error("the disk");
    setg(part_.data(), part_.data(), part_.data() + part_.size());
    return traits_type::to_int_type(std::exchange(part_, {})[0]);
  }

 private:
  std::string part_ = R"({"systems":[]})";
};

}  // namespace

TEST_CASE("Bad input is named by its line, its column and its path, with what was expected") {
  struct Case {
    std::string Json, Message;
  };
  for (const Case& c : {
           Case{"{\n \"systems\": [\n  nonsense", "3:3: this is not valid JSON: expected a value, found nonsense;"},
           Case{"{\"systems\":[{",
                "1:14: this is not valid JSON: expected a member's name in double quotes, found the end;"},
           Case{"{\"systems\"\n[]}", "2:1: this is not valid JSON: expected a colon, found [;"},
           Case{"{\"systems\":[] \"$schema\":1}",
                "1:15: this is not valid JSON: expected a comma or }, found \"$schema\";"},
           Case{"{\"$schema\":\"a\n\"}",
                "1:12: this is not valid JSON: this text has no quote at the end of its line;"},
           Case{"{\"$schema\":\"C:\\x\"}", "1:16: this is not valid JSON: behind a \\ stands one of"},
           Case{"{\n=======\n",
                "2:1: this is not valid JSON: a mark that a merge has left; choose one of the two sides,"},
           Case{"{\"systems\":[]} x", "1:16: this is not valid JSON: expected nothing more, found x;"},
           Case{"", "1:1: this is not valid JSON"},
           Case{"[]", "1:1: expected an object with \"systems\", found an array"},
           Case{" \"\"", "1:2: expected an object with \"systems\", found \"\""},
           Case{"1e400", "1:1: expected an object with \"systems\", found 1e400"},
           Case{Repeated("[", 100'000), "1:1: expected an object with \"systems\", found an array"},
           Case{"{\"systems\":" + Repeated("[", 100'000), "1:13: systems[0]: expected an object, found an array"},
           Case{"{\n}", "2:1: systems: this member is missing"},
           Case{Document("properties", "\"Name\":\"" + std::string(300'000, 'x')), "2:10: this value is too long"},
           Case{R"({"systems":[{"name":"a;b","connect":"c"}]})", "1:21: systems[0].name: must contain neither"},
           Case{"{\"systems\":[{\"name\":\"S\",\"connect\":\"c\"},\n{\"connect\":\"c\",\"name\":\"T\"}]}",
                "2:12: systems[1].connect: \"c\" is given twice"},
           Case{Document("properties", "\"Name\":\"\xFF\""), "2:11: this is not valid JSON"},
       }) {
    CAPTURE(c.Json.substr(0, 200));
    CHECK(Message(c.Json).starts_with("in.json:" + c.Message));
  }
  const auto check = [](const std::string& list, const Case& c) {
    const std::size_t path = c.Message.find(' ') + 1;
    const std::string message = Message(Document(list, c.Json));
    CHECK_MESSAGE(message.starts_with("in.json:2:" + c.Message.substr(0, path) + "systems[0].classes[0]." + list +
                                      "[1]" + c.Message.substr(path)),
                  message);
  };
  for (const Case& c : {
           Case{R"("Name":"b","MaxLen":"50")",
                "23: .MaxLen: expected a whole number from 0 to 2147483647, found \"50\""},
           Case{R"("Name":"b","MaxLen":-1)", "23: .MaxLen: expected a whole number"},
           Case{R"("Name":"b","MaxLen":2147483648)", "23: .MaxLen: expected a whole number"},
           Case{R"("Name":"é","MaxLen":1e400)",
                "23: .MaxLen: expected a whole number from 0 to 2147483647, found 1e400"},
           Case{R"("Name":"b","MaxLen":99999999999999999999)", "23: .MaxLen: expected a whole number"},
           Case{R"("Name":"b","Datatype":2)", "25: .Datatype: expected 0 or 1, found 2"},
           Case{R"("Name":"b","Datatype":true)", "25: .Datatype: expected 0 or 1, found true"},
           Case{R"("Name":"b","Collection":"set")", "27: .Collection: expected \"\", \"list\", \"array\""},
           Case{R"("Name":"b","Caption":"a\nb")", "24: .Caption: a line break or control character is not allowed"},
           Case{R"("Name":"b","Caption":"a\u2028b")", "24: .Caption: a line break or control character is not allowed"},
           Case{R"("Name":"b","Caption":")" + std::string(32'001, 'x') + '"', "24: .Caption: at most 32000 bytes"},
           Case{R"("Collection":"list","Name":"b","Caption":"a\" & b")",
                "53: .Caption: a quotation mark is not allowed"},
           Case{R"("Name":"b","Type":"a b")", "21: .Type: a name must contain nothing but"},
           Case{R"("Name":"b","Colour":1)", "14: : unknown member \"Colour\"; known members: Collection, Name"},
           Case{R"("Name":"b","Name":"c")", "14: .Name: the member is given twice"},
           Case{R"("Caption":"b")", "16: .Name: this member is missing"},
           Case{R"("Name":"")", "10: .Name: expected a text that is not empty, found"},
           Case{R"("Name":"a")", "10: .Name: \"a\" is given twice"},
           Case{R"("Name":["a"])", "10: .Name: expected a text, found an array"},
       }) {
    check("properties", c);
  }
  for (const Case& c :
       {Case{R"("Name":"b","ContainId":32768)", "26: .ContainId: expected a whole number from 0 to 32767"},
        Case{R"("Name":"b","columns":["x","y z"])", "29: .columns[1]: a name must contain nothing but"},
        Case{R"("Name":"b","columns":["x","x"])", "29: .columns[1]: \"x\" is given twice"},
        Case{R"("Name":"b","columns":[1])", "25: .columns[0]: expected a text, found 1"}}) {
    check("queries", c);
  }
}

TEST_CASE("A name keeps letters and digits of any language and whatever does not end it in code") {
  for (const char* name : {"Name", "%Library.String", "_a.b_1", "Größe", "Имя", "名前", "이름", "ｎａｍｅ"}) {
    CHECK_MESSAGE(wizard::factory::IsName(name), name);
  }
  for (const char* none : {"", "a b", "a\tb", "a\nb", "a\rb"}) CHECK_MESSAGE(!wizard::factory::IsName(none), none);
  std::istringstream ends(
      "\x01 \x7F ' \" ( ) [ { , : ; + - * / \\ ^ & = < > ! # @ $ ? | ~ ` \xFF \xC0\x80 \xED\xA0\x80 \u0085 \u00A0 "
      "\u00D7 \u2019 \u201C \u2028 \u2029 \u200B \u3000 \uFEFF \uFF02 \uFF1A \uFF1D");
  for (std::string end; ends >> end;) CHECK_MESSAGE(!wizard::factory::IsName("a" + end + "b"), end);
}

TEST_CASE("Rows come with their defaults, also when the members of an object come in another order") {
  LastRow store;
  const std::string blanks(200'000, ' ');  // more than is read at once
  std::istringstream in(R"({"systems":[{"classes":[{"Name":"A.A"},{"properties":[{"Name":"p"},)" + blanks +
                        R"({"MaxLen":7,"Name":"\u00e9"}]}]}]})");
  CHECK_THROWS_WITH_AS(ReadDictionary(in, "in", store), doctest::Contains("classes[1].Name: this member is missing"),
                       support::InputError);
  CHECK(store.Text == "2: 2 2 1|é|é|%Library.String|1|0||0|1|7");
}

TEST_CASE("An input that cannot be read to its end is no input that ends") {
  FailingBuffer buffer;
  std::istream in(&buffer);
  CHECK_THROWS_WITH_AS(Read(in), "in.json: the input cannot be read to its end", support::InputError);
}
