// What the environment and the server refuse is shown to the user, who goes on.
#include "tests/apps/addin-dll/HostFixture.h"

using namespace formwizard::tests;
using namespace formwizard::tests::host;

namespace {

const std::string OneClass = R"({"systems": [{"name": "S", "connect": "c", "classes": [
  {"Name": "Sample.Item", "properties": [{"Name": "Number"}]}]}]})";

std::string Report(const std::string& routine, const std::string& description) {
  return "Error: Error occurred in procedure " + routine + " : " + description;
}

void GoBackAndNext() {
  PressAccessKey('B');
  PressAccessKey('N');
}

void ChooseNumber() {
  for (int i = 0; i < 3; ++i) PressAccessKey('N');
  KeyboardUser().Take(WizardDesign().tvwAttributes, "Number", "", WizardDesign().cmdSelectOne);
}

}  // namespace

TEST_CASE("A server that fails is reported, and the step can be tried again") {
  HostFixture host(OneClass);
  host.Connect();
  for (const char* member :
       {"Server.Create", "Factory.SystemList", "Factory.Connect", "Factory.ResultSet", "ResultSet.Next"}) {
    PlannedFailures[member] = Failure::Exception;
  }
  host.UseWizard([&] {
    PressAccessKey('N');
    CHECK(DismissMessage() == Report("PopulateConnection", "ActiveX component can't create object"));
    GoBackAndNext();
    CHECK(DismissMessage() == Report("PopulateConnection", "The host refuses"));
    PressAccessKey('N');  // there is no system to choose
    CHECK(IsAtStep(2));
    GoBackAndNext();
    PressAccessKey('N');
    CHECK(DismissMessage() == Report("ConnectToSystem", "The host refuses"));
    PressAccessKey('N');
    CHECK(DismissMessage() == Report("PopulateClassList", "The host refuses"));  // the result set
    GoBackAndNext();
    CHECK(DismissMessage() == Report("PopulateClassList", "The host refuses"));  // its rows
    GoBackAndNext();
    PressAccessKey('N');
    CHECK(IsAtStep(4));
    Press(VK_ESCAPE);
  });
}

TEST_CASE(
    "Disconnected in the middle of a call of its run, the add-in makes no other and gives the run up in silence") {
  using Each = std::function<void(HostFixture&, const std::string&)>;
  const auto finish = [](const Each& atEachCall) {
    HostFixture host(OneClass);
    host.Connect();
    host.UseWizard([&] {
      ChooseNumber();
      host.Window.Run([&] {
        AtEachCall = [&](const std::string& member) {
          const bool isCall = member.find('.') != std::string::npos;               // no look for a name
          if (isCall && !member.starts_with("Factory")) atEachCall(host, member);  // the server stays
        };
      });
      Finish();
    });
    AtEachCall = nullptr;
  };
  std::set<std::string> members;
  finish([&](HostFixture&, const std::string& member) { members.insert(member); });
  CHECK(members.size() > 15);
  for (const std::string& last : members) {
    CAPTURE(last);
    enum { Before, Meanwhile, Over } state = Before;
    int calls = 0;
    finish([&](HostFixture& host, const std::string& member) {
      if (state == Over) ++calls;
      if (state != Before || member != last) return;
      state = Meanwhile;
      host.Disconnect();
      state = Over;
    });
    CHECK(state == Over);
    CHECK(calls == 0);
  }
}
