#include "tests/ui/TestForm.h"
#include "tests/wizard/Walk.h"

using namespace formwizard;
using namespace formwizard::tests;

TEST_CASE_FIXTURE(Walk, "Persistent classes stand below their packages and the first one is chosen") {
  Next(2);
  CHECK(Tree(Dialog.tvwClasses) ==
        "Billing[Billing,,8]\n Core.Invoice[,Billing.Core.Invoice,1]\n"
        "Sample[Sample,,8]\n Company[,Sample.Company,1]\n Person[,Sample.Person,1]\n");
  CHECK(Dialog.tvwClasses.SelectedItem->Tag == "Billing.Core.Invoice");
  CHECK(Where() == "3 BN-C");
  TreeNotes view;
  Dialog.tvwClasses.Observe(&view);
  for (const auto& [node, where] : {std::pair{0, "3 BN-C"}, std::pair{3, "3 B--C"}, std::pair{5, "4 B--C"}}) {
    view.Drawn = node == 0 ? nullptr : &Dialog.tvwClasses.Nodes.Item(node);  // beside all, on a package, on a class
    Dialog.tvwClasses.PressMouse(3, 5);
    if (view.Drawn) Dialog.tvwClasses.ClickNode(*view.Drawn);
    Dialog.tvwClasses.DoubleClick();
    CHECK(Where() == where);
  }
  Dialog.tvwClasses.Observe(nullptr);
}

TEST_CASE("A class list that goes wrong is reported and keeps what it has") {
  struct Case {
    std::vector<std::string> names;
    int failingRow;
    std::string message;
  };
  for (const Case& c :
       {Case{{"A.B", "NoPackage"}, 0, "Invalid procedure call or argument"},
        Case{{"A.B", "C.D", "A.E"}, 0, "Key is not unique in collection"}, Case{{".B"}, 0, "Element not found"},
        Case{{"A.B", ".C"}, 0, "Element not found"}, Case{{"A.B", "A.C"}, 2, "the server failed"}}) {
    CAPTURE(c.message);
    Walk user;
    user.Server.Data.Queries["%ClassDefinition/ClassInfo/"].clear();
    for (const std::string& name : c.names) user.Server.Data.AddClass(name);
    user.Server.Data.FailAtRow = c.failingRow;
    CHECK(user.Do("> >") == "3 B--C");
    CHECK(user.Desktop.Texts() == "Error occurred in procedure PopulateClassList : " + c.message + "\n");
    CHECK(Walk::Tree(user.Dialog.tvwClasses).starts_with(c.names[0] == ".B" ? "" : "A[A,,8]\n B[,A.B,1]\n"));
    CHECK(user.Status() == "Ready");
    CHECK(user.Dialog.Enabled);
  }
}

TEST_CASE_FIXTURE(Walk, "Without a class, on a package or with a class that offers nothing there is no way on") {
  Server.Data.Queries["%ClassDefinition/ClassInfo/"].clear();
  Server.Data.AddClass("Sample.Hidden", 0);
  CHECK(Do("> >") == "3 B--C");
  auto& classes = Dialog.tvwClasses;
  CHECK(classes.Nodes.Count() == 0);

  Server.Data.AddClass("Sample.Empty");
  Server.Data.AddProperty("Sample.Empty", "Raw", {{"type", "%Library.List"}});
  CHECK(Do("< >") == "3 BN-C");                 // nothing was chosen since the connection: the list is read again
  classes.CollapseNode(classes.Nodes.Item(1));  // takes the choice to the package
  CHECK(Where() == "3 B--C");
  CHECK(Do("package=2 >") == "4 B--C");
  CHECK(Desktop.Texts().empty());
}

TEST_CASE_FIXTURE(Walk, "Going back to the class step and forward with the same class keeps the selection") {
  CHECK(Do("> > class=Sample.Person > +Age < >") == "4 BN-C");
  CHECK(Entries(Dialog.lstSelected) == "*Age ");
  CHECK(std::ranges::count(Server.Data.Calls, "ResultSet %ClassDefinition") == 1);
  CHECK(Do("<") == "3 BNFC");
  CHECK(Do("package=1 < >") == "3 B--C");
}

TEST_CASE("A class list that cannot be read again takes the chosen class with it, and leaves the dialog usable") {
  for (const auto& [call, menu, message] :
       {std::tuple{"ResultSet", "1", "Error occurred in procedure PopulateClassList : the server failed\n"},
        std::tuple{"", "maybe", "Run-time error '13':\n\nType mismatch\n"}}) {  // in the settings that come with it
    Walk user;
    user.Do("> > class=Sample.Person > < < system=2");
    user.Server.Data.FailingCall = call;
    user.Profile.Values["Menu"] = menu;
    CHECK(user.Do("> >") == "3 B--C");
    CHECK(user.Desktop.Texts() == message);
    CHECK(user.Dialog.tvwClasses.Nodes.Count() == 0);
    user.Server.Data.FailingCall = "";
    user.Profile.Values.clear();
    CHECK(user.Do("< < > > class=Sample.Person > +Age") == "4 BNFC");
  }
}
