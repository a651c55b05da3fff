// Every way in which the environment and the server can fail is reported, and the wizard goes on.
#include "tests/apps/addin-dll/HostFixture.h"

#include <doctest/doctest.h>

#include <initializer_list>
#include <map>
#include <string>

using namespace formwizard::tests;
using namespace formwizard::tests::host;

namespace {

std::string DictionaryOf(const std::string& className, const std::string& properties) {
  return R"({"systems": [{"name": "S", "connect": "c", "classes": [{"Name": ")" + className + R"(", "properties": )" +
         properties + "}]}]}";
}
const std::string OneClass = DictionaryOf("Sample.Item", R"([{"Name": "Number"}])");

// What a failure of each way is called where the result is an object that is used.
const std::map<Failure, std::string> Descriptions{
    {Failure::MissingName, "Object doesn't support this property or method"},
    {Failure::Hresult, "Permission denied"},
    {Failure::Exception, "The host refuses"},
    {Failure::WrongType, "Type mismatch"},
    {Failure::Null, "Object variable or With block variable not set"},
};
// Where it is a number or a text.
std::string DescriptionOfValue(Failure how) {
  return how == Failure::Null ? "Invalid use of Null" : Descriptions.at(how);
}
// A failure that a call shows whose result nobody uses.
bool FailsWithoutResult(Failure how) { return how != Failure::WrongType && how != Failure::Null; }

std::string Report(const std::string& routine, const std::string& description) {
  return "Error: Error occurred in procedure " + routine + " : " + description;
}

void GoBackAndNext() {
  PressAccessKey('B');
  PressAccessKey('N');
}

// From the first step to the list of properties, of which the first is taken.
void ChooseOneProperty() {
  for (int i = 0; i < 3; ++i) PressAccessKey('N');
  PressIn(WizardDesign().tvwAttributes, VK_HOME);
  PressIn(WizardDesign().cmdSelectOne, VK_SPACE);
}

// A line each.
std::string DismissAll() {
  std::string texts;
  while (IsAtMessage()) texts += DismissMessage() + "\n";
  return texts;
}
std::string Lines(std::initializer_list<std::string> lines) {
  std::string all;
  for (const std::string& line : lines) all += line + "\n";
  return all;
}

}  // namespace

TEST_CASE("However the server fails, the report says it and the step can be tried again") {
  for (const Failure how : AllFailures) {
    CAPTURE(static_cast<int>(how));
    const std::string& description = Descriptions.at(how);
    HostFixture host(OneClass);
    host.Connect();
    PlannedFailures = {{"Factory.SystemList", {how}}, {"Factory.ResultSet", {how}}};
    if (FailsWithoutResult(how)) PlannedFailures["Factory.Connect"] = {how};
    PlannedFailures["ResultSet.Next"] = {how};
    host.UseWizard([&] {
      PressAccessKey('N');
      CHECK(DismissMessage() == Report("PopulateConnection", DescriptionOfValue(how)));
      PressAccessKey('N');  // there is no system to choose
      CHECK(IsAtStep(2));
      GoBackAndNext();
      PressAccessKey('N');
      if (FailsWithoutResult(how)) {
        const std::string message = DismissMessage();
        CHECK(message.starts_with("Ostrel Form Wizard - Step 2 of 6: Run-time error '"));
        CHECK(message.ends_with("':\n\n" + description));
        CHECK(IsAtStep(2));
        PressAccessKey('N');
      }
      CHECK(DismissMessage() == Report("PopulateClassList", description));  // the result set
      CHECK(IsAtStep(3));
      GoBackAndNext();
      if (how != Failure::Null) {  // which is no row
        CHECK(DismissMessage() == Report("PopulateClassList", description));
      }
      CHECK(IsAtStep(3));
      GoBackAndNext();
      PlannedFailures["ResultSet.GetDataByName"] = {how};
      PressAccessKey('N');
      if (how != Failure::Null) CHECK(DismissMessage() == Report("PopulateAttributeList", description));
      CHECK(IsAtStep(4));
      Press(VK_ESCAPE);
    });
  }
}

TEST_CASE("A server that cannot be created is reported and can be tried again") {
  HostFixture host(OneClass);
  host.Connect();
  PlannedFailures["Server.Create"] = {Failure::Hresult};
  host.UseWizard([&] {
    PressAccessKey('N');
    CHECK(DismissMessage() == Report("PopulateConnection", "ActiveX component can't create object"));
    GoBackAndNext();
    PressAccessKey('N');
    CHECK(IsAtStep(3));
    Press(VK_ESCAPE);
  });
}

