#include "adapters/sqlite/Dictionary.h"
#include "adapters/sqlite/Snapshot.h"
#include "support/Failures.h"
#include "tests/support/FakeServer.h"
#include "tests/support/TemporaryFolder.h"

#include <doctest/doctest.h>

#include <sstream>

using namespace formwizard;
using namespace formwizard::adapters::sqlite;
using namespace formwizard::tests;

namespace {

std::string Exported(const std::string& file) {
  std::ostringstream out;
  ExportDictionary(file, out);
  return out.str();
}

std::string Snapshot(wizard::factory::FactoryCreator& server, const std::string& system) {
  std::ostringstream out;
  WriteSnapshot(server, system, out);
  return out.str();
}

}  // namespace

TEST_CASE("A snapshot of a server makes the dictionary that the server had") {
  const TemporaryFolder folder;
  std::istringstream json(R"({"systems":[{"name":"S","connect":"c","classes":[
    {"Name":"A.B","properties":[
      {"Name":"P","Caption":"The \u00e9","Type":"T","Datatype":0,"Serial":1,"Required":1,"Editable":0,"MaxLen":7},
      {"Name":"Q","Collection":"list"}],
     "queries":[{"Name":"By","ContainId":2,"columns":["ID","N"],"params":["param1","param2"]}]},
    {"Name":"A.C","Persistent":0}]},
    {"name":"T","connect":"d","classes":[{"Name":"X.Y"}]}]})");
  ImportDictionary(json, "json", folder / "first");
  const auto server = OpenDictionary(folder / "first");
  std::istringstream taken(Snapshot(*server, ""));
  ImportDictionary(taken, "snapshot", folder / "second");
  CHECK(Exported(folder / "second") == Exported(folder / "first"));

  const std::string one = Snapshot(*server, "T");
  CHECK(one.find("X.Y") != std::string::npos);
  CHECK(one.find("A.B") == std::string::npos);
  CHECK_THROWS_WITH_AS(Snapshot(*server, "U"), "the server has no system \"U\"; it has S,c;T,d", support::InputError);
}

TEST_CASE("A snapshot that the server refuses says what was asked") {
  FakeServer server;
  server.Data.AddClass("A.B");
  server.Data.AddProperty("A.B", "P");
  server.Data.FailAtRow = 2;
  CHECK_THROWS_WITH_AS(Snapshot(server, "Samples"), "system \"Samples\": the server failed", support::InputError);
  server.Data.FailAtRow = 0;
  server.Data.RefusesConnection = true;
  CHECK_THROWS_WITH_AS(Snapshot(server, "Archive"), "system \"Archive\": the server refuses the connection",
                       support::InputError);
}
