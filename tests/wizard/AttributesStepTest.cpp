#include "tests/support/WizardFixture.h"

#include <doctest/doctest.h>

using namespace formwizard;
using namespace formwizard::tests;

namespace {

// The names of the two lists of a combo box' specification.
std::string Specification(const wizard::frmWizard& dialog) {
  return WizardFixture::Entries(dialog.lstQueryName) + "| " + WizardFixture::Entries(dialog.lstQueryColumn);
}

}  // namespace

TEST_CASE_FIXTURE(WizardFixture, "Each kind of property has its own panel, with its caption and rows") {
  Profile.Values = {{"CollectionRows", "4"}, {"ImageRows", "6"}, {"MultilineRows", "7"}};
  Server.Data.Queries["%CompiledProperty/PropertyInfo/Sample.Company"].clear();
  struct Case {
    std::string name;
    ServerRow row;
    Int16 kind;
    std::size_t panel;
    std::string title, rows;  // no rows: a single one that cannot be changed
  };
  const std::vector<Case> cases{
      {"Text", {{"datatype", Int32(1)}, {"maxlen", "12.25"}}, kind::TextBox, 0, "DataType Attribute", ""},
      {"%Id", {{"editable", false}}, kind::ReadOnlyLabel, 0, "DataType Attribute", ""},
      {"List", {{"collection", "list"}}, kind::ListBox, 2, "Collection Attribute", "4"},
      {"Array", {{"collection", "array"}, {"editable", "0"}}, kind::ListView, 2, "Collection Attribute", "4"},
      {"Picture", {{"collection", "binarystream"}}, kind::Picture, 3, "Image Attribute", "6"},
      {"Notes", {{"collection", "characterstream"}}, kind::MultiLine, 4, "MultiLine Attribute", "7"},
      {"Other", {{"collection", "queue"}}, kind::TextBox, 0, "DataType Attribute", ""},
      {"Unknown", {{"collection", runtime::Null()}}, kind::TextBox, 0, "DataType Attribute", ""}};
  for (const Case& c : cases) {
    ServerRow row = c.row;
    row["caption"] = "The " + c.name;
    Server.Data.AddProperty("Sample.Company", c.name, row);
  }
  GoToProperties({}, "Sample.Company");
  Dialog.cmdSelectAll.Click();
  Next();
  for (std::size_t i = 0; i < cases.size(); ++i) {
    const Case& c = cases[i];
    CAPTURE(c.name);
    Dialog.lstFields.ClickItem(static_cast<int>(i));
    const model::FieldRecord& field = Dialog.RecordOf(Dialog.lstFields, static_cast<int>(i));
    CHECK(field.FieldKind == c.kind);
    CHECK(Text(field.RowCount) == (c.rows.empty() ? "1" : c.rows));
    CHECK(Dialog.FrontPanel() == c.panel);
    CHECK(Dialog.frmProperty[c.panel].Caption == c.title);
    CHECK(Dialog.txtCaption[c.panel].Text() == "The " + c.name);
    CHECK(Dialog.txtRowHeight[c.panel].Text() == c.rows);
    Dialog.txtCaption[c.panel].Type(c.name + "!");
    CHECK(field.Caption == c.name + "!");
  }
  CHECK(Field(1).Caption == "Text!");
  CHECK(Field(1).MaxWidth == Int32(122));  // 122.5: halves go to the even number
  CHECK(Field(2).IntName == "sys_Id");
}

TEST_CASE_FIXTURE(WizardFixture, "Rows follow what is typed while it is a number") {
  GoToProperties({"Notes"});
  Next();
  for (const auto& [text, rows] :
       {std::pair{"8", 8}, std::pair{"", 8}, std::pair{"many", 8}, std::pair{"40000", 8}, std::pair{"2.5", 2}}) {
    CAPTURE(std::string(text));
    Dialog.txtRowHeight[4].Type(text);
    CHECK(Field(6).RowCount == Int16(rows));
  }
  CHECK(Desktop.Texts().empty());
}

TEST_CASE_FIXTURE(WizardFixture, "A read-only field follows another one, and remembers which") {
  GoToProperties({"*Name", "Age", "Colors"});
  Next();
  const model::FieldRecord& name = Field(1);
  CHECK(Entries(Dialog.lstFields) == "*Name Age Colors ");
  CHECK_FALSE(Dialog.lstUpdateAfter.Enabled);
  Dialog.chkReadOnly.Click();
  CHECK(Dialog.lblUpdateAfter.Enabled);
  CHECK(name.FieldKind == kind::ReadOnlyLabel);
  Dialog.lstUpdateAfter.ClickItem(2);
  CHECK(name.UpdateAfter == Int16(5));
  Dialog.chkReadOnly.Click();
  CHECK(name.FieldKind == kind::TextBox);
  CHECK_FALSE(Dialog.lstUpdateAfter.Enabled);
  CHECK(Entries(Dialog.lstUpdateAfter) == "Name Age Colors ");  // the field itself included
  Dialog.chkReadOnly.Click();
  CHECK(Entries(Dialog.lstUpdateAfter) == "Name Age *Colors ");
}