TEST_CASE("However the environment fails, each failure is reported and the rest of the form is made") {
  for (const Failure how : AllFailures) {
    CAPTURE(static_cast<int>(how));
    const std::string& description = Descriptions.at(how);
    HostFixture host(OneClass);
    host.Connect();
    // The third library is not needed here; the fourteenth control is the last one.
    PlannedFailures = {{"VBE.ActiveVBProject", {how, 2}},
                       {"VBComponent.Designer", {how}},
                       {"VBControls.Add", {how, 13}},
                       {"CodeModule.CountOfLines", {how, 1}}};
    std::string reports;
    host.UseWizard([&] {
      ChooseOneProperty();
      Finish();
      reports = DismissAll();
    });
    CHECK(reports ==
          Lines({Report("WriteForm", description), Report("WriteForm", description),
                 Report("WriteConHelper ", description), Report("WriteSubCommon", DescriptionOfValue(how))}));
    CHECK(host.Project->IsChanged());
  }
}

TEST_CASE("However a call fails whose result nobody uses, it is reported") {
  for (const Failure how : {Failure::MissingName, Failure::Hresult, Failure::Exception}) {
    CAPTURE(static_cast<int>(how));
    const std::string& description = Descriptions.at(how);
    HostFixture host(OneClass);
    host.Connect();
    PlannedFailures = {{"VBProject.AddToolboxProgID", {how, 2}},
                       {"VBComponent.Name", {how, 2}},
                       {"Property.Value", {how}},
                       {"VBControl.Container", {how}},
                       {"CodeModule.InsertLines", {how, 1}},
                       {"VBComponent.Activate", {how}}};
    std::string reports;
    host.UseWizard([&] {
      ChooseOneProperty();
      Finish();
      reports = DismissAll();
      CHECK(IsAtStep(4));  // only cancelling is left
      PressAccessKey('N');
      CHECK(IsAtStep(4));
      Press(VK_ESCAPE);
    });
    CHECK(reports == Lines({Report("WriteForm", description), Report("WriteForm", description),
                            Report("WriteForm", description), Report("WriteConField - name is ", description),
                            Report("WriteSubCommon", description), Report("cmdFinish_Click", description)}));
    CHECK(host.Project->IsChanged());
  }
}

TEST_CASE("Without a form to write into every step is reported, and the wizard can only be cancelled") {
  HostFixture host(OneClass);
  host.Connect();
  PlannedFailures = {{"VBComponents.Item", {Failure::Hresult}}, {"VBComponents.Add", {Failure::Exception}}};
  std::string reports;
  host.UseWizard([&] {
    ChooseOneProperty();
    Finish();
    reports = DismissAll();
    CHECK(IsAtStep(4));
    Press(VK_ESCAPE);
  });
  const std::string notSet = Descriptions.at(Failure::Null);
  CHECK(reports.starts_with(Lines({Report("WriteForm", "Permission denied"), Report("WriteForm", "The host refuses"),
                                   Report("WriteForm", notSet)})));
  CHECK(reports.ends_with(Lines({Report("cmdFinish_Click", notSet)})));
}

TEST_CASE("Names that are too long and texts that the code page lacks are reported whole") {
  const std::string longClass = std::string(250, 'c') + ".Item", longProperty(255, 'p');
  HostFixture host(DictionaryOf(longClass, R"([{"Name": ")" + longProperty + R"(", "Caption": "Имя"}])"));
  host.Connect();
  std::string reports;
  host.UseWizard([&] {
    ChooseOneProperty();
    Finish();
    reports = DismissAll();
  });
  for (const std::string& expected :
       {Report("WriteConField - name is ", "Not a legal object name: 'lbl" + longProperty + "'"),
        Report("WriteConField - name is ", "the text \"Имя\" cannot be written in code page 1252"),
        Report("WriteConField - name is txt" + longProperty, "Not a legal object name: 'txt" + longProperty + "'")}) {
    CAPTURE(expected);
    CHECK(reports.find(expected) != std::string::npos);
  }
  host.Project->Save();
  const std::string form = ReadFile(host.Home + "\\frmItem.frm");
  CHECK(form.find("Const m_classname = \"" + longClass + "\"\r\n") != std::string::npos);
  CHECK(form.find("m_object." + longProperty + "\r\n") != std::string::npos);
}
