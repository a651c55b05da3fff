// The wizard in real windows, used by keyboard alone and by mouse alone.
#include "tests/adapters/win32/DialogFixture.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <stdexcept>
#include <string>
#include <vector>

using namespace formwizard;
using namespace formwizard::tests;

namespace {

// The same choices, made without windows.
std::vector<std::string> ExpectedCalls() {
  WizardFixture wizard;
  wizard::frmWizard& dialog = wizard.Dialog;
  const adapters::win32::Win32TextMeasure measure;
  wizard::frmWizard measured({wizard.Desktop, measure, wizard.Profile, "outility.ini", wizard.Server, wizard.Strings,
                              wizard.Localization, "", wizard.State},
                             wizard.Ide);
  wizard.Profile.Values["Columns"] = "2";
  dialog.Unload();
  measured.Load();
  const auto choose = [&](ui::Node& node) {
    measured.tvwAttributes.ClickNode(node);
    measured.cmdSelectOne.Click();
  };
  const auto property = [&](const std::string& text) -> ui::Node& {
    for (ui::Node& node : measured.tvwAttributes.Nodes.All()) {
      if (node.Text == text) return node;
    }
    throw std::runtime_error("no property " + text);
  };
  measured.cmdNext.Click();
  measured.cmdNext.Click();
  measured.tvwClasses.ClickNode(WizardFixture::NodeWithTag(measured.tvwClasses, "Sample.Person"));
  measured.cmdNext.Click();
  choose(property("*Name"));
  choose(property("Age"));
  measured.tvwAttributes.ExpandNode(property("Home"));
  choose(property("City"));
  choose(property("Notes"));
  measured.tvwAttributes.ExpandNode(property("Spouse"));
  choose(*property("Spouse").Child());
  measured.cmdNext.Click();
  measured.lstFields.ClickItem(1);
  measured.lstUpdateAfter.ClickItem(0);
  measured.lstFields.ClickItem(2);
  measured.txtCaption[0].Type("Ort");
  measured.lstFields.ClickItem(3);
  measured.txtRowHeight[4].Type("7");
  measured.lstFields.ClickItem(4);
  measured.chkRefCombo.Click();
  measured.lstQueryName.ClickItem(0);
  measured.lstQueryColumn.ClickItem(1);
  measured.cmdFinish.Click();
  return wizard.Ide.Transcript.Calls;
}

void CheckCalls(const std::vector<std::string>& calls) {
  const std::vector<std::string> expected = ExpectedCalls();
  CHECK(calls.size() == expected.size());
  for (std::size_t i = 0; i < std::min(calls.size(), expected.size()); ++i) CHECK(calls[i] == expected[i]);
}

void GoTo(const ui::Control& control) {
  const HWND window = WindowOf(control);
  for (int i = 0; i < 40 && Focus() != window; ++i) Press(VK_TAB);
  if (Focus() != window) throw std::runtime_error("the tab key does not reach " + control.Name);
}
void ChooseNode(const ui::TreeView& tree, std::wstring_view text) {
  GoTo(tree);
  Press(VK_HOME);
  for (int i = 0; i < 20 && SelectedText(Focus()) != text; ++i) Press(VK_DOWN);
  if (SelectedText(Focus()) != text) throw std::runtime_error("no node of " + tree.Name);
}
void TypeInto(const ui::TextBox& box, std::wstring_view text) {
  GoTo(box);
  Type(text);  // the tab key has selected what was there
}
void PressIn(const ui::Control& control, WORD key, int times = 1) {
  GoTo(control);
  for (int i = 0; i < times; ++i) Press(key);
}

void ClickNode(HWND tree, HTREEITEM node) { Click(tree, PlaceOf(tree, node)); }
void ChooseInCombo(HWND combo, int row) {
  Click(combo);
  COMBOBOXINFO info{};
  info.cbSize = sizeof(info);
  SendMessageW(combo, CB_GETCOMBOBOXINFO, 0, reinterpret_cast<LPARAM>(&info));
  Click(info.hwndList, PlaceOfRow(info.hwndList, row));
}

}  // namespace

