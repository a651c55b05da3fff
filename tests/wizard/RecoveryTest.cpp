// What the wizard is left with when the server fails in the middle, and when a user goes from field to field.
#include "tests/support/WizardFixture.h"

#include <doctest/doctest.h>

using namespace formwizard;
using namespace formwizard::tests;

TEST_CASE("A connection that ends in an error is none, and the next one works") {
  WizardFixture wizard;
  wizard.GoToProperties();
  wizard.Dialog.cmdBack.Click();
  wizard.Dialog.cmdBack.Click();
  wizard.Dialog.tvwConnection.ClickNode(wizard.Dialog.tvwConnection.Nodes.Item(2));
  wizard.Server.Data.CannotCreate = true;
  wizard.Next();
  CHECK(wizard.Step() == "2");
  CHECK(wizard.Connected().empty());
  CHECK(wizard.Dialog.Enabled);
  // Whatever the user does now, there is no server to ask.
  wizard.Dialog.tvwConnection.ClickNode(wizard.Dialog.tvwConnection.Nodes.Item(1));
  wizard.Next();
  CHECK(wizard.Step() == "2");
  wizard.Server.Data.CannotCreate = false;
  wizard.Next();
  CHECK(wizard.Connected() == "Samples");
  CHECK(wizard.Step() == "3");
}

TEST_CASE("A generation without usable settings leaves only Cancel") {
  WizardFixture wizard;
  wizard.GoToProperties();
  wizard.Select("Age");
  wizard.Profile.Values["Menu"] = "maybe";
  wizard.Dialog.cmdFinish.Click();
  CHECK(wizard.Buttons() == "---C");
}

TEST_CASE("A property whose collection the server does not know is a simple one") {
  WizardFixture wizard;
  wizard.Server.Data.AddProperty("Sample.Company", "Founded", {{"collection", runtime::Null()}});
  wizard.Next(2);
  wizard.ChooseClass("Sample.Company");
  wizard.Next();
  CHECK(wizard.Desktop.Messages.empty());
  CHECK(wizard.Property("Founded").Tag == "%Library.String");
}

TEST_CASE("Two fields of one kind in a row show their own choices") {
  WizardFixture wizard;
  wizard.Server.Data.AddProperty("Sample.Person", "Born", {{"editable", "0"}});
  wizard.Server.Data.AddProperty("Sample.Person", "Boss", {{"datatype", "0"}, {"type", "Sample.Company"}});
  wizard.Server.Data.AddQuery("Sample.Company", "ByTax", 1, {"ID", "TaxID"});
  wizard.GoToProperties();
  wizard.Dialog.cmdSelectAll.Click();  // *Name, Age, Colors, Notes, Born
  for (const char* reference : {"Spouse", "Boss"}) {
    wizard.Dialog.tvwAttributes.ExpandNode(wizard.Property(reference));
    ui::Node& column = *wizard.Property(reference).Child();
    wizard.Dialog.tvwAttributes.ClickNode(column);
    wizard.Dialog.cmdSelectOne.Click();
  }
  wizard.Next();
  auto& dialog = wizard.Dialog;
  const auto choose = [&](ui::ListBox& list, std::string_view text) {
    for (int i = 0; i < list.ListCount(); ++i) {
      if (list.List(i) == text) return list.ClickItem(i);
    }
    FAIL_CHECK("no entry");
  };
  CHECK_FALSE(dialog.lstUpdateAfter.Enabled);  // the first field is editable
  choose(dialog.lstFields, "Age");
  choose(dialog.lstUpdateAfter, "Name");
  choose(dialog.lstFields, "Born");
  CHECK(dialog.lstUpdateAfter.ListIndex() == -1);
  choose(dialog.lstFields, "Age");
  CHECK(dialog.lstUpdateAfter.Text() == "Name");

  choose(dialog.lstFields, "Spouse.Name");
  dialog.chkRefCombo.Click();
  choose(dialog.lstQueryName, "ByName");
  choose(dialog.lstQueryColumn, "Name");
  choose(dialog.lstFields, "Boss.Name");
  dialog.chkRefCombo.Click();
  choose(dialog.lstQueryName, "ByTax");
  choose(dialog.lstQueryColumn, "TaxID");
  choose(dialog.lstFields, "Spouse.Name");
  CHECK(dialog.lstQueryName.Text() == "ByName");
  CHECK(dialog.lstQueryColumn.Text() == "Name");
  CHECK(dialog.cmdNext.Enabled);
}
