#include "tests/support/WizardFixture.h"

#include <doctest/doctest.h>

using namespace formwizard;
using namespace formwizard::tests;

TEST_CASE("The steps follow one another with their buttons and captions") {
  WizardFixture wizard;
  CHECK(wizard.Buttons() == "-N-C");
  CHECK(wizard.Dialog.Caption == "Ostrel Form Wizard - Step 1 of 6");
  CHECK(wizard.Status() == "Ready");
  wizard.Next();
  CHECK(wizard.Step() == "2");
  wizard.Next();
  CHECK(wizard.Buttons() == "BN-C");
  wizard.Next();
  CHECK(wizard.Step() == "4");
  CHECK(wizard.Buttons() == "B--C");  // nothing is selected yet
  wizard.Select("Number");
  CHECK(wizard.Buttons() == "BNFC");
  wizard.Next(2);
  CHECK(wizard.Step() == "6");
  CHECK(wizard.Buttons() == "B-FC");
  CHECK(wizard.Dialog.cmdFinish.Default);
  CHECK_FALSE(wizard.Dialog.cmdNext.Default);
  CHECK(wizard.Dialog.Caption == "Ostrel Form Wizard - Step 6 of 6");
  CHECK(wizard.Dialog.lblStep5_2.Caption ==
        "You have successfully specified the information necessary to create a Visual Basic form for class "
        "Core.Invoice.");
  for (int i = 0; i < 3; ++i) wizard.Dialog.cmdBack.Click();
  CHECK(wizard.Step() == "3");
  CHECK(wizard.Buttons() == "BNFC");  // Finish stays usable once properties are selected
}

TEST_CASE("The completion text keeps the class that it was first replaced by") {
  WizardFixture wizard;
  wizard.Next(3);
  wizard.Select("Number");
  wizard.Next(2);
  for (int i = 0; i < 3; ++i) wizard.Dialog.cmdBack.Click();
  wizard.ChooseClass("Sample.Company");
  wizard.Next();
  CHECK(wizard.Dialog.lstSelected.ListCount() == 0);  // another class: the selection is gone
  wizard.Select("Name");
  wizard.Next(2);
  CHECK(wizard.Dialog.lblStep5_2.Caption.Get().ends_with("for class Core.Invoice."));
}

TEST_CASE("Going back to the class step and forward with the same class keeps the selection") {
  WizardFixture wizard;
  wizard.GoToProperties();
  wizard.Select("Age");
  wizard.Dialog.cmdBack.Click();
  wizard.Next();
  CHECK(WizardFixture::Entries(wizard.Dialog.lstSelected) == "*Age ");
  CHECK(std::ranges::count(wizard.Server.Data.Calls, "ResultSet %ClassDefinition") == 1);
}

TEST_CASE("Systems are listed, remembered and connected once") {
  WizardFixture wizard;
  wizard.Profile.Values["LastConnect"] = "Archive";
  wizard.Next();
  CHECK(wizard.Dialog.tvwConnection.SelectedItem->Text == "Archive");
  wizard.Dialog.tvwConnection.ClickNode(wizard.Dialog.tvwConnection.Nodes.Item(1));
  CHECK(wizard.Status() == "conn");
  wizard.Next();
  CHECK(wizard.Step() == "3");
  CHECK(wizard.Connected() == "Samples");
  CHECK(wizard.Profile.Values["LastConnect"] == "Samples");
  CHECK(wizard.Dialog.tvwConnection.Nodes.Item(1).Image == Int16(5));
  CHECK(wizard.Dialog.tvwConnection.Nodes.Item(2).Image == Int16(4));
  wizard.Dialog.cmdBack.Click();
  wizard.Next();  // still connected to it: no new attempt
  CHECK(std::ranges::count(wizard.Server.Data.Calls, "Connect conn") == 1);
  wizard.Dialog.cmdBack.Click();
  wizard.DoubleClick(wizard.Dialog.tvwConnection, wizard.Dialog.tvwConnection.Nodes.Item(2));
  CHECK(wizard.Connected() == "Archive");
  CHECK(wizard.Server.Data.Calls.back() != "Disconnect");
  wizard.Dialog.cmdCancel.Click();
  CHECK(wizard.Dialog.IsUnloaded());
  CHECK(wizard.Server.Data.Calls.back() == "Disconnect");
}

TEST_CASE("A list of systems ends at its first empty entry, and names need no connect string") {
  for (const auto& [list, names] : {std::pair{"", ""}, std::pair{"A,x;;B,y", "A:x "}, std::pair{"Alone", "Alone: "},
                                    std::pair{"A,x;B,y,z;", "A:x B:y "}}) {
    WizardFixture wizard;
    wizard.Server.Data.Systems = list;
    wizard.Next();
    std::string found;
    for (const ui::Node& node : wizard.Dialog.tvwConnection.Nodes.All())
      found += node.Text.Get() + ":" + node.Tag + " ";
    CHECK(found == names);
  }
}

TEST_CASE("Without a connection the dialog stays on its step and says why") {
  WizardFixture refused;
  refused.Server.Data.RefusesConnection = true;
  refused.Next(2);
  CHECK(refused.Step() == "2");
  CHECK(refused.Status() == "Unable to connect.Samples: ");
  CHECK(refused.Connected().empty());
  CHECK_FALSE(refused.Profile.Values.contains("LastConnect"));
  CHECK(refused.Dialog.Enabled);

  WizardFixture empty;
  empty.Server.Data.Systems = "";
  empty.Next(2);
  CHECK(empty.Step() == "2");

  WizardFixture none;
  none.Server.Data.CannotCreate = true;
  none.Next(2);
  CHECK(none.Step() == "2");
  CHECK(none.Desktop.Texts() == std::vector<std::string>{"Error occurred in procedure PopulateConnection : ActiveX "
                                                         "component can't create object"});
  CHECK(none.Dialog.Enabled);
  CHECK(none.Desktop.Pointers.back() == ui::MousePointer::Default);
}