TEST_CASE("A form made by keyboard alone") {
  DialogFixture desktop;
  wizard::frmWizard& dialog = desktop.Dialog;
  desktop.UseWizard([&] {
    Press('S', VK_MENU);
    Await(L"Ostrel Form Wizard Settings");
    Press(VK_UP);  // the number of columns has the focus
    Press(VK_RETURN);
    Press('N', VK_MENU);
    PressIn(dialog.tvwConnection, VK_HOME);
    Press(VK_RETURN);
    ChooseNode(dialog.tvwClasses, L"Person");
    Press(VK_RETURN);
    for (const wchar_t* text : {L"*Name", L"Age"}) {
      ChooseNode(dialog.tvwAttributes, text);
      PressIn(dialog.cmdSelectOne, VK_SPACE);
    }
    ChooseNode(dialog.tvwAttributes, L"Home");
    Press(VK_RIGHT);  // opens it
    for (const wchar_t* text : {L"City", L"Notes"}) {
      ChooseNode(dialog.tvwAttributes, text);
      PressIn(dialog.cmdSelectOne, VK_SPACE);
    }
    ChooseNode(dialog.tvwAttributes, L"Spouse");
    Press(VK_RIGHT);
    Press(VK_DOWN);
    PressIn(dialog.cmdSelectOne, VK_SPACE);
    Press('N', VK_MENU);
    PressIn(dialog.lstFields, VK_DOWN);
    PressIn(dialog.lstUpdateAfter, VK_DOWN);
    PressIn(dialog.lstFields, VK_DOWN);
    TypeInto(dialog.txtCaption[0], L"Ort");
    PressIn(dialog.lstFields, VK_DOWN);
    TypeInto(dialog.txtRowHeight[4], L"7");
    PressIn(dialog.lstFields, VK_DOWN);
    PressIn(dialog.chkRefCombo, VK_SPACE);
    CHECK_FALSE(IsWindowEnabled(WindowOf(dialog.cmdNext)));
    PressIn(dialog.lstQueryName, VK_DOWN);
    GoTo(dialog.lstQueryColumn);
    Press(VK_DOWN, VK_MENU);  // drops the list down, where passing an entry does not choose it yet
    Press(VK_DOWN);
    Press(VK_DOWN);
    CHECK(dialog.lstQueryColumn.ListIndex() == -1);
    Press(VK_RETURN);
    CHECK(dialog.lstQueryColumn.Text() == "Name");
    Press('N', VK_MENU);
    CHECK(ActiveTitle() == L"Ostrel Form Wizard - Step 6 of 6");
    Press(VK_RETURN);
  });
  CHECK(dialog.IsUnloaded());
  CheckCalls(desktop.Fakes.Ide.Transcript.Calls);
}

TEST_CASE("A form made by mouse alone") {
  DialogFixture desktop;
  wizard::frmWizard& dialog = desktop.Dialog;
  desktop.UseWizard([&] {
    Click(WindowOf(dialog.cmdSettings));
    const HWND settings = Await(L"Ostrel Form Wizard Settings");
    Click(ChildWithId(settings, 4), {4, 4});  // the upper arrow beside the number of columns
    Click(FindWindowExW(settings, nullptr, WC_BUTTONW, L"&OK"));
    Click(WindowOf(dialog.cmdNext));
    HWND tree = WindowOf(dialog.tvwConnection);
    DoubleClick(tree, PlaceOf(tree, ItemOf(tree, L"Samples")));
    CHECK(dialog.CurrentStep() == wizard::step::Class);
    tree = WindowOf(dialog.tvwClasses);
    DoubleClick(tree, PlaceOf(tree, ItemOf(tree, L"Sample")));  // a package closes, and is opened again
    CHECK_FALSE(dialog.tvwClasses.Nodes.Item("Sample").Expanded);
    DoubleClick(tree, PlaceOf(tree, ItemOf(tree, L"Sample")));
    DoubleClick(tree, PlaceOf(tree, ItemOf(tree, L"Person")));
    CHECK(dialog.CurrentStep() == wizard::step::Properties);
    tree = WindowOf(dialog.tvwAttributes);
    for (const wchar_t* text : {L"*Name", L"Age", L"Home"}) DoubleClick(tree, PlaceOf(tree, ItemOf(tree, text)));
    for (const wchar_t* text : {L"City", L"Notes", L"Spouse"}) DoubleClick(tree, PlaceOf(tree, ItemOf(tree, text)));
    ClickNode(tree, ItemOf(tree, L"*Name", ItemOf(tree, L"Spouse")));
    Click(WindowOf(dialog.cmdSelectOne));
    Click(WindowOf(dialog.cmdNext));
    const HWND fields = WindowOf(dialog.lstFields);
    Click(fields, PlaceOfRow(fields, 1));
    ChooseInCombo(WindowOf(dialog.lstUpdateAfter), 0);
    Click(fields, PlaceOfRow(fields, 2));
    DoubleClick(WindowOf(dialog.txtCaption[0]), {8, 8});  // selects the word
    CHECK(dialog.ActiveControl() == &dialog.txtCaption[0]);
    GoTo(dialog.txtCaption[0]);
    Press(VK_END);
    for (int i = 0; i < 9; ++i) Press(VK_BACK);
    Type(L"Ort");  // a text cannot be typed by mouse
    Click(fields, PlaceOfRow(fields, 3));
    DoubleClick(WindowOf(dialog.txtRowHeight[4]), {8, 8});
    Type(L"7");
    Click(fields, PlaceOfRow(fields, 4));
    Click(WindowOf(dialog.chkRefCombo));
    ChooseInCombo(WindowOf(dialog.lstQueryName), 0);
    ChooseInCombo(WindowOf(dialog.lstQueryColumn), 1);
    Click(WindowOf(dialog.cmdNext));
    Click(WindowOf(dialog.cmdFinish));
  });
  CHECK(dialog.IsUnloaded());
  CheckCalls(desktop.Fakes.Ide.Transcript.Calls);
}
