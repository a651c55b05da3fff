#include "tests/apps/addin-dll/KeyboardUser.h"

#include "adapters/com/Text.h"
#include "settings/frmSettings.h"
#include "tests/support/WizardFixture.h"

#include <doctest/doctest.h>

#include <stdexcept>
#include <vector>

namespace formwizard::tests::host {
namespace {

constexpr int TextOfMessage = 0xFFFF;  // the id of the text in a message box

// The dialogs as they are designed: a window's id is the place of its control in the tab order.
struct Designs : WizardFixture {
  settings::frmSettings Settings{Desktop, Profile, "outility.ini", Localization};
};

const ui::Form& DesignOf(const std::wstring& title) {
  static const Designs designs;
  const bool isSettings = title.ends_with(L"Settings");
  return isSettings ? static_cast<const ui::Form&>(designs.Settings) : designs.Dialog;
}

HWND ActiveWindow() { return Await(ActiveTitle()); }

struct Search {
  int Id;
  HWND Found = nullptr;
  static BOOL CALLBACK Compare(HWND child, LPARAM self) {
    auto& search = *reinterpret_cast<Search*>(self);
    if (::GetDlgCtrlID(child) == search.Id && ::IsWindowVisible(child)) search.Found = child;
    return search.Found ? FALSE : TRUE;
  }
};

std::wstring WholeText(HWND window) {
  std::wstring text(static_cast<std::size_t>(::SendMessageW(window, WM_GETTEXTLENGTH, 0, 0)), L'\0');
  ::SendMessageW(window, WM_GETTEXT, text.size() + 1, reinterpret_cast<LPARAM>(text.data()));
  return text;
}

void PressTimes(WORD key, int times) {
  for (int i = 0; i < times; ++i) Press(key);
}

}  // namespace

HWND WindowNamed(std::string_view control) {
  const HWND active = ActiveWindow();
  int id = 0;
  for (const ui::Control* candidate : DesignOf(ActiveTitle()).Controls()) {
    ++id;
    if (candidate->Name != control) continue;
    Search search{id};
    ::EnumChildWindows(active, Search::Compare, reinterpret_cast<LPARAM>(&search));
    if (search.Found) return search.Found;
  }
  throw std::runtime_error("nothing shows " + std::string(control));
}

void GoTo(std::string_view control) {
  const HWND wanted = WindowNamed(control);
  for (int i = 0; i < 40; ++i) {
    if (Focus() == wanted) return;
    Press(VK_TAB);
  }
  throw std::runtime_error("the tab key does not reach " + std::string(control));
}

void PressAccessKey(char key) { Press(static_cast<WORD>(key), VK_MENU); }

void ChooseNode(std::string_view tree, std::wstring_view text) {
  GoTo(tree);
  Press(VK_HOME);
  for (int i = 0; i < 60 && SelectedText(Focus()) != text; ++i) Press(VK_DOWN);
  if (SelectedText(Focus()) != text) throw std::runtime_error("no node " + std::string(text.begin(), text.end()));
}

void OpenNode(std::string_view tree, std::wstring_view text) {
  ChooseNode(tree, text);
  Press(VK_RIGHT);
}

void SelectProperty(std::wstring_view text) {
  ChooseNode("tvwAttributes", text);
  GoTo("cmdSelectOne");
  Press(VK_SPACE);
}

void ChooseField(int row) {
  GoTo("lstFields");
  Press(VK_HOME);
  PressTimes(VK_DOWN, row);
}

void TypeOver(std::string_view box, std::wstring_view text) {
  GoTo(box);
  Press(VK_HOME);
  Press(VK_END, VK_SHIFT);
  Type(text);
}

void ChooseInCombo(std::string_view combo, std::wstring_view text) {
  GoTo(combo);
  for (int i = 0; i < 20 && CaptionOf(Focus()) != text; ++i) Press(VK_DOWN);
  if (CaptionOf(Focus()) != text) throw std::runtime_error("no entry " + std::string(text.begin(), text.end()));
}

void Finish() {
  const HWND wizard = ActiveWindow();
  PressAccessKey('F');
  for (int i = 0; i < 3000 && ::IsWindow(wizard) && !IsAtMessage(); ++i) ::Sleep(10);
}

bool IsAtMessage() { return ::GetDlgItem(::GetAncestor(Focus(), GA_ROOT), TextOfMessage) != nullptr; }

std::string DismissMessage() {
  for (int i = 0; i < 300 && !IsAtMessage(); ++i) ::Sleep(10);
  if (!IsAtMessage()) throw std::runtime_error("no message");
  const HWND box = ::GetAncestor(Focus(), GA_ROOT);
  const std::wstring shown = CaptionOf(box) + L": " + WholeText(::GetDlgItem(box, TextOfMessage));
  Press(VK_RETURN);
  return adapters::com::Utf8(shown);
}

}  // namespace formwizard::tests::host