TEST_CASE_FIXTURE(WizardFixture, "Attributes belong to the property, wherever the user goes in between") {
  GoToProperties({"*Name", "Age", "Colors"});
  Next();
  Dialog.chkReadOnly.Click();
  Dialog.lstUpdateAfter.ClickItem(2);
  Dialog.txtCaption[0].Type("Full name");
  Dialog.lstFields.ClickItem(1);  // read-only as well
  CHECK(Dialog.lstUpdateAfter.ListIndex() == -1);
  Back();
  Next();
  CHECK(Entries(Dialog.lstUpdateAfter) == "Name Age *Colors ");
  Back();
  for (const int index : {2, 0}) Dialog.lstSelected.DoubleClickItem(index);
  Select("*Name");
  Next();
  CHECK(Dialog.lstUpdateAfter.ListIndex() == -1);  // of the other field
  Dialog.lstFields.ClickItem(1);
  CHECK(Dialog.txtCaption[0].Text() == "Full name");
  CHECK(Field(1).UpdateAfter == Int16(5));  // kept, though it is no longer selected
  CHECK(Entries(Dialog.lstUpdateAfter) == "Age Name ");
}

TEST_CASE_FIXTURE(WizardFixture, "A combo box needs a query and a column before the user can go on") {
  GoToProperties();
  Select(Inside("Spouse"));
  Next();
  const model::FieldRecord& field = Field(7);
  Dialog.cmdNext.Enabled = false;
  Dialog.lstFields.ClickItem(0);
  CHECK(Where() == "5 B-FC");  // a plain reference only shows that it is one
  Dialog.chkRefCombo.Click();
  CHECK(Specification(Dialog) == "ByName Extent | ");  // only those that return the object id
  CHECK(Where() == "5 ---C");
  CHECK_FALSE(Dialog.lstFields.Enabled);
  CHECK(field.FieldKind == kind::ReferenceLabel);
  Dialog.lstQueryName.ClickItem(0);
  CHECK(Specification(Dialog) == "*ByName Extent | ID Name ");
  Dialog.lstQueryColumn.ClickItem(1);
  CHECK(Where() == "5 BNFC");
  CHECK(field.FieldKind == kind::ReferenceCombo);
  CHECK(field.QueryName + "." + field.QueryColumn == "ByName.Name");
  CHECK(field.QueryContainId == Int16(2));
  CHECK(field.QueryParamCount == Int16(1));
  Dialog.chkRefCombo.Click();
  CHECK(field.FieldKind == kind::ReferenceLabel);
  Dialog.chkRefCombo.Click();  // the old choice comes back
  CHECK(field.FieldKind == kind::ReferenceCombo);
  CHECK(Specification(Dialog) == "*ByName Extent | ID *Name ");
  Server.Data.Columns["Sample.Person/ByName"] = {"ID"};  // the column is gone, so the query alone is shown
  for (int i = 0; i < 2; ++i) Dialog.chkRefCombo.Click();
  CHECK(Specification(Dialog) == "*ByName Extent | ID ");
  CHECK(Where() == "5 ---C");
}

TEST_CASE_FIXTURE(WizardFixture, "Two references in a row show their own queries") {
  Server.Data.AddProperty("Sample.Person", "Boss", {{"datatype", "0"}, {"type", "Sample.Company"}});
  Server.Data.AddQuery("Sample.Company", "ByName", 1, {"ID", "TaxID"});
  GoToProperties();
  for (const char* reference : {"Spouse", "Boss"}) Select(Inside(reference));
  Next();
  for (const int field : {0, 1}) {
    Dialog.lstFields.ClickItem(field);
    Dialog.chkRefCombo.Click();
    Dialog.lstQueryName.ClickItem(0);
    Dialog.lstQueryColumn.ClickItem(1);
  }
  CHECK(Specification(Dialog) == "*ByName | ID *TaxID ");
  Dialog.lstFields.ClickItem(0);
  CHECK(Specification(Dialog) == "*ByName Extent | ID *Name ");
  CHECK(Where() == "5 BNFC");

  Server.Data.FailingCall = "ResultSet";  // what cannot be read is reported, and the record stays
  Dialog.lstFields.ClickItem(1);
  CHECK(Desktop.Texts() == "Error occurred in procedure PopulateQueryList : the server failed\n");
  CHECK(Specification(Dialog) == "| ");
  const model::FieldRecord& boss = Dialog.RecordOf(Dialog.lstFields, 1);
  CHECK(Text(boss.FieldKind) + boss.QueryName + boss.QueryColumn == "4ByNameTaxID");
  CHECK(Where() == "5 ---C");
}

