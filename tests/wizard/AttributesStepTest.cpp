#include "tests/wizard/Walk.h"

using namespace formwizard;
using namespace formwizard::tests;

TEST_CASE_FIXTURE(Walk, "Each kind of property has its own panel, with its caption and rows") {
  Profile.Values = {{"CollectionRows", "4"}, {"ImageRows", "6"}, {"MultilineRows", "7"}};
  Server.Data.Queries["%CompiledProperty/PropertyInfo/Sample.Company"].clear();
  struct Case {
    std::string name;
    ServerRow row;
    Int16 kind;
    std::string title, rows;  // no rows: a single one that cannot be changed
  };
  const std::vector<Case> cases{
      {"Text", {{"datatype", Int32(1)}, {"maxlen", "12.25"}}, kind::TextBox, "DataType Attribute", ""},
      {"%Id", {{"editable", false}}, kind::ReadOnlyLabel, "DataType Attribute", ""},
      {"List", {{"collection", "list"}}, kind::ListBox, "Collection Attribute", "4"},
      {"Array", {{"collection", "array"}, {"editable", "0"}}, kind::ListView, "Collection Attribute", "4"},
      {"Picture", {{"collection", "binarystream"}}, kind::Picture, "Image Attribute", "6"},
      {"Notes", {{"collection", "characterstream"}}, kind::MultiLine, "MultiLine Attribute", "7"},
      {"Other", {{"collection", "queue"}}, kind::TextBox, "DataType Attribute", ""},
      {"Unknown", {{"collection", runtime::Null()}}, kind::TextBox, "DataType Attribute", ""}};
  for (const Case& c : cases) {
    ServerRow row = c.row;
    row["caption"] = "The " + c.name;
    Server.Data.AddProperty("Sample.Company", c.name, row);
  }
  Do("> > class=Sample.Company > all >");
  for (std::size_t i = 0; i < cases.size(); ++i) {
    const Case& c = cases[i];
    CAPTURE(c.name);
    Dialog.lstFields.ClickItem(static_cast<int>(i));
    const model::FieldRecord& field = Dialog.RecordOf(Dialog.lstFields, static_cast<int>(i));
    CHECK(field.FieldKind == c.kind);
    CHECK(Text(field.RowCount) == (c.rows.empty() ? "1" : c.rows));
    const std::size_t panel = Dialog.FrontPanel();
    CHECK(Dialog.frmProperty[panel].Caption == c.title);
    CHECK(Dialog.txtCaption[panel].Text() == "The " + c.name);
    CHECK(Dialog.txtRowHeight[panel].Text() == c.rows);
    Do("caption=" + c.name + "!");
    CHECK(field.Caption == c.name + "!");
  }
  CHECK(Field(1).Caption == "Text!");
  CHECK(Field(1).MaxWidth == Int32(122));  // 122.5: halves go to the even number
  CHECK(Field(2).IntName == "sys_Id");
}

TEST_CASE_FIXTURE(Walk, "Rows follow what is typed while it is a number") {
  Do("> > class=Sample.Person > +Notes >");
  for (const auto& [text, rows] :
       {std::pair{"8", 8}, std::pair{"", 8}, std::pair{"many", 8}, std::pair{"40000", 8}, std::pair{"2.5", 2}}) {
    CAPTURE(std::string(text));
    Dialog.txtRowHeight[Dialog.FrontPanel()].Type(text);
    CHECK(Field(6).RowCount == Int16(rows));
  }
  CHECK(Desktop.Texts().empty());
}

TEST_CASE_FIXTURE(Walk, "A read-only field follows another one, and remembers which") {
  const auto offered = [&] { return (Dialog.lstUpdateAfter.Enabled ? "" : "-") + Entries(Dialog.lstUpdateAfter); };
  Do("> > class=Sample.Person > +*Name +Age +Colors >");
  CHECK(Entries(Dialog.lstFields) == "*Name Age Colors ");
  struct Case {
    std::string script, offered, record;  // kind and update-after of the name
  };
  for (const Case& c :
       {Case{"", "-Name Age Colors ", "1 0"},  // the field itself included
        Case{"readonly after=2", "Name Age *Colors ", "2 5"}, Case{"readonly", "-Name Age Colors ", "1 5"},
        Case{"readonly caption=Full", "Name Age *Colors ", "2 5"},
        Case{"field=1", "Name Age Colors ", "2 5"},  // read-only as well
        Case{"< >", "Name Age *Colors ", "2 5"},
        Case{"< -=2 -=0 +*Name >", "Age Name ", "2 5"},  // of the other field, now the first
        Case{"field=1", "Age Name ", "2 5"}}) {          // kept, though it is no longer selected
    CAPTURE(c.script);
    CHECK(Do(c.script) == "5 BNFC");
    CHECK(offered() == c.offered);
    CHECK(Dialog.lblUpdateAfter.Enabled == Dialog.lstUpdateAfter.Enabled);
    CHECK(Text(Field(1).FieldKind) + " " + Text(Field(1).UpdateAfter) == c.record);
  }
  CHECK(Dialog.txtCaption[Dialog.FrontPanel()].Text() == "Full");
}

