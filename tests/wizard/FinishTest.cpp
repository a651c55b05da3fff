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
    CHECK(wizard.Desktop.Pointers.back() == ui::MousePointer::Default);
    CHECK(wizard.Desktop.Texts().empty());
    CHECK(wizard.Server.Data.Calls.back() == "Disconnect");
    CHECK(wizard.Ide.Calls().back() == "VBComponent.Activate ");
    CHECK(wizard.Ide.Count("InsertLines 1 Const m_classname = \"Sample.Person\"") == 1);
    CHECK(wizard.State.Form.SelectedFields[Int16(1)] == Int16(2));
    CHECK(wizard.State.NewComponent->Name() == "frmPerson");
  }
}

TEST_CASE("Finish takes the list as the Attributes step last showed it, but never that of another class") {
  for (const bool visitsAttributes : {false, true}) {
    WizardFixture wizard;
    wizard.Server.Data.AddProperty("Sample.Company", "Size");
    wizard.GoToProperties({"Age"});
    wizard.Next();
    wizard.Back(2);
    wizard.ChooseClass("Sample.Company");
    wizard.Next();
    wizard.Select("Name");
    wizard.Next(visitsAttributes ? 1 : 0);
    wizard.Back(visitsAttributes ? 1 : 0);
    wizard.Select("Size");
    wizard.Back(3);
    CHECK(wizard.Where() == "1 -NFC");  // usable on the first step too
    wizard.Dialog.cmdFinish.Click();
    CHECK(wizard.Dialog.IsUnloaded());
    CHECK(wizard.State.Form.SelectedFields.UpperBound() == Int16(visitsAttributes ? 1 : 2));
  }
}

TEST_CASE("A Finish that failed leaves only Cancel, whatever is clicked then") {
  struct Case {
    std::string key, value, status, error, where;
    int steps;  // from the Properties step
  };
  for (const Case& c : {Case{"Columns", "0", "Computing layout ...", "Division by zero", "4 ---C", 0},
                        Case{"Columns", "0", "Computing layout ...", "Division by zero", "5 ---C", 1},
                        Case{"Menu", "maybe", "Begin creating new form ...", "Type mismatch", "3 ---C", -1}}) {
    CAPTURE(c.where);
    WizardFixture wizard;
    wizard::frmWizard& dialog = wizard.Dialog;
    wizard.GoToProperties();
    for (ui::Node* node : {&wizard.Inside("Spouse"), &wizard.Property("Age")}) wizard.Select(*node);
    wizard.Next(std::max(c.steps, 0));
    wizard.Back(std::max(-c.steps, 0));
    wizard.Profile.Values[c.key] = c.value;
    dialog.cmdFinish.Click();
    const std::string message = "Error occurred in procedure cmdFinish_Click : " + c.error + "\n";
    CHECK(wizard.Desktop.Texts() == message);
    CHECK(wizard.Status() == c.status);
    CHECK(wizard.Desktop.Pointers.back() == ui::MousePointer::Default);

    for (ui::Node& node : dialog.tvwClasses.Nodes.All()) dialog.tvwClasses.ClickNode(node);
    for (const char* property : {"*Name", "Home"}) wizard.Select(property);
    for (ui::CommandButton* button : {&dialog.cmdSelectAll, &dialog.cmdDeSelectOne}) button->Click();
    for (const int field : {1, 0}) dialog.lstFields.ClickItem(field);
    dialog.chkRefCombo.Click();
    dialog.lstQueryName.ClickItem(0);
    dialog.lstQueryColumn.ClickItem(0);
    dialog.PressEnter();
    dialog.cmdFinish.Click();
    CHECK(wizard.Where() == c.where);
    CHECK(dialog.Enabled);
    CHECK(wizard.Desktop.Texts() == message);
  }
}
