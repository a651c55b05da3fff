#include "tests/wizard/Walk.h"

using namespace formwizard;
using namespace formwizard::tests;

namespace {

std::string ConnectionCalls(const Walk& wizard) {
  std::string all;
  for (const std::string& call : wizard.Server.Data.Calls) {
    if (call.starts_with("Connect") || call == "Disconnect") all += call + ", ";
  }
  return all;
}

// Names, connect strings and pictures; the one that is selected has a star.
std::string Systems(Walk& wizard) {
  auto& tree = wizard.Dialog.tvwConnection;
  std::string all;
  for (ui::Node& node : tree.Nodes.All()) {
    all += (tree.SelectedItem == &node ? "*" : "") + node.Text.Get() + ":" + node.Tag + Text(node.Image.Get()) + " ";
  }
  return all;
}

}  // namespace

TEST_CASE("A list of systems ends at its first empty entry, and the remembered system is selected") {
  struct Case {
    std::string list, remembered, shown;
  };
  for (const Case& c : {Case{"", "", ""}, Case{"A,x;;B,y", "B", "*A:x4 "}, Case{"Alone", "", "*Alone:4 "},
                        Case{"A,x;B,y;B,z;C,w", "B", "A:x4 B:y4 *B:z4 C:w4 "},  // the last of equal names
                        Case{"A,x;B,y,z;", "b", "*A:x4 B:y4 "}}) {
    CAPTURE(c.list);
    Walk wizard;
    wizard.Server.Data.Systems = c.list;
    wizard.Profile.Values["LastConnect"] = c.remembered;
    wizard.Next();
    CHECK(Systems(wizard) == c.shown);
  }
}

TEST_CASE("Another system means another connection, class list and selection") {
  for (const std::string answer : {"at once", "refuses", "Create", "Disconnect"}) {  // the last two: a call that fails
    CAPTURE(answer);
    Walk wizard;
    wizard.Server.Data.RefusesDisconnect = answer == "refuses";
    wizard.Do("> > class=Sample.Person > +Age < < system=2");
    if (answer == "Create" || answer == "Disconnect") {
      wizard.Server.Data.FailingCall = answer;
      CHECK(wizard.Do(">") == "2 BNFC");
      CHECK(wizard.Connected().empty());
      CHECK(Systems(wizard) == "Samples:conn4 *Archive:other4 ");
      wizard.Server.Data.FailingCall = "";
    }
    wizard.Next();
    CHECK(ConnectionCalls(wizard) == "Connect conn, Disconnect, Connect other, ");
    CHECK(Systems(wizard) == "Samples:conn4 *Archive:other5 ");
    CHECK(wizard.Profile.Values["LastConnect"] == "Archive");
    CHECK(std::ranges::count(wizard.Server.Data.Calls, "ResultSet %ClassDefinition") == 2);
    wizard.Server.Data.AddProperty("Sample.Person", "New");
    CHECK(wizard.Do("class=Sample.Person >") == "4 B--C");  // of the same name as before
    CHECK(wizard.Dialog.tvwAttributes.Nodes.Roots().back()->Text == "New");
    CHECK(wizard.Dialog.lstSelected.ListCount() == 0);
  }
}

TEST_CASE("Every ending closes the connection, whatever the server answers") {
  const std::map<std::string, std::function<void(Walk&)>> endings{
      {"Escape", [](Walk& wizard) { wizard.Dialog.PressEscape(); }},
      {"Close", [](Walk& wizard) { wizard.Dialog.Close(); }},
      {"Finish", [](Walk& wizard) { wizard.Dialog.cmdFinish.Click(); }},
      {"Failure", [](Walk& wizard) {
         wizard.Ide.Refuse["VBComponents.Add"] = runtime::AutomationError;
         wizard.Dialog.cmdFinish.Click();
         CHECK(wizard.Where() == "4 ---C");
         CHECK(ConnectionCalls(wizard) == "Connect conn, ");
         wizard.Dialog.cmdCancel.Click();
       }}};
  for (const auto& [how, end] : endings) {
    for (const std::string answer : {"yes", "no", "error"}) {
      CAPTURE(how);
      CAPTURE(answer);
      Walk wizard;
      wizard.Server.Data.RefusesDisconnect = answer == "no";
      wizard.Server.Data.FailingCall = answer == "error" ? "Disconnect" : "";
      wizard.Do("> > class=Sample.Person > +Age");
      end(wizard);
      CHECK(wizard.Dialog.IsUnloaded());
      CHECK(ConnectionCalls(wizard) == "Connect conn, Disconnect, ");
      if (how == "Finish" && answer == "error") {
        CHECK(wizard.Desktop.Texts() == "Error occurred in procedure cmdFinish_Click : the server failed\n");
      }
    }
  }
}

TEST_CASE("A server that fails keeps the dialog where it is, and usable") {
  struct Case {
    std::string failingCall, systems, message, status;
    bool refuses = false;
  };
  const std::string populating = "Error occurred in procedure PopulateConnection : ";
  for (const Case& c : {Case{"SystemList", "A,x", populating + "the server failed\n", "Ready"},
                        Case{"Create", "A,x", populating + "ActiveX component can't create object\n", "Ready"},
                        Case{"Connect", "A,x", "Error occurred in procedure ConnectToSystem : the server failed\n",
                             "Unable to connect.A: the server failed"},
                        Case{"", "A;B,y", "", "Unable to connect.A: "},  // nothing to connect with
                        Case{"", "A,x", "", "Unable to connect.A: ", true}, Case{"", "", "", "Ready"}}) {
    CAPTURE(c.failingCall);
    CAPTURE(c.systems);
    Walk wizard;
    wizard.Server.Data.Systems = c.systems;
    wizard.Server.Data.FailingCall = c.failingCall;
    wizard.Server.Data.RefusesConnection = c.refuses;
    CHECK(wizard.Do("> >") == "2 BN-C");
    CHECK(wizard.Desktop.Texts() == c.message);
    CHECK(wizard.Status() == c.status);
    CHECK(wizard.Connected().empty());
    CHECK_FALSE(wizard.Profile.Values.contains("LastConnect"));
    CHECK(wizard.Desktop.Pointers.back() == ui::MousePointer::Default);
    wizard.Server.Data = Walk().Server.Data;
    wizard.Do("< >");
    CHECK(wizard.Do("system=" + std::to_string(wizard.Dialog.tvwConnection.Nodes.Count()) + " >") == "3 BN-C");
  }
}
