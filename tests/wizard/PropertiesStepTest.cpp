#include "tests/wizard/Walk.h"

using namespace formwizard;
using namespace formwizard::tests;

namespace {

// Display name, property and caption, kind and rows, width, and what a reference shows of which class.
std::string Described(const model::FieldRecord& field) {
  return field.DisplayName + "|" + field.PropertyName + "|" + field.Caption + " " + Text(field.FieldKind) + "x" +
         Text(field.RowCount) + " " + Text(field.MaxWidth) + " " + field.ReferenceColumn + "@" + field.ReferenceClass;
}

}  // namespace

TEST_CASE_FIXTURE(Walk, "Properties become records and nodes of their kind, objects load when they are opened") {
  Profile.Values["MultilineRows"] = "7";
  Do("> > class=Sample.Person >");
  CHECK(Tree(Dialog.tvwAttributes) ==
        "*Name[1key,%Library.String,2]\nAge[2key,%Library.String,2]\nHome[3key,Sample.Address,6]\n [,,0]\n"
        "Spouse[4key,Sample.Person,6]\n [,,0]\nColors[5key,%Library.String,2]\nNotes[6key,%Library.String,2]\n");
  CHECK(Described(Field(1)) == "Name|Name|Name 1x1 500 @");  // fifty characters of ten twips, no star
  CHECK(Described(Field(2)) == "Age|Age|Age 2x1 0 @");
  CHECK(Described(Field(4)) == "Spouse|Spouse|Spouse 3x1 500 @Sample.Person");
  CHECK(Described(Field(5)) == "Colors|Colors|Colors 5x3 500 @");
  CHECK(Described(Field(6)) == "Notes|Notes|Notes 8x7 500 @");

  for (const char* object : {"Home", "Spouse"}) {
    Dialog.tvwAttributes.ExpandNode(Property(object));
    CHECK(Property(object).Tag.empty());
    const auto calls = Server.Data.Calls.size();
    Dialog.tvwAttributes.CollapseNode(Property(object));
    Dialog.tvwAttributes.ExpandNode(Property(object));
    CHECK(Server.Data.Calls.size() == calls);  // loaded once
  }
  CHECK(Described(Field(7)) == "Home.City|Home.City|Home Town 1x1 500 @");
  CHECK(Described(Field(8)) == "Spouse.Name|Spouse|Spouse Name 3x1 500 Name@Sample.Person");
}

TEST_CASE_FIXTURE(Walk, "Inside an object only its simple properties are offered") {
  ServerData& data = Server.Data;
  data.AddProperty("Sample.Address", "Country", {{"datatype", "0"}, {"serial", "1"}});
  data.AddProperty("Sample.Address", "Lines", {{"collection", "list"}});
  data.AddProperty("Sample.Address", "Raw", {{"type", "%Library.List"}});
  data.AddProperty("Sample.Address", "Zip", {{"required", "1"}, {"editable", "0"}, {"caption", runtime::Null()}});
  data.Queries["%CompiledProperty/PropertyInfo/Sample.Person"][2]["editable"] = "0";  // of the object itself
  Do("> > class=Sample.Person >");
  Dialog.tvwAttributes.ExpandNode(Property("Home"));
  ui::Node& zip = *Property("Home").Children().back();
  REQUIRE(Property("Home").Children().size() == 2);
  CHECK(zip.Text == "*Zip");
  Select(zip);
  CHECK(Entries(Dialog.lstSelected) == "*Home.Zip ");  // without the star
  CHECK(Field(7).FieldKind == kind::TextBox);
  CHECK(Field(8).FieldKind == kind::ReadOnlyLabel);
  CHECK(Field(8).Caption == "Home ");
  Next();
  CHECK(Field(8).IntName == "HomeZip");
}

TEST_CASE_FIXTURE(Walk, "Properties that fail half way are reported and keep what was read") {
  Do("> > class=Sample.Person");
  Server.Data.FailAtRow = 4;
  Next();
  CHECK(Dialog.tvwAttributes.Nodes.Count() == 4);  // one of them in the object
  Server.Data.FailAtRow = 1;
  Dialog.tvwAttributes.ExpandNode(Property("Home"));
  const std::string failed = "Error occurred in procedure PopulateAttributeList : the server failed\n";
  CHECK(Desktop.Texts() == failed + failed);
  CHECK(Status() == "Ready");
  Select("Age");
  CHECK(Where() == "4 BNFC");
}

TEST_CASE_FIXTURE(Walk, "The selection follows the user, tree and list always agree") {
  Do("> > class=Sample.Person >");
  for (const auto& [script, selected] :
       {std::pair{"select", ""},                                          // no node is selected in the tree
        std::pair{"+Age +Age +Home", "*Age "},                            // a second time is refused, and an object is
        std::pair{"open=Home shut=Home all", "Age Name Colors *Notes "},  // nothing of what is collapsed
        std::pair{"open=Home all", "Age Name Colors Notes *Home.City "},
        std::pair{"up up", "Age Name *Home.City Colors Notes "}, std::pair{"down", "Age Name Colors *Home.City Notes "},
        std::pair{"at=4 down", "Age Name Colors Home.City *Notes "}, std::pair{"drop", "Age Name Colors *Home.City "},
        std::pair{"twice=*Name", "Age *Colors Home.City "}, std::pair{"twice=*Name", "Age Colors Home.City *Name "},
        std::pair{"at=0 up", "*Age Colors Home.City Name "}, std::pair{"-=1", "Age *Home.City Name "},
        std::pair{"none", ""}, std::pair{"drop up", ""}}) {
    CHECK(Do(script) == (*selected ? "4 BNFC" : "4 B--C"));
    CHECK(Entries(Dialog.lstSelected) == selected);
  }
  for (const ui::Node& node : Dialog.tvwAttributes.Nodes.All()) CHECK(node.Image != Int16(3));
  CHECK(Desktop.Texts().empty());
}