TEST_CASE_FIXTURE(WizardFixture, "A combo box that is half specified holds the user until it is complete or given up") {
  Server.Data.Columns["Sample.Person/Extent"] = {"ID", ""};
  GoToProperties();
  Select(Inside("Spouse"));
  Select("Age");
  Next();
  const model::FieldRecord& field = Field(7);
  const std::initializer_list<const ui::Control*> shownWithIt{
      &Dialog.lblComboMsg, &Dialog.lblComboQuery, &Dialog.lstQueryName, &Dialog.lblComboColumn, &Dialog.lstQueryColumn};
  for (const bool shown : {false, true}) {
    for (const ui::Control* control : shownWithIt) CHECK_MESSAGE(control->IsShown() == shown, control->Name);
    if (!shown) Dialog.chkRefCombo.Click();
  }
  Dialog.lstQueryName.ClickItem(1);
  Dialog.lstQueryColumn.ClickItem(0);
  Dialog.lstQueryName.ClickItem(0);  // another query: its columns, but the old choice until one is clicked
  CHECK(Specification(Dialog) == "*ByName Extent | ID Name ");
  CHECK(field.QueryName == "Extent");
  CHECK(Desktop.Texts().empty());

  Dialog.lstQueryName.AddItem("", 1);
  struct Case {
    int query, column;  // -1: none is clicked
    std::string title;
    ui::Control& focus;
  };
  for (const Case& c :
       {Case{2, -1, "Query Name:", Dialog.lstQueryName}, Case{-1, 0, "Query Name:", Dialog.lstQueryName},
        Case{1, 1, "Column Name:", Dialog.lstQueryColumn}}) {
    CAPTURE(c.query);
    Desktop.Messages.clear();
    Dialog.SetFocus(Dialog.chkRefCombo);
    Dialog.lstQueryName.SetListIndex(-1);
    if (c.query >= 0) Dialog.lstQueryName.ClickItem(c.query);
    if (c.column >= 0) Dialog.lstQueryColumn.ClickItem(c.column);
    CHECK(Desktop.Shown() == c.title + "[64]: You must select both Query name and Column name.\n");
    CHECK(Dialog.ActiveControl() == &c.focus);
    CHECK(field.QueryColumn == "ID");
  }

  Dialog.chkRefCombo.Click();
  CHECK_FALSE(Dialog.lstQueryName.IsShown());
  Server.Data.Queries["%CompiledQuery/QueryInfo/Sample.Person"].clear();
  Dialog.chkRefCombo.Click();
  CHECK(Specification(Dialog) == "| ");
  Dialog.lstFields.ClickItem(1);
  CHECK(Dialog.lstFields.ListIndex() == 0);
  Dialog.chkRefCombo.Click();
  CHECK(Where() == "5 BNFC");
  CHECK(field.FieldKind == kind::ReferenceLabel);
  CHECK(field.QueryName == "Extent");  // kept for the next time
}

TEST_CASE("Queries that the server does not give are reported, and the combo box can only be given up") {
  for (const std::string failing : {"row", "call"}) {
    CAPTURE(failing);
    WizardFixture wizard;
    wizard.GoToProperties();
    wizard.Select(wizard.Inside("Spouse"));
    wizard.Select("Age");
    wizard.Next();
    wizard.Server.Data.FailAtRow = failing == "row" ? 1 : 0;
    wizard.Server.Data.FailingCall = failing == "call" ? "ResultSet" : "";
    wizard.Dialog.chkRefCombo.Click();
    CHECK(wizard.Desktop.Texts() == "Error occurred in procedure PopulateQueryList : the server failed\n");
    CHECK(wizard.Dialog.Enabled);
    CHECK(wizard.Where() == "5 ---C");
    CHECK(wizard.Field(7).FieldKind == kind::ReferenceLabel);
    wizard.Dialog.chkRefCombo.Click();
    wizard.Dialog.lstFields.ClickItem(1);
    CHECK(wizard.Dialog.FrontPanel() == 0);
    CHECK(wizard.Where() == "5 BNFC");
  }
}

TEST_CASE_FIXTURE(WizardFixture, "A query whose columns the server does not give has none of another query's") {
  GoToProperties();
  Select(Inside("Spouse"));
  Next();
  Dialog.chkRefCombo.Click();
  Dialog.lstQueryName.ClickItem(0);
  Server.Data.FailingCall = "ResultSet";
  Dialog.lstQueryName.ClickItem(1);
  CHECK(Desktop.Texts() == "Error occurred in procedure lstQueryName_Click : the server failed\n");
  CHECK(Specification(Dialog) == "ByName *Extent | ");
  CHECK(Where() == "5 ---C");
}

TEST_CASE_FIXTURE(WizardFixture, "A stored query that is gone is asked for in the panel that is shown") {
  Server.Data.AddProperty("Sample.Person", "Boss", {{"datatype", "0"}, {"type", "Sample.Person"}});
  GoToProperties({"Age"});
  for (const char* reference : {"Spouse", "Boss"}) Select(Inside(reference));
  Next();
  for (const int reference : {1, 2}) {
    Dialog.lstFields.ClickItem(reference);
    Dialog.chkRefCombo.Click();
    Dialog.lstQueryName.ClickItem(0);
    Dialog.lstQueryColumn.ClickItem(1);
  }
  Dialog.lstFields.ClickItem(0);
  Server.Data.Queries["%CompiledQuery/QueryInfo/Sample.Person"].clear();
  Dialog.lstFields.ClickItem(1);
  CHECK(Desktop.Texts().find("Run-time error") == std::string::npos);
  CHECK(Where() == "5 ---C");
}
