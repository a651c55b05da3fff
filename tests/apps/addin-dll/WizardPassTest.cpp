// A click on the command, and the wizard used in its windows until the environment has a new form.
#include "tests/apps/addin-dll/HostFixture.h"
#include "tests/apps/addin-dll/Pictures.h"
#include "tests/support/Golden.h"

#include <doctest/doctest.h>

#include <map>
#include <sstream>
#include <string>

using namespace formwizard::tests;
using namespace formwizard::tests::host;

namespace {

std::string Title() {
  const std::wstring title = ActiveTitle();
  return std::string(title.begin(), title.end());
}

void CheckStep(int step) {
  const std::string number = std::to_string(step);
  CHECK(Title() == "Ostrel Form Wizard - Step " + number + " of 6");
  TakePicture("step-" + number);
}

void SetTwoColumns() {
  PressAccessKey('S');
  CHECK(Title() == "Ostrel Form Wizard Settings");
  GoTo("txtNumColumns");
  Press(VK_UP);
  TakePicture("settings");
  Press(VK_RETURN);
}

void ChooseClassAndProperties() {
  Press(VK_RETURN);
  ChooseNode("tvwConnection", L"Samples");
  CheckStep(2);
  Press(VK_RETURN);
  ChooseNode("tvwClasses", L"Person");
  CheckStep(3);
  PressAccessKey('N');
  SelectProperty(L"*Name");
  OpenNode("tvwAttributes", L"Home");
  SelectProperty(L"*City");
  SelectProperty(L"Age");
  SelectProperty(L"Notes");
  OpenNode("tvwAttributes", L"Spouse");
  Press(VK_DOWN);  // its *Name
  GoTo("cmdSelectOne");
  Press(VK_SPACE);
  CheckStep(4);
  PressAccessKey('N');
}

void SetAttributes() {
  ChooseField(1);
  TypeOver("txtCaption", L"Town");
  ChooseField(2);
  ChooseInCombo("lstUpdateAfter", L"Name");
  ChooseField(3);
  TypeOver("txtRowHeight", L"7");
  ChooseField(4);
  GoTo("chkRefCombo");
  Press(VK_SPACE);
  ChooseInCombo("lstQueryName", L"ByName");
  ChooseInCombo("lstQueryColumn", L"Name");
  CheckStep(5);
}

void MakeForm() {
  CheckStep(1);
  SetTwoColumns();
  GoTo("cmdNext");
  ChooseClassAndProperties();
  SetAttributes();
  PressAccessKey('N');
  CheckStep(6);
  CHECK(Focus() == WindowNamed("cmdFinish"));
  Finish();
}

// The first line in which two texts differ; empty for equal ones.
std::string Difference(const std::string& made, const std::string& expected) {
  if (made == expected) return "";
  std::istringstream inMade(made), inExpected(expected);
  std::string lineMade, lineExpected;
  int number = 0;
  do {
    ++number;
    if (!std::getline(inMade, lineMade)) lineMade = "(end)";
    if (!std::getline(inExpected, lineExpected)) lineExpected = "(end)";
  } while (lineMade == lineExpected && inMade && inExpected);
  return "line " + std::to_string(number) + " is " + lineMade + " instead of " + lineExpected;
}

void CheckSame(const std::map<std::string, std::string>& made, const std::map<std::string, std::string>& expected) {
  for (const auto& [name, text] : expected) {
    CAPTURE(name);
    CHECK(made.contains(name));
    if (made.contains(name)) CHECK(Difference(made.at(name), text) == "");
  }
  CHECK(made.size() == expected.size());
}

}  // namespace

// tests/golden/addin-project is what the command line makes, on any system, of the same choices.
TEST_CASE("A form made in the environment by keyboard alone is the one that the command line makes") {
  HostFixture host;
  host.Connect();
  host.UseWizard(MakeForm);
  CHECK(host.Project->IsChanged());
  host.Project->Save();
  CheckSame(FilesIn(NativePath(host.Home)), FilesIn(FORMWIZARD_SOURCE_DIR "/tests/golden/addin-project"));
  CHECK(ReadFile(host.Library.Profile()).find("Columns=2") != std::string::npos);
}

TEST_CASE("Code goes behind more lines than 16 bits count, until an event procedure is to have such a line") {
  std::string lines;
  for (int i = 1; i <= 33'000; ++i) lines += "' line " + std::to_string(i) + "\r\n";
  HostFixture host("", [&](const std::string& home) {
    const std::string form = home + "\\Form1.frm";
    WriteFile(form, ReadFile(form) + lines);
  });
  host.Connect();
  host.UseWizard([] {
    MakeForm();
    CHECK(DismissMessage() == "Error: Error occurred in procedure cmdFinish_Click : Overflow");
    Press(VK_ESCAPE);
  });
  host.Project->Save();
  const std::string firstEvent = "Private Sub cmd__New_Click()";
  std::string form = ReadFile(host.Home + "\\frmPerson.frm"), expected = Golden("addin-project/frmPerson.frm");
  const std::size_t at = form.find(lines), end = expected.find(firstEvent) + firstEvent.size();
  REQUIRE(at != std::string::npos);
  form.erase(at, lines.size());
  CHECK(Difference(form.substr(0, end), expected.substr(0, end)) == "");
}

TEST_CASE("Connected by another program the wizard opens at once and there is no command") {
  HostFixture host;
  UseWindows([&] { host.Connect(2); },
             [] {
               CHECK(Title() == "Ostrel Form Wizard - Step 1 of 6");
               CHECK(::IsWindowEnabled(::GetWindow(Await(ActiveTitle()), GW_OWNER)) == FALSE);
               Press(VK_ESCAPE);
             });
  CHECK(::IsWindowEnabled(host.Window.Handle()));
  CHECK_FALSE(host.WizardCommand());
  CHECK_FALSE(host.Project->IsChanged());
}

TEST_CASE("Each click opens a fresh wizard") {
  HostFixture host;
  host.Connect();
  for (int i = 0; i < 2; ++i) {
    host.UseWizard([] {
      CHECK(Title() == "Ostrel Form Wizard - Step 1 of 6");
      Press(VK_RETURN);
      CHECK(Title() == "Ostrel Form Wizard - Step 2 of 6");
      Press(VK_ESCAPE);
    });
  }
}
