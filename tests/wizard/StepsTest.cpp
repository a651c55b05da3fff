#include "tests/support/FakeTreeView.h"
#include "tests/support/WizardFixture.h"

#include <doctest/doctest.h>

using namespace formwizard;
using namespace formwizard::tests;
namespace kind = formwizard::model::kind;

namespace {

std::string Tree(ui::TreeView& tree) {
  std::string all;
  for (const ui::Node& node : tree.Nodes.All()) {
    all += (node.Parent() ? " " : "") + node.Text.Get() + "[" + node.Key() + "," + node.Tag + "," +
           Text(node.Image.Get()) + "]\n";
  }
  return all;
}

}  // namespace

TEST_CASE("Persistent classes stand below their packages and the first one is chosen") {
  WizardFixture wizard;
  wizard.Next(2);
  CHECK(Tree(wizard.Dialog.tvwClasses) ==
        "Billing[Billing,,8]\n Core.Invoice[,Billing.Core.Invoice,1]\n"
        "Sample[Sample,,8]\n Company[,Sample.Company,1]\n Person[,Sample.Person,1]\n");
  CHECK(wizard.Dialog.tvwClasses.SelectedItem->Tag == "Billing.Core.Invoice");
  CHECK(wizard.Dialog.cmdNext.Enabled);
  FakeTreeView view(wizard.Dialog.tvwClasses);
  view.DoubleClickRow(2);  // a package
  CHECK(wizard.Step() == "3");
  CHECK_FALSE(wizard.Dialog.cmdNext.Enabled);
  view.DoubleClickRow(9);  // beside all nodes
  CHECK(wizard.Step() == "3");
  view.DoubleClickRow(4);
  CHECK(wizard.Step() == "4");
}

TEST_CASE("A class list that goes wrong is reported and keeps what it has") {
  for (const auto& [names, message] :
       {std::pair{std::vector<std::string>{"A.B", "NoPackage"}, "Invalid procedure call or argument"},
        std::pair{std::vector<std::string>{"A.B", "C.D", "A.E"}, "Key is not unique in collection"}}) {
    WizardFixture wizard;
    wizard.Server.Data.Queries["%ClassDefinition/ClassInfo/"].clear();
    for (const std::string& name : names) wizard.Server.Data.AddClass(name);
    wizard.Next(2);
    CHECK(wizard.Desktop.Texts() ==
          std::vector<std::string>{std::string("Error occurred in procedure PopulateClassList : ") + message});
    CHECK(wizard.Dialog.tvwClasses.Nodes.Count() >= 2);
    CHECK(wizard.Status() == "Ready");
    CHECK(wizard.Dialog.Enabled);
  }
  WizardFixture failing;
  failing.Server.Data.FailAtRow = 3;
  failing.Next(2);
  CHECK(failing.Desktop.Texts() ==
        std::vector<std::string>{"Error occurred in procedure PopulateClassList : the server failed"});
  CHECK(failing.Dialog.tvwClasses.Nodes.Count() == 2);
}

