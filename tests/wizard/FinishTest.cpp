#include "tests/support/WizardFixture.h"

#include <doctest/doctest.h>

using namespace formwizard;
using namespace formwizard::tests;

TEST_CASE("Finish generates the form in the order of the list and closes the wizard") {
  for (const bool visitsAttributes : {false, true}) {
    WizardFixture wizard;
    wizard.GoToProperties();
    wizard.Select("Age");
    wizard.Select("*Name");
    if (visitsAttributes) wizard.Next();
    wizard.Dialog.cmdFinish.Click();
    CHECK(wizard.Dialog.IsUnloaded());
    CHECK(wizard.Desktop.Messages.empty());
    CHECK(wizard.Server.Data.Calls.back() == "Disconnect");
    CHECK(wizard.Ide.Transcript.Calls.back() == "Activate");
    CHECK(wizard.Ide.Transcript.Has("Component.Name = frmPerson"));
    CHECK(wizard.Ide.Transcript.Has("InsertLines 1: Const m_classname = \"Sample.Person\""));
    CHECK(wizard.State.Form.SelectedFields[Int16(1)] == Int16(2));
    CHECK(wizard.State.NewComponent->Name() == "frmPerson");
  }
}

TEST_CASE("An error in a stage is reported under the driver's name and leaves only Cancel") {
  WizardFixture wizard;
  wizard.GoToProperties();
  wizard.Select("Age");
  wizard.Profile.Values["Columns"] = "0";
  wizard.Dialog.cmdFinish.Click();
  CHECK(wizard.Desktop.Texts() ==
        std::vector<std::string>{"Error occurred in procedure cmdFinish_Click : Division by zero"});
  CHECK(wizard.Buttons() == "---C");
  CHECK(wizard.Dialog.Enabled);
  CHECK_FALSE(wizard.Dialog.IsUnloaded());
  CHECK(wizard.Status() == "Computing layout ...");

  WizardFixture broken;
  broken.GoToProperties();
  broken.Select("Age");
  broken.Profile.Values["Menu"] = "maybe";  // the settings are loaded under the driver's handler
  broken.Dialog.cmdFinish.Click();
  CHECK(broken.Desktop.Texts() ==
        std::vector<std::string>{"Error occurred in procedure cmdFinish_Click : Type mismatch"});
}

TEST_CASE("An error that nothing handles is shown and leaves the dialog usable") {
  WizardFixture wizard;
  wizard.Profile.Values["Columns"] = "many";  // read on entering the class step
  wizard.Next(2);
  CHECK(wizard.Desktop.Texts() == std::vector<std::string>{"Run-time error '13':\n\nType mismatch"});
  CHECK(wizard.Dialog.Enabled);
  CHECK(wizard.Step() == "3");
}
