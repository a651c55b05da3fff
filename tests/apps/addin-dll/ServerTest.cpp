// The command line that asks the installed server.
#include "adapters/com/ComFactory.h"
#include "apps/common/Dictionaries.h"
#include "apps/common/Platform.h"
#include "tests/apps/addin-dll/HostFixture.h"
#include "tests/support/RunHere.h"

using namespace formwizard;
using namespace formwizard::tests;
using namespace formwizard::tests::host;

TEST_CASE("The installed server is looked at, and a dictionary is taken from it, by the command line") {
  const NothingIsLeft atTheEnd;
  const TemporaryFolder folder;
  std::istringstream json(R"({"systems":[{"name":"S","connect":"c","classes":[
    {"Name":"A.B","properties":[{"Name":"P","Caption":"The P","Required":1,"MaxLen":7}],
     "queries":[{"Name":"By","ContainId":2,"columns":["ID","N"],"params":["param1"]}]}]}]})");
  apps::common::ImportDictionary(json, "json", folder / "first");
  UsedMembers.clear();
  {
    const HostServer server(apps::common::OpenDictionary(folder / "first"));
    CHECK(RunHere({"systems", "--server"}).Out == "S\tc\n");
    CHECK(RunHere({"classes", "--server"}).Out == "A.B\n");
    CHECK(RunHere({"properties", "--server", "--class", "A.B"}).Out.starts_with("P\ttext\t"));
    CHECK(RunHere({"queries", "--server", "--class", "A.B"}).Out.starts_with("By\t2\t"));
    CHECK(RunHere({"dictionary", "export", "--server", folder / "taken.json"}).Error.empty());
    std::ostringstream nowhere;
    const std::set<std::string> members = UsedMembers;
    const std::set<std::string> withoutResult{"Factory.Connect", "ResultSet.Execute", "ResultSet.Close"};
    for (const std::string& member : members) {
      for (const Failure how : AllFailures) {
        if (how == Failure::Null || (how == Failure::WrongType && withoutResult.contains(member))) continue;
        CAPTURE(member);
        CAPTURE(static_cast<int>(how));
        PlannedFailures[member] = how;
        CHECK_THROWS_WITH(apps::common::ExportServer(*apps::common::InstalledServer(), "", nowhere),
                          doctest::Contains(DescriptionOf(how).c_str()));
      }
    }
    PlannedFailures["Factory.Disconnect"] = Failure::Null;
    const auto factory = com::ComFactoryCreator("OstrelObject.Factory").Create();
    CHECK(ErrorNumberOf([&] { factory->Disconnect(); }) == runtime::InvalidUseOfNull);
  }
  std::istringstream taken(ReadFile(folder / "taken.json"));
  apps::common::ImportDictionary(taken, "taken.json", folder / "second");
  std::ostringstream first, second;
  apps::common::ExportDictionary(folder / "first", first);
  apps::common::ExportDictionary(folder / "second", second);
  CHECK(second.str() == first.str());
  // Without one that is installed there is a reason and a remedy.
  CHECK(Has(RunHere({"systems", "--server"}).Error, "install the server's client"));
}