TEST_CASE_FIXTURE(Walk, "A combo box needs a query and a column before the user can go on") {
  Do("> > class=Sample.Person > +Spouse. +Age >");
  const model::FieldRecord& field = Field(7);
  const std::initializer_list<const ui::Control*> shownWithIt{
      &Dialog.lblComboMsg, &Dialog.lblComboQuery, &Dialog.lstQueryName, &Dialog.lblComboColumn, &Dialog.lstQueryColumn};
  Dialog.cmdNext.Enabled = false;
  CHECK(Do("field=0") == "5 B-FC");  // a plain reference only shows that it is one
  struct Case {
    std::string script, where, specification, record;
  };
  const std::string byName = "4 ByName.Name", given = "3 ByName.Name", extent = "4 Extent.ID";
  for (const Case& c :
       {Case{"combo", "5 ---C", "ByName Extent | ", "3 ."},  // only those that return the object id
        Case{"field=1 query=0", "5 ---C", "*ByName Extent | ID Name ", "3 ."},
        Case{"column=1", "5 BNFC", "*ByName Extent | ID *Name ", byName}, Case{"combo", "5 BNFC", "| ", given},
        Case{"combo", "5 BNFC", "*ByName Extent | ID *Name ", byName},  // the old choice comes back
        Case{"query=1 column=0", "5 BNFC", "ByName *Extent | *ID ", extent},
        // Another query: its columns, but the old choice until one is clicked.
        Case{"query=0", "5 BNFC", "*ByName Extent | ID Name ", extent}}) {
    CAPTURE(c.script);
    CHECK(Do(c.script) == c.where);
    CHECK(Specification() == c.specification);
    CHECK(Text(field.FieldKind) + " " + field.QueryName + "." + field.QueryColumn == c.record);
    CHECK(Dialog.lstFields.Enabled == (c.where == "5 BNFC"));
    for (const ui::Control* control : shownWithIt) CHECK(control->IsShown() == (Dialog.chkRefCombo.Value() == 1));
  }
  CHECK(Text(field.QueryContainId) + Text(field.QueryParamCount) == "11");
  CHECK(Desktop.Texts().empty());
}

TEST_CASE_FIXTURE(Walk, "A combo box that is half specified asks for what is missing, where it is missing") {
  Server.Data.Columns["Sample.Person/Extent"] = {"ID", ""};
  Do("> > class=Sample.Person > +Spouse. > combo query=1 column=0");
  Dialog.lstQueryName.AddItem("", 1);
  struct Case {
    std::string script, title;
    ui::Control& focus;
  };
  for (const Case& c :
       {Case{"query=2", "Query Name:", Dialog.lstQueryName}, Case{"column=0", "Query Name:", Dialog.lstQueryName},
        Case{"query=1 column=1", "Column Name:", Dialog.lstQueryColumn}}) {
    CAPTURE(c.script);
    Desktop.Messages.clear();
    Dialog.SetFocus(Dialog.chkRefCombo);
    Dialog.lstQueryName.SetListIndex(-1);
    Do(c.script);
    CHECK(Desktop.Shown() == c.title + "[64]: You must select both Query name and Column name.\n");
    CHECK(Dialog.ActiveControl() == &c.focus);
    CHECK(Field(7).QueryColumn == "ID");
  }
}

TEST_CASE("What a combo box cannot be filled with is reported or missing, and its record stays until it is given up") {
  struct Case {
    std::string fault, script, procedure, specification, where, record;
  };
  const std::string given = "4 ByName.TaxID", givenUp = "3 ByName.TaxID";
  for (const Case& c :
       {Case{"", "field=0", "", "*ByName Extent | ID *Name ", "5 BNFC", given},  // each shows its own queries
        Case{"call", "field=1", "PopulateQueryList", "| ", "5 ---C", given},
        Case{"call", "combo combo", "PopulateQueryList", "| ", "5 ---C", givenUp},
        Case{"row", "combo combo", "PopulateQueryList", "| ", "5 ---C", givenUp},
        Case{"call", "query=1", "lstQueryName_Click", "ByName *ByCity | ", "5 BNFC", given},
        Case{"queries", "field=1", "", "| ", "5 ---C", given},
        Case{"columns", "combo combo", "", "*ByName ByCity | ID ", "5 ---C", givenUp}}) {
    CAPTURE(c.fault + ": " + c.script);
    Walk user;
    ServerData& data = user.Server.Data;
    data.AddProperty("Sample.Person", "Boss", {{"datatype", "0"}, {"type", "Sample.Company"}});
    data.AddQuery("Sample.Company", "ByName", 1, {"ID", "TaxID"});
    data.AddQuery("Sample.Company", "ByCity", 1, {"City"});
    user.Do("> > class=Sample.Person > +Spouse. +Boss. > combo query=0 column=1 field=1 combo query=0 column=1");
    const model::FieldRecord& boss = user.RecordOf("Boss.Name");
    const auto record = [&] { return Text(boss.FieldKind) + " " + boss.QueryName + "." + boss.QueryColumn; };

    data.FailingCall = c.fault == "call" ? "ResultSet" : "";
    data.FailAtRow = c.fault == "row" ? 1 : 0;
    if (c.fault == "queries") data.Queries["%CompiledQuery/QueryInfo/Sample.Company"].clear();
    if (c.fault == "columns") data.Columns["Sample.Company/ByName"] = {"ID"};
    CHECK(user.Do(c.script) == c.where);
    CHECK(user.Specification() == c.specification);
    CHECK(record() == c.record);
    CHECK(user.Dialog.Enabled);
    const std::string report = "Error occurred in procedure " + c.procedure + " : the server failed\n";
    CHECK(user.Desktop.Texts() == (c.procedure.empty() ? "" : report));
    if (c.where == "5 BNFC") continue;
    CHECK(user.Do("field=0") == "5 ---C");
    CHECK(user.Dialog.lstFields.ListIndex() == 1);
    CHECK(user.Do("combo") == "5 BNFC");
    CHECK(user.Dialog.lstFields.Enabled);
    CHECK(record() == givenUp);
  }
}
