// Texts have the room that they need, in the language of the design and in a longer one.
#include "adapters/win32/Text.h"
#include "tests/adapters/win32/DialogFixture.h"

#include <doctest/doctest.h>

#include <array>
#include <vector>

using namespace formwizard;
using namespace formwizard::tests;

namespace {

std::map<int, std::string> GermanTexts() {
  std::map<int, std::string> texts;
  constexpr int lastId = 1100;
  for (int id = 1; id <= lastId; ++id) {
    std::array<wchar_t, 1000> text{};
    const int length = LoadStringW(GetModuleHandleW(nullptr), static_cast<UINT>(id), text.data(), 1000);
    if (length > 0) texts[id] = adapters::win32::Utf8({text.data(), static_cast<std::size_t>(length)});
  }
  return texts;
}

RECT PlaceIn(HWND container, HWND window) {
  RECT place{};
  GetWindowRect(window, &place);
  MapWindowPoints(nullptr, container, reinterpret_cast<POINT*>(&place), 2);
  return place;
}

// What a text needs in a width, drawn by the window's own font.
RECT Needed(HWND window, LONG width) {
  const HDC context = GetDC(window);
  const HGDIOBJ previous = SelectObject(context, reinterpret_cast<HFONT>(SendMessageW(window, WM_GETFONT, 0, 0)));
  RECT needed{0, 0, width, 0};
  DrawTextW(context, CaptionOf(window).c_str(), -1, &needed, DT_CALCRECT | DT_WORDBREAK);
  SelectObject(context, previous);
  ReleaseDC(window, context);
  return needed;
}

void CheckRoom(HWND window) {
  const HWND container = GetParent(window);
  const RECT place = PlaceIn(container, window);
  RECT inside{};
  GetClientRect(container, &inside);
  CHECK(place.left >= inside.left);
  CHECK(place.top >= inside.top);
  CHECK(place.right <= inside.right);
  CHECK(place.bottom <= inside.bottom);
  const RECT needed = Needed(window, place.right - place.left);
  CHECK(needed.right <= place.right - place.left);
  CHECK(needed.bottom <= place.bottom - place.top);
}

// All captions that are shown, and that nothing lies on another.
void CheckTexts(HWND dialog) {
  std::vector<HWND> windows;
  struct Adder {
    static BOOL CALLBACK Add(HWND window, LPARAM list) {
      if (IsWindowVisible(window) && GetDlgCtrlID(window) != 0) {
        reinterpret_cast<std::vector<HWND>*>(list)->push_back(window);
      }
      return TRUE;
    }
  };
  EnumChildWindows(dialog, Adder::Add, reinterpret_cast<LPARAM>(&windows));
  CHECK(windows.size() > 8);
  for (const HWND window : windows) {
    std::array<wchar_t, 40> kind{};
    GetClassNameW(window, kind.data(), 40);
    const std::wstring text = CaptionOf(window);
    CAPTURE(adapters::win32::Utf8(text));
    if (kind.data() == std::wstring(L"Static") || kind.data() == std::wstring(L"Button")) CheckRoom(window);
    for (const HWND other : windows) {
      if (other == window || GetParent(other) != GetParent(window)) continue;
      const RECT one = PlaceIn(dialog, window), two = PlaceIn(dialog, other);
      RECT shared{};
      const bool overlaps = IntersectRect(&shared, &one, &two) != FALSE;
      CHECK_FALSE(overlaps);
    }
  }
}

}  // namespace

TEST_CASE("Every text of the wizard and of the settings has room") {
  if (!HasDialogFont()) {
    MESSAGE("skipped: the dialogs' font is not installed");
    return;
  }
  for (const bool isGerman : {false, true}) {
    CAPTURE(isGerman);
    DialogFixture desktop;
    if (isGerman) desktop.Libraries.Texts = GermanTexts();
    wizard::frmWizard& dialog = desktop.Dialog;
    desktop.UseWizard([&] {
      const auto next = [&] {
        CheckTexts(GetParent(GetParent(WindowOf(dialog.cmdNext))));
        Click(WindowOf(dialog.cmdNext));
      };
      Click(WindowOf(dialog.cmdSettings));
      CheckTexts(Await(isGerman ? L"Einstellungen für Ostrel-Formularassistent" : L"Ostrel Form Wizard Settings"));
      Press(VK_ESCAPE);
      next();
      next();
      HWND tree = WindowOf(dialog.tvwClasses);
      Click(tree, PlaceOf(tree, ItemOf(tree, L"Person")));
      next();
      tree = WindowOf(dialog.tvwAttributes);
      DoubleClick(tree, PlaceOf(tree, ItemOf(tree, L"Spouse")));
      for (const wchar_t* text : {L"Age", L"Colors", L"Notes"}) DoubleClick(tree, PlaceOf(tree, ItemOf(tree, text)));
      DoubleClick(tree, PlaceOf(tree, ItemOf(tree, L"*Name", ItemOf(tree, L"Spouse"))));
      next();
      const HWND fields = WindowOf(dialog.lstFields);
      for (const int row : {0, 1, 2, 3}) {
        Click(fields, PlaceOfRow(fields, row));
        CheckTexts(GetParent(GetParent(WindowOf(dialog.cmdNext))));
      }
      Click(WindowOf(dialog.chkRefCombo));
      CheckTexts(GetParent(GetParent(WindowOf(dialog.cmdNext))));
      Click(WindowOf(dialog.chkRefCombo));
      next();
      CHECK(dialog.CurrentStep() == wizard::step::Finish);
      CheckTexts(GetParent(GetParent(WindowOf(dialog.cmdNext))));
      Press(VK_ESCAPE);
    });
  }
}
