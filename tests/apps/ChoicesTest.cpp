// From a description through the wizard to the description of what was chosen.
#include "apps/forms/Choices.h"
#include "apps/forms/DescriptionText.h"
#include "apps/forms/Offers.h"
#include "apps/forms/WizardUser.h"
#include "tests/support/WizardFixture.h"

using namespace formwizard::apps::forms;
using namespace formwizard::tests;

namespace {

struct Chooser : WizardFixture {
  FormDescription Asked;
  std::vector<std::string> LeftOut;

  explicit Chooser(const std::string& fields)
      : Asked(FormDescriptionsIn(R"({"system":"Samples","class":"Sample.Person","fields":[)" + fields + "]}", "f")
                  .front()) {
    LeftOut = GoToAttributes(Dialog, Asked);
  }
  // The fields, as they are chosen now.
  std::string Finish(bool knowsBefore) {
    Dialog.cmdFinish.Click();
    Offers offers(Server);
    FormDescription made = ChoicesIn(State, Asked.System->Value, offers.Of(Asked.System->Value, "Sample.Person"),
                                     knowsBefore ? &Asked : nullptr);
    CHECK(made.Class.Value == "Sample.Person");
    CHECK(made.Settings.at("CollectionRows") == "3");
    made.Settings.clear();
    return TextOf(made);
  }
};

}  // namespace

TEST_CASE("What is described, played and finished is described the same again") {
  for (const bool knowsBefore : {true, false}) {  // what is as the wizard proposes it stays a choice where it was one
    CAPTURE(knowsBefore);
    Chooser chooser(
        R"({"property":"Name","readOnly":true,"updateAfter":"Notes"},{"property":"Age","updateAfter":"Name"},
      {"property":"Home.City","caption":"Town hall"},{"property":"Colors","rows":7},
      {"property":"Spouse.Name","combo":{"query":"ByName","column":"Name"}},"Notes")" +
        std::string(knowsBefore ? R"(,{"property":"Spouse.Age","caption":"Spouse Age"})" : ""));
    CHECK(chooser.LeftOut.empty());
    CHECK(chooser.Where() == "5 BNFC");
    CHECK(chooser.Finish(knowsBefore) == TextOf(chooser.Asked));
  }
}

TEST_CASE("What the class has lost is left out and named, and later choices come out") {
  Chooser chooser(R"("Gone",{"property":"Spouse.Name","combo":{"query":"Lost","column":"Name"}},
    {"property":"Name","rows":3,"updateAfter":"Colors"},{"property":"Colors","readOnly":true,"caption":"Colours"})");
  CHECK(chooser.LeftOut == std::vector<std::string>{"Gone", "Spouse.Name (combo Lost)", "Name (updateAfter Colors)",
                                                    "Name (rows)", "Colors (readOnly)"});
  CHECK(chooser.Where() == "5 BNFC");
  chooser.Dialog.lstFields.ClickItem(1);
  chooser.Dialog.chkReadOnly.Click();
  chooser.Dialog.lstUpdateAfter.ClickItem(2);
  CHECK(Has(chooser.Finish(true), R"("fields": [
    "Spouse.Name",
    { "property": "Name", "readOnly": true, "updateAfter": "Colors" },
    { "property": "Colors", "caption": "Colours" } ])"));

  for (const auto& [system, name, step] : {std::tuple{"Gone", "Sample.Person", 2}, {"Samples", "Gone", 3}}) {
    WizardFixture other;
    CHECK_FALSE(GoToProperties(other.Dialog, system, name));
    CHECK(other.Dialog.CurrentStep() == Int16(step));
  }
  CHECK(Chooser(R"("Gone")").Where() == "4 B--C");
}
