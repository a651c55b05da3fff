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

TEST_CASE("Properties become records and nodes of their kind, objects load when they are opened") {
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

TEST_CASE("Without a class, on a package or with a class that offers nothing there is no way on") {
  WizardFixture none;
  none.Server.Data.Queries["%ClassDefinition/ClassInfo/"].clear();
  none.Server.Data.AddClass("Sample.Hidden", 0);
  none.Next(2);
  CHECK(none.Step() == "3");
  CHECK(none.Buttons() == "B--C");
  CHECK(none.Dialog.tvwClasses.Nodes.Count() == 0);

  none.Server.Data.AddClass("Sample.Empty");
  none.Server.Data.AddProperty("Sample.Empty", "Raw", {{"type", "%Library.List"}});
  none.Dialog.cmdBack.Click();
  none.Next();  // nothing was chosen since the connection: the list is read again
  CHECK(none.Buttons() == "BN-C");
  auto& classes = none.Dialog.tvwClasses;
  classes.CollapseNode(classes.Nodes.Item(1));  // takes the choice to the package
  CHECK(none.Buttons() == "B--C");
  classes.ExpandNode(classes.Nodes.Item(1));
  classes.ClickNode(classes.Nodes.Item(2));
  none.Next();
  CHECK(none.Step() == "4");
  CHECK(none.Buttons() == "B--C");
  CHECK(none.Desktop.Messages.empty());
}

TEST_CASE("An error on the way leaves the dialog usable") {
  WizardFixture wizard;
  wizard.GoToProperties();
  for (int i = 0; i < 2; ++i) wizard.Dialog.cmdBack.Click();
  wizard.Dialog.tvwConnection.ClickNode(wizard.Dialog.tvwConnection.Nodes.Item(2));
  wizard.Server.Data.FailingCall = "ResultSet";
  wizard.Next(2);  // the class that was chosen is gone when the step of the properties begins
  CHECK(wizard.Desktop.Texts() ==
        std::vector<std::string>{"Error occurred in procedure PopulateClassList : the server failed",
                                 "Run-time error '91':\n\nObject variable or With block variable not set"});
  wizard.Server.Data.FailingCall = "";
  for (int i = 0; i < 3; ++i) wizard.Dialog.cmdBack.Click();
  wizard.GoToProperties();
  wizard.Server.Data.FailAtRow = 1;
  wizard.Dialog.tvwAttributes.ExpandNode(wizard.Property("Home"));
  CHECK(wizard.Desktop.Texts().back() == "Error occurred in procedure PopulateAttributeList : the server failed");
  wizard.Select("Age");
  CHECK(wizard.Buttons() == "BNFC");
}

TEST_CASE("Each kind of property has its own panel, with its caption and rows") {
  WizardFixture wizard;
  wizard.Profile.Values = {{"CollectionRows", "4"}, {"ImageRows", "6"}, {"MultilineRows", "7"}};
  wizard.Server.Data.Queries["%CompiledProperty/PropertyInfo/Sample.Company"].clear();
  struct Case {
    std::string Name;
    ServerRow Row;
    Int16 Kind;
    std::size_t Panel;
    std::string Title, Rows;  // no rows: a single one that cannot be changed
  };
  const std::vector<Case> cases{
      {"Text", {{"datatype", Int32(1)}, {"maxlen", "12.25"}}, kind::TextBox, 0, "DataType Attribute", ""},
      {"%Id", {{"editable", false}}, kind::ReadOnlyLabel, 0, "DataType Attribute", ""},
      {"List", {{"collection", "list"}}, kind::ListBox, 2, "Collection Attribute", "4"},
      {"Array", {{"collection", "array"}, {"editable", "0"}}, kind::ListView, 2, "Collection Attribute", "4"},
      {"Picture", {{"collection", "binarystream"}}, kind::Picture, 3, "Image Attribute", "6"},
      {"Notes", {{"collection", "characterstream"}}, kind::MultiLine, 4, "MultiLine Attribute", "7"},
      {"Other", {{"collection", "queue"}}, kind::TextBox, 0, "DataType Attribute", ""}};
  for (const Case& c : cases) {
    wizard.Server.Data.AddProperty("Sample.Company", c.Name, c.Row);
    wizard.Server.Data.Queries["%CompiledProperty/PropertyInfo/Sample.Company"].back()["caption"] = "The " + c.Name;
  }
  wizard.Next(2);
  wizard.ChooseClass("Sample.Company");
  wizard.Next();
  wizard.Dialog.cmdSelectAll.Click();
  wizard.Next();
  auto& dialog = wizard.Dialog;
  for (std::size_t i = 0; i < cases.size(); ++i) {
    const Case& c = cases[i];
    CAPTURE(c.Name);
    dialog.lstFields.ClickItem(static_cast<int>(i));
    const model::FieldRecord& field = dialog.RecordOf(dialog.lstFields, static_cast<int>(i));
    CHECK(field.FieldKind == c.Kind);
    CHECK(Text(field.RowCount) == (c.Rows.empty() ? "1" : c.Rows));
    CHECK(dialog.FrontPanel() == c.Panel);
    CHECK(dialog.frmProperty[c.Panel].Caption == c.Title);
    CHECK(dialog.txtCaption[c.Panel].Text() == "The " + c.Name);
    CHECK(dialog.txtRowHeight[c.Panel].Text() == c.Rows);
    if (c.Panel == 0) CHECK(dialog.chkReadOnly.Value() == (c.Kind == kind::ReadOnlyLabel ? 1 : 0));
    dialog.txtCaption[c.Panel].Type(c.Name + "!");
    CHECK(field.Caption == c.Name + "!");
  }
  const auto& fields = wizard.State.Form.Fields;
  CHECK(fields[Int16(1)].Caption == "Text!");
  CHECK(fields[Int16(1)].MaxWidth == Int32(122));  // 122.5: halves go to the even number
  CHECK(fields[Int16(2)].IntName == "sys_Id");
}

TEST_CASE("Inside an object only its simple properties are offered") {
  WizardFixture wizard;
  ServerData& data = wizard.Server.Data;
  data.AddProperty("Sample.Address", "Zip", {{"required", "1"}, {"editable", "0"}});
  data.AddProperty("Sample.Address", "Country", {{"datatype", "0"}, {"serial", "1"}});
  data.AddProperty("Sample.Address", "Lines", {{"collection", "list"}});
  data.AddProperty("Sample.Address", "Raw", {{"type", "%Library.List"}});
  data.Queries["%CompiledProperty/PropertyInfo/Sample.Person"][2]["editable"] = "0";  // of the object itself
  wizard.GoToProperties();
  ui::Node& home = wizard.Property("Home");
  wizard.Dialog.tvwAttributes.ExpandNode(home);
  REQUIRE(home.Children().size() == 2);
  CHECK(home.Children()[1]->Text == "*Zip");
  wizard.Dialog.tvwAttributes.ClickNode(*home.Children()[1]);
  wizard.Dialog.cmdSelectOne.Click();
  CHECK(WizardFixture::Entries(wizard.Dialog.lstSelected) == "*Home.Zip ");  // without the star
  const auto& fields = wizard.State.Form.Fields;
  CHECK(fields[Int16(7)].FieldKind == kind::TextBox);
  CHECK(fields[Int16(8)].FieldKind == kind::ReadOnlyLabel);
  wizard.Next();
  CHECK(fields[Int16(8)].IntName == "HomeZip");
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
  dialog.cmdSelectOne.Click();  // no node is selected in the tree
  CHECK(selected().empty());
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
  dialog.lstSelected.ClickItem(0);
  dialog.cmdMoveUp.Click();
  CHECK(selected() == "*Age Colors Home.City Name ");
  dialog.lstSelected.DoubleClickItem(1);
  CHECK(selected() == "Age *Home.City Name ");
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
  CHECK_FALSE(dialog.lblUpdateAfter.Enabled);
  CHECK(dialog.lstUpdateAfter.ListIndex() == -1);
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

TEST_CASE("Attributes belong to the property, wherever the user goes in between") {
  WizardFixture wizard;
  wizard.GoToProperties();
  auto& dialog = wizard.Dialog;
  for (const char* name : {"*Name", "Age", "Colors"}) wizard.Select(name);
  wizard.Next();
  CHECK(WizardFixture::Entries(dialog.lstUpdateAfter) == "Name Age Colors ");  // the field itself included
  dialog.chkReadOnly.Click();
  CHECK(dialog.lblUpdateAfter.Enabled);
  dialog.lstUpdateAfter.ClickItem(2);
  dialog.txtCaption[0].Type("Full name");
  dialog.cmdBack.Click();
  wizard.Next();
  const model::FieldRecord& name = wizard.State.Form.Fields[Int16(1)];
  CHECK(name.FieldKind == kind::ReadOnlyLabel);
  CHECK(WizardFixture::Entries(dialog.lstUpdateAfter) == "Name Age *Colors ");

  dialog.cmdBack.Click();
  for (const int index : {2, 0}) dialog.lstSelected.DoubleClickItem(index);
  wizard.Select("*Name");
  wizard.Next();
  CHECK(dialog.lstUpdateAfter.ListIndex() == -1);  // of the other field
  dialog.lstFields.ClickItem(1);
  CHECK(dialog.txtCaption[0].Text() == "Full name");
  CHECK(name.UpdateAfter == Int16(5));  // kept, though it is no longer selected
  CHECK(dialog.lstUpdateAfter.ListIndex() == -1);
}

TEST_CASE("A combo box that is half specified holds the user until it is complete or given up") {
  WizardFixture wizard;
  auto& dialog = wizard.Dialog;
  wizard.Server.Data.Columns["Sample.Person/Extent"] = {"ID", ""};
  wizard.GoToProperties();
  dialog.tvwAttributes.ExpandNode(wizard.Property("Spouse"));
  dialog.tvwAttributes.ClickNode(*wizard.Property("Spouse").Child());
  dialog.cmdSelectOne.Click();
  wizard.Select("Age");
  wizard.Next();
  const auto specification = [&] {
    int shown = 0;
    for (const ui::Control* control :
         std::initializer_list<const ui::Control*>{&dialog.lblComboMsg, &dialog.lblComboQuery, &dialog.lstQueryName,
                                                   &dialog.lblComboColumn, &dialog.lstQueryColumn}) {
      shown += control->IsShown() ? 1 : 0;
    }
    return shown;
  };
  const model::FieldRecord& field = wizard.State.Form.Fields[Int16(7)];
  CHECK(specification() == 0);
  dialog.chkRefCombo.Click();
  CHECK(specification() == 5);
  dialog.lstQueryName.ClickItem(1);
  dialog.lstQueryColumn.ClickItem(0);
  CHECK(field.QueryName == "Extent");
  CHECK(wizard.Buttons() == "BNFC");
  dialog.lstQueryName.ClickItem(0);  // another query: its columns, but the old choice until one is clicked
  CHECK(WizardFixture::Entries(dialog.lstQueryColumn) == "ID Name ");
  CHECK(field.QueryName == "Extent");
  CHECK(wizard.Desktop.Messages.empty());

  dialog.lstQueryName.AddItem("", 1);
  struct Case {
    int Query, Column;  // -1: none is clicked
    std::string Title;
    ui::Control& Focus;
  };
  for (const Case& c :
       {Case{2, -1, "Query Name:", dialog.lstQueryName}, Case{-1, 0, "Query Name:", dialog.lstQueryName},
        Case{1, 1, "Column Name:", dialog.lstQueryColumn}}) {
    wizard.Desktop.Messages.clear();
    dialog.SetFocus(dialog.chkRefCombo);
    dialog.lstQueryName.SetListIndex(-1);
    if (c.Query >= 0) dialog.lstQueryName.ClickItem(c.Query);
    if (c.Column >= 0) dialog.lstQueryColumn.ClickItem(c.Column);
    REQUIRE(wizard.Desktop.Messages.size() == 1);
    CHECK(wizard.Desktop.Messages[0].Text == "You must select both Query name and Column name.");
    CHECK(wizard.Desktop.Messages[0].Style == 64);
    CHECK(wizard.Desktop.Messages[0].Title == c.Title);
    CHECK(dialog.ActiveControl() == &c.Focus);
    CHECK(field.QueryColumn == "ID");
  }

  dialog.chkRefCombo.Click();
  CHECK(specification() == 0);
  wizard.Server.Data.Queries["%CompiledQuery/QueryInfo/Sample.Person"].clear();
  wizard.Desktop.Messages.clear();
  dialog.chkRefCombo.Click();
  CHECK(dialog.lstQueryName.ListCount() == 0);
  CHECK(wizard.Buttons() == "---C");
  dialog.lstFields.ClickItem(1);
  CHECK(dialog.lstFields.ListIndex() == 0);
  dialog.chkRefCombo.Click();
  CHECK(wizard.Buttons() == "BNFC");
  CHECK(field.FieldKind == kind::ReferenceLabel);
  CHECK(field.QueryName == "Extent");  // kept for the next time

  for (const char* failing : {"row", "call"}) {
    wizard.Server.Data.FailAtRow = failing == std::string("row") ? 1 : 0;
    wizard.Server.Data.FailingCall = failing == std::string("call") ? "ResultSet" : "";
    dialog.chkRefCombo.Click();
    CHECK(wizard.Desktop.Texts().back() == "Run-time error '440':\n\nthe server failed");
    CHECK(dialog.Enabled);
    CHECK(field.FieldKind == kind::ReferenceLabel);
    dialog.chkRefCombo.Click();
  }
  dialog.lstFields.ClickItem(1);
  CHECK(dialog.FrontPanel() == 0);
}