TEST_CASE("Properties become records and nodes of their kind; objects load when they are opened") {
  WizardFixture wizard;
  wizard.Profile.Values["MultilineRows"] = "7";
  wizard.GoToProperties();
  CHECK(Tree(wizard.Dialog.tvwAttributes) ==
        "*Name[1key,%Library.String,2]\nAge[2key,%Library.String,2]\nHome[3key,Sample.Address,6]\n [,,0]\n"
        "Spouse[4key,Sample.Person,6]\n [,,0]\nColors[5key,%Library.String,2]\nNotes[6key,%Library.String,2]\n");
  const auto& fields = wizard.State.Form.Fields;
  CHECK(fields[Int16(1)].FieldKind == kind::TextBox);
  CHECK(fields[Int16(1)].MaxWidth == Int32(500));  // fifty characters of ten twips
  CHECK(fields[Int16(1)].DisplayName == "Name");   // without the star
  CHECK(fields[Int16(2)].FieldKind == kind::ReadOnlyLabel);
  CHECK(fields[Int16(2)].MaxWidth == Int32(0));
  CHECK(fields[Int16(4)].FieldKind == kind::ReferenceLabel);
  CHECK(fields[Int16(5)].RowCount == Int16(3));
  CHECK(fields[Int16(6)].FieldKind == kind::MultiLine);
  CHECK(fields[Int16(6)].RowCount == Int16(7));

  wizard.Dialog.tvwAttributes.ExpandNode(wizard.Property("Home"));
  CHECK(wizard.Property("Home").Tag.empty());
  const model::FieldRecord& city = fields[Int16(7)];
  CHECK(city.DisplayName == "Home.City");
  CHECK(city.PropertyName == "Home.City");
  CHECK(city.Caption == "Home Town");
  CHECK(city.FieldKind == kind::TextBox);

  wizard.Dialog.tvwAttributes.ExpandNode(wizard.Property("Spouse"));
  const model::FieldRecord& name = fields[Int16(8)];
  CHECK(name.DisplayName == "Spouse.Name");
  CHECK(name.PropertyName == "Spouse");
  CHECK(name.ReferenceColumn == "Name");
  CHECK(name.ReferenceClass == "Sample.Person");
  CHECK(name.FieldKind == kind::ReferenceLabel);
  const auto calls = wizard.Server.Data.Calls.size();
  wizard.Dialog.tvwAttributes.CollapseNode(wizard.Property("Spouse"));
  wizard.Dialog.tvwAttributes.ExpandNode(wizard.Property("Spouse"));
  CHECK(wizard.Server.Data.Calls.size() == calls);  // loaded once
}

TEST_CASE("Properties that fail half way are reported and keep what was read") {
  WizardFixture wizard;
  wizard.Next(2);
  wizard.ChooseClass("Sample.Person");
  wizard.Server.Data.FailAtRow = 3;
  wizard.Next();
  CHECK(wizard.Desktop.Texts() ==
        std::vector<std::string>{"Error occurred in procedure PopulateAttributeList : the server failed"});
  CHECK(wizard.Dialog.tvwAttributes.Nodes.Count() == 2);
  CHECK(wizard.Status() == "Ready");
}

TEST_CASE("The selection follows the user, tree and list always agree") {
  WizardFixture wizard;
  wizard.GoToProperties();
  auto& dialog = wizard.Dialog;
  const auto selected = [&] { return WizardFixture::Entries(dialog.lstSelected); };
  wizard.Select("Age");
  wizard.Select("Age");   // a second time is refused
  wizard.Select("Home");  // and an object is
  CHECK(selected() == "*Age ");
  dialog.tvwAttributes.ExpandNode(wizard.Property("Home"));
  wizard.Dialog.tvwAttributes.CollapseNode(wizard.Property("Home"));
  dialog.cmdSelectAll.Click();
  CHECK(selected() == "Age Name Colors *Notes ");  // nothing of what is collapsed
  wizard.Property("Home").Expanded = true;
  dialog.cmdSelectAll.Click();
  CHECK(selected() == "Age Name Colors Notes *Home.City ");
  dialog.cmdMoveUp.Click();
  dialog.cmdMoveUp.Click();
  CHECK(selected() == "Age Name *Home.City Colors Notes ");
  dialog.cmdMoveDown.Click();
  CHECK(selected() == "Age Name Colors *Home.City Notes ");
  dialog.lstSelected.ClickItem(4);
  dialog.cmdMoveDown.Click();
  CHECK(selected() == "Age Name Colors Home.City *Notes ");
  dialog.cmdDeSelectOne.Click();
  CHECK(selected() == "Age Name Colors *Home.City ");
  CHECK(wizard.Property("Notes").Image == Int16(2));
  wizard.DoubleClick(dialog.tvwAttributes, wizard.Property("*Name"));
  CHECK(selected() == "Age *Colors Home.City ");
  wizard.DoubleClick(dialog.tvwAttributes, wizard.Property("*Name"));
  CHECK(selected() == "Age Colors Home.City *Name ");
  dialog.cmdDeSelectAll.Click();
  CHECK(selected().empty());
  CHECK(wizard.Buttons() == "B--C");
  for (const ui::Node& node : dialog.tvwAttributes.Nodes.All()) CHECK(node.Image != Int16(3));
  dialog.cmdDeSelectOne.Click();
  dialog.cmdMoveUp.Click();
  CHECK(wizard.Desktop.Messages.empty());
}

