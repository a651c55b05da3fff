// A click on the command, and the wizard used in its windows until the environment has a new form.
#include "tests/apps/addin-dll/HostFixture.h"
#include "tests/apps/addin-dll/Pictures.h"
#include "tests/support/BuildTree.h"
#include "tests/support/Golden.h"

#include <doctest/doctest.h>

#include <map>
#include <string>

using namespace formwizard::tests;
using namespace formwizard::tests::host;

namespace {

void CheckStep(int step) {
  CHECK(IsAtStep(step));
  TakePicture("step-" + std::to_string(step));
}

void ChooseByKeyboard() {
  const formwizard::wizard::frmWizard& dialog = WizardDesign();
  const formwizard::settings::frmSettings& settings = SettingsDesign();
  CheckStep(1);
  PressAccessKey('S');
  CHECK(ActiveTitle() == L"Ostrel Form Wizard Settings");
  PressIn(settings.txtNumColumns, VK_UP);
  TakePicture("settings");
  Press(VK_RETURN);
  PressIn(dialog.cmdNext, VK_RETURN);
  ChooseNode(dialog.tvwConnection, L"Samples");
  CheckStep(2);
  Press(VK_RETURN);
  ChooseNode(dialog.tvwClasses, L"Person");
  CheckStep(3);
  Press(VK_RETURN);  // the focus goes to a tree that is filled only then
  const auto select = [&](std::wstring_view property) {
    ChooseNode(dialog.tvwAttributes, property);
    PressIn(dialog.cmdSelectOne, VK_SPACE);
  };
  select(L"*Name");
  ChooseNode(dialog.tvwAttributes, L"Home");
  Press(VK_RIGHT);  // opens it
  select(L"*City");
  select(L"Age");
  select(L"Notes");
  ChooseNode(dialog.tvwAttributes, L"Spouse");
  Press(VK_RIGHT);
  Press(VK_DOWN);  // its *Name
  PressIn(dialog.cmdSelectOne, VK_SPACE);
  CheckStep(4);
  PressAccessKey('N');
  ChooseRow(dialog.lstFields, 1);
  GoTo(dialog.txtCaption[0]);
  Type(L"Town");  // the tab key has selected what was there
  ChooseRow(dialog.lstFields, 2);
  ChooseInCombo(dialog.lstUpdateAfter, L"Name");
  ChooseRow(dialog.lstFields, 3);
  TypeOver(dialog.txtRowHeight[4], L"7");
  ChooseRow(dialog.lstFields, 4);
  PressIn(dialog.chkRefCombo, VK_SPACE);
  CHECK_FALSE(::IsWindowEnabled(WindowOf(dialog.cmdNext)));
  ChooseInCombo(dialog.lstQueryName, L"ByName");
  ChooseInCombo(dialog.lstQueryColumn, L"Name");
  CheckStep(5);
  PressAccessKey('N');
  CheckStep(6);
  CHECK(Focus() == WindowOf(dialog.cmdFinish));
  Finish();
}

void ChooseByMouse() {
  const formwizard::wizard::frmWizard& dialog = WizardDesign();
  const formwizard::settings::frmSettings& settings = SettingsDesign();
  Click(dialog.cmdSettings);
  Click(settings.spnNumColumns, {4, 4});  // the upper arrow
  Click(settings.cmdOK);
  Click(dialog.cmdNext);
  DoubleClickNode(dialog.tvwConnection, L"Samples");
  CHECK(IsAtStep(3));
  const HWND classes = WindowOf(dialog.tvwClasses);
  const auto isOpen = [&] {
    return (TreeView_GetItemState(classes, ItemOf(classes, L"Sample"), TVIS_EXPANDED) & TVIS_EXPANDED) != 0;
  };
  for (const bool after : {false, true}) {
    DoubleClickNode(dialog.tvwClasses, L"Sample");
    CHECK(isOpen() == after);
  }
  DoubleClickNode(dialog.tvwClasses, L"Person");
  CHECK(IsAtStep(4));
  for (const wchar_t* text : {L"*Name", L"Home", L"*City", L"Age", L"Notes", L"Spouse"}) {
    DoubleClickNode(dialog.tvwAttributes, text);
  }
  const HWND properties = WindowOf(dialog.tvwAttributes);
  Click(properties, PlaceOf(properties, ItemOf(properties, L"*Name", ItemOf(properties, L"Spouse"))));
  Click(dialog.cmdSelectOne);
  Click(dialog.cmdNext);
  ClickRow(dialog.lstFields, 1);
  Click(dialog.txtCaption[0]);
  TypeOver(dialog.txtCaption[0], L"Town");  // a text cannot be typed by mouse
  ClickRow(dialog.lstFields, 2);
  ClickInCombo(dialog.lstUpdateAfter, L"Name");
  ClickRow(dialog.lstFields, 3);
  DoubleClick(WindowOf(dialog.txtRowHeight[4]));  // selects the word
  Type(L"7");
  ClickRow(dialog.lstFields, 4);
  Click(dialog.chkRefCombo);
  ClickInCombo(dialog.lstQueryName, L"ByName");
  ClickInCombo(dialog.lstQueryColumn, L"Name");
  Click(dialog.cmdNext);
  Click(dialog.cmdFinish);
}

}  // namespace

// tests/golden/addin-project is what the command line makes, on any system, of the same choices.
TEST_CASE("A form made in the environment, by keyboard alone or by mouse, is the one that the command line makes") {
  for (const auto choose : {ChooseByKeyboard, ChooseByMouse}) {
    const bool byKeyboard = choose == ChooseByKeyboard;
    CAPTURE(byKeyboard);
    HostFixture host;
    host.Connect();
    host.UseWizard(choose);
    CheckSameFiles(host.Project.Saved(), FilesIn(SourceFolder() + "/tests/golden/addin-project"));
    CHECK(ReadFile(host.Library.Profile()).find("Columns=2") != std::string::npos);
  }
}

TEST_CASE("Code goes behind more lines than 16 bits count, until an event procedure is to have such a line") {
  std::string lines;
  for (int i = 1; i <= 33'000; ++i) lines += "' line " + std::to_string(i) + "\r\n";
  HostFixture host("", lines);
  host.Connect();
  host.UseWizard([] {
    ChooseByKeyboard();
    CHECK(DismissMessage() == "Error: Error occurred in procedure cmdFinish_Click : Overflow");
    Press(VK_ESCAPE);
  });
  const std::string firstEvent = "Private Sub cmd__New_Click()";
  std::string form = host.Project.Saved().at("frmPerson.frm"), expected = Golden("addin-project/frmPerson.frm");
  const std::size_t at = form.find(lines), end = expected.find(firstEvent) + firstEvent.size();
  REQUIRE(at != std::string::npos);
  form.erase(at, lines.size());
  CHECK(form.substr(0, end) == expected.substr(0, end));
}

TEST_CASE("Connected by another program the wizard opens at once and there is no command") {
  HostFixture host;
  const HWND owner = host.Window.Handle();
  UseWindows([&] { host.Connect(2); },
             [&] {
               CHECK(IsAtStep(1));
               CHECK(::GetWindow(ActiveWindow(), GW_OWNER) == owner);
               CHECK_FALSE(::IsWindowEnabled(owner));
               Press(VK_ESCAPE);
             });
  CHECK(::IsWindowEnabled(owner));
  CHECK_FALSE(host.WizardCommand());
  CHECK_FALSE(host.Project.OnDisk().IsChanged());
}
