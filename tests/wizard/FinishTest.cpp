#include "tests/support/WizardFixture.h"

#include <doctest/doctest.h>

using namespace formwizard;
using namespace formwizard::tests;

TEST_CASE("Finish generates the form in the order of the list and closes the wizard") {
  for (const bool visitsAttributes : {false, true}) {
    CAPTURE(visitsAttributes);
    WizardFixture wizard;
    wizard.GoToProperties({"Age", "*Name"});
    if (visitsAttributes) wizard.Next();
    wizard.Dialog.cmdFinish.Click();
    CHECK(wizard.Dialog.IsUnloaded());
    CHECK(wizard.Desktop.Texts().empty());
    CHECK(wizard.Server.Data.Calls.back() == "Disconnect");
    CHECK(wizard.Ide.Calls().back() == "VBComponent.Activate ");
    CHECK(wizard.Ide.Count("InsertLines 1 Const m_classname = \"Sample.Person\"") == 1);
    CHECK(wizard.State.Form.SelectedFields[Int16(1)] == Int16(2));
    CHECK(wizard.State.NewComponent->Name() == "frmPerson");
  }
}

TEST_CASE_FIXTURE(WizardFixture, "Finish takes the list as the Attributes step last showed it") {
  GoToProperties({"Age"});
  Next();
  Back();
  Select("*Name");
  Back(3);
  CHECK(Where() == "1 -NFC");  // usable on the first step too
  Dialog.cmdFinish.Click();
  CHECK(Dialog.IsUnloaded());
  CHECK(State.Form.SelectedFields.UpperBound() == Int16(1));
}

TEST_CASE("An error in a stage is reported under the driver's name and leaves only Cancel") {
  for (const auto& [key, value, status, error, first] :
       {std::tuple{"Columns", "0", "Computing layout ...", "Division by zero", "Age"},
        std::tuple{"Columns", "0", "Computing layout ...", "Division by zero", "Spouse"},
        std::tuple{"Menu", "maybe", "Begin creating new form ...", "Type mismatch", "Age"}}) {
    CAPTURE(std::string(key));
    CAPTURE(std::string(first));
    WizardFixture wizard;
    wizard.GoToProperties();
    wizard.Select(first == std::string("Spouse") ? wizard.Inside(first) : wizard.Property(first));
    wizard.Profile.Values[key] = value;
    wizard.Dialog.cmdFinish.Click();
    CHECK(wizard.Desktop.Texts() == std::string("Error occurred in procedure cmdFinish_Click : ") + error + "\n");
    CHECK(wizard.Where() == "4 ---C");
    CHECK(wizard.Dialog.Enabled);
    CHECK_FALSE(wizard.Dialog.IsUnloaded());
    CHECK(wizard.Status() == status);
  }
}