TEST_CASE("Names become control names") {
  CHECK(wizard::ConvertKeyNameToIntName("Home.City") == "HomeCity");
  CHECK(wizard::ConvertKeyNameToIntName("%Id") == "sys_Id");
  CHECK(wizard::ConvertKeyNameToIntName("a.%b.c") == "asys_bc");
}

TEST_CASE("Attributes are written straight into the records") {
  WizardFixture wizard;
  wizard.GoToProperties();
  auto& dialog = wizard.Dialog;
  for (const char* name : {"*Name", "Age", "Notes"}) wizard.Select(name);
  wizard.Next();
  const auto& fields = wizard.State.Form.Fields;
  CHECK(dialog.lstFields.ListIndex() == 0);
  dialog.txtCaption[0].Type("Full name");
  dialog.chkReadOnly.Click();
  CHECK(fields[Int16(1)].FieldKind == kind::ReadOnlyLabel);
  dialog.lstUpdateAfter.ClickItem(1);
  CHECK(fields[Int16(1)].UpdateAfter == Int16(2));
  dialog.chkReadOnly.Click();
  CHECK(fields[Int16(1)].FieldKind == kind::TextBox);
  CHECK_FALSE(dialog.lstUpdateAfter.Enabled);
  CHECK(fields[Int16(1)].UpdateAfter == Int16(2));  // kept
  dialog.chkReadOnly.Click();
  CHECK(dialog.lstUpdateAfter.ListIndex() == 1);  // and shown again
  CHECK(fields[Int16(1)].Caption == "Full name");

  dialog.lstFields.ClickItem(2);
  CHECK(dialog.FrontPanel() == 4);
  CHECK(dialog.txtRowHeight[4].Text() == "5");
  for (const auto& [text, rows] :
       {std::pair{"8", 8}, std::pair{"", 8}, std::pair{"many", 8}, std::pair{"40000", 8}, std::pair{"2.5", 2}}) {
    dialog.txtRowHeight[4].Type(text);
    CHECK(fields[Int16(6)].RowCount == Int16(rows));
  }
  CHECK(wizard.Desktop.Messages.empty());
}

TEST_CASE("A combo box needs a query and a column before the user can go on") {
  WizardFixture wizard;
  wizard.GoToProperties();
  auto& dialog = wizard.Dialog;
  dialog.tvwAttributes.ExpandNode(wizard.Property("Spouse"));
  dialog.tvwAttributes.ClickNode(*wizard.Property("Spouse").Child());
  dialog.cmdSelectOne.Click();
  wizard.Next();
  const model::FieldRecord& field = wizard.State.Form.Fields[Int16(7)];
  dialog.chkRefCombo.Click();
  CHECK(WizardFixture::Entries(dialog.lstQueryName) == "ByName Extent ");  // only those that return the object id
  CHECK(wizard.Buttons() == "---C");
  CHECK_FALSE(dialog.lstFields.Enabled);
  CHECK(field.FieldKind == kind::ReferenceLabel);
  dialog.lstQueryName.ClickItem(0);
  CHECK(WizardFixture::Entries(dialog.lstQueryColumn) == "ID Name ");
  dialog.lstQueryColumn.ClickItem(1);
  CHECK(field.FieldKind == kind::ReferenceCombo);
  CHECK(field.QueryName == "ByName");
  CHECK(field.QueryColumn == "Name");
  CHECK(field.QueryContainId == Int16(2));
  CHECK(field.QueryParamCount == Int16(1));
  CHECK(wizard.Buttons() == "BNFC");
  dialog.chkRefCombo.Click();
  CHECK(field.FieldKind == kind::ReferenceLabel);
  dialog.chkRefCombo.Click();  // the old choice comes back
  CHECK(field.FieldKind == kind::ReferenceCombo);
  CHECK(WizardFixture::Entries(dialog.lstQueryName) == "*ByName Extent ");
  CHECK(WizardFixture::Entries(dialog.lstQueryColumn) == "ID *Name ");
}
