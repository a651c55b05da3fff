#include "tests/wizard/Walk.h"

using namespace formwizard;
using namespace formwizard::tests;

TEST_CASE("Finish generates the form in the order of the list and closes the wizard") {
  for (const bool visitsAttributes : {false, true}) {
    CAPTURE(visitsAttributes);
    Walk user;
    user.Do(visitsAttributes ? "> > class=Sample.Person > +Age +*Name > !" : "> > class=Sample.Person > +Age +*Name !");
    CHECK(user.Dialog.IsUnloaded());
    CHECK(user.Desktop.Pointers.back() == ui::MousePointer::Default);
    CHECK(user.Desktop.Texts().empty());
    CHECK(user.Server.Data.Calls.back() == "Disconnect");
    CHECK(user.Ide.Calls().back() == "VBComponent.Activate ");
    CHECK(user.Ide.Count("InsertLines 1 Const m_classname = \"Sample.Person\"") == 1);
    CHECK(user.State.Form.SelectedFields[Int16(1)] == Int16(2));
    CHECK(user.State.NewComponent->Name() == "frmPerson");
  }
}

TEST_CASE("Finish takes the list as the Attributes step last showed it, but never that of another class") {
  for (const bool visitsAttributes : {false, true}) {
    Walk user;
    user.Server.Data.AddProperty("Sample.Company", "Size");
    user.Do("> > class=Sample.Person > +Age > < < class=Sample.Company > +Name");
    if (visitsAttributes) user.Do("> <");
    CHECK(user.Do("+Size < < <") == "1 -NFC");  // usable on the first step too
    user.Do("!");
    CHECK(user.Dialog.IsUnloaded());
    CHECK(user.State.Form.SelectedFields.UpperBound() == Int16(visitsAttributes ? 1 : 2));
  }
}

TEST_CASE("A Finish that failed leaves only Cancel, whatever is clicked then") {
  struct Case {
    std::string key, value, status, error, script, where;
  };
  for (const Case& c : {Case{"Columns", "0", "Computing layout ...", "Division by zero", "", "4 ---C"},
                        Case{"Columns", "0", "Computing layout ...", "Division by zero", ">", "5 ---C"},
                        Case{"Menu", "maybe", "Begin creating new form ...", "Type mismatch", "<", "3 ---C"}}) {
    CAPTURE(c.where);
    Walk user;
    user.Do("> > class=Sample.Person > +Spouse. +Age " + c.script);
    user.Profile.Values[c.key] = c.value;
    CHECK(user.Do("!") == c.where);
    const std::string message = "Error occurred in procedure cmdFinish_Click : " + c.error + "\n";
    CHECK(user.Desktop.Texts() == message);
    CHECK(user.Status() == c.status);
    CHECK(user.Desktop.Pointers.back() == ui::MousePointer::Default);
    user.Do("package=1 package=2 +*Name +Home all -=0 field=1 field=0 combo query=0 column=0 !");
    user.Dialog.PressEnter();
    CHECK(user.Where() == c.where);
    CHECK(user.Dialog.Enabled);
    CHECK(user.Desktop.Texts() == message);
  }
}
