#include "adapters/dictionary/Writer.h"

#include "support/Failures.h"
#include "tests/support/FakeServer.h"

using namespace formwizard;
using namespace formwizard::adapters::dictionary;
using namespace formwizard::tests;

namespace {

std::string Written(FakeServer& server, const std::string& system, Classes classes = Classes::NoSystemClasses) {
  std::ostringstream out;
  WriteDictionary(server, system, classes, out);
  return out.str();
}

}  // namespace

TEST_CASE("A server is written with what it tells, without its own classes unless they are wanted") {
  FakeServer server;
  server.Data.AddClass("A.B");
  server.Data.AddClass("%Library.Thing", 0, 1);
  server.Data.AddProperty("A.B", "P", {{"caption", runtime::Null()}, {"required", true}, {"maxlen", "7"}});
  server.Data.AddQuery("A.B", "By", 2, {"ID", "N"});
  const std::string own = R"({ "systems": [
  { "name": "Archive", "connect": "other", "classes": [
    { "Name": "A.B", "properties": [
      { "Name": "P", "Required": 1, "MaxLen": 7 }
    ], "queries": [
      { "Name": "By", "ContainId": 2, "columns": ["ID", "N"], "params": ["param1"] }
    ] })";
  CHECK(Written(server, "Archive") == own + "\n  ] }\n] }\n");
  CHECK(Written(server, "Archive", Classes::All) == own + R"(,
    { "Name": "%Library.Thing", "System": 1, "Persistent": 0 }
  ] }
] }
)");
}

TEST_CASE("A server that refuses something is named with what it was asked") {
  FakeServer server;
  CHECK_THROWS_WITH_AS(Written(server, "U"), "the server has no system \"U\"; available: Samples, Archive",
                       support::InputError);
  server.Data.AddClass("A.B");
  server.Data.AddProperty("A.B", "P");
  server.Data.FailAtRow = 2;
  CHECK_THROWS_WITH_AS(Written(server, ""), "system \"Samples\": the server failed", support::InputError);
  server.Data.FailAtRow = 0;
  server.Data.RefusesConnection = true;
  CHECK_THROWS_WITH_AS(Written(server, "Archive"), "system \"Archive\": the server refuses the connection",
                       support::InputError);
}

TEST_CASE("A server that tells of something twice, as a damaged dictionary could without end, is refused") {
  FakeServer server;
  server.Data.AddClass("A.B");
  server.Data.AddQuery("A.B", "By", 1, {});
  for (const auto& [add, message] :
       {std::pair{+[](ServerData& data) { data.Systems = "Samples,conn;Again,conn"; },
                  "system \"Again\", its connect string"},
        std::pair{+[](ServerData& data) { data.AddQuery("A.B", "By", 1, {}); }, "class A.B, query By"},
        std::pair{+[](ServerData& data) { data.AddClass("A.B"); }, "system \"Samples\", class A.B"}}) {
    FakeServer other = server;
    add(other.Data);
    CHECK_THROWS_WITH_AS(Written(other, ""), doctest::Contains((std::string(message) + ": the server tells").c_str()),
                         support::InputError);
  }
}
