// Texts have the room that they need, in every language that is shipped.
#include "adapters/win32/Text.h"
#include "tests/adapters/win32/DialogFixture.h"
#include "tests/support/Languages.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <array>
#include <vector>

using namespace formwizard;
using namespace formwizard::tests;

namespace {

RECT PlaceIn(HWND container, HWND window) {
  RECT place{};
  GetWindowRect(window, &place);
  MapWindowPoints(nullptr, container, reinterpret_cast<POINT*>(&place), 2);
  return place;
}

bool IsOfClass(HWND window, std::wstring_view name) {
  std::array<wchar_t, 40> kind{};
  GetClassNameW(window, kind.data(), static_cast<int>(kind.size()));
  return kind.data() == name;
}

// Pixels beside a caption: the box or circle before it, or the edges of a button.
LONG TakenBeside(HWND window) {
  if (!IsOfClass(window, WC_BUTTONW)) return 0;
  const LONG type = GetWindowLongW(window, GWL_STYLE) & BS_TYPEMASK;
  return type == BS_PUSHBUTTON || type == BS_DEFPUSHBUTTON ? 4 : 18;
}

// The texts of one language, drawn by the windows' own fonts.
struct Texts {
  bool AreWestern;  // the dialogs' font has all characters, so heights are what the design counts on
  int Unknown = 0;  // those with a character that the font lacks

  void CheckRoom(HWND window) {
    const std::wstring text = CaptionOf(window);
    const LONG beside = TakenBeside(window);
    RECT given{};
    GetClientRect(window, &given);
    RECT needed{0, 0, given.right - beside, 0};
    std::vector<WORD> glyphs(text.size());
    const HDC context = GetDC(window);
    const HGDIOBJ previous = SelectObject(context, reinterpret_cast<HFONT>(SendMessageW(window, WM_GETFONT, 0, 0)));
    DrawTextW(context, text.c_str(), -1, &needed, DT_CALCRECT | DT_WORDBREAK);
    GetGlyphIndicesW(context, text.c_str(), static_cast<int>(text.size()), glyphs.data(), GGI_MARK_NONEXISTING_GLYPHS);
    SelectObject(context, previous);
    ReleaseDC(window, context);
    if (std::ranges::find(glyphs, 0xFFFF) != glyphs.end()) {
      ++Unknown;
      return;
    }
    CHECK(needed.right + beside <= given.right);
    CHECK(needed.bottom <= given.bottom);
  }

  // All captions that are shown; and nothing lies on another or outside of what it stands in.
  void Check(HWND dialog) {
    const std::vector<HWND> windows = ShownControls(dialog);
    CHECK(windows.size() > 8);
    for (const HWND window : windows) {
      CAPTURE(adapters::win32::Utf8(std::wstring_view(CaptionOf(window))));
      if (IsOfClass(window, WC_STATICW) || IsOfClass(window, WC_BUTTONW)) CheckRoom(window);
      const RECT place = PlaceIn(GetParent(window), window);
      RECT inside{};
      GetClientRect(GetParent(window), &inside);
      CHECK(std::min(place.left, place.top) >= 0);
      CHECK(place.right <= inside.right);
      if (AreWestern) CHECK(place.bottom <= inside.bottom);
      for (const HWND other : windows) {
        if (other == window || GetParent(other) != GetParent(window)) continue;
        const RECT otherPlace = PlaceIn(GetParent(window), other);
        RECT shared{};
        const bool overlaps = IntersectRect(&shared, &place, &otherPlace) != FALSE;
        CHECK_FALSE(overlaps);
      }
    }
  }
};

void CheckSteps(const wizard::frmWizard& dialog, Texts& texts) {
  MouseUser user;
  PassThroughWizard(user, [&](int step) {
    CAPTURE(step);
    if (step == 4) user.Press(dialog.cmdSelectAll);
    const LRESULT rows = step == 5 ? SendMessageW(WindowOf(dialog.lstFields), LB_GETCOUNT, 0, 0) : 1;
    for (int row = 0; row < rows; ++row) {  // every panel
      if (step == 5 && row == 0) user.ChooseRow(dialog.lstFields, row);
      if (row > 0) Press(VK_DOWN);
      texts.Check(ActiveWindow());
    }
  });
  CHECK(dialog.CurrentStep() == Int16(6));
  Press(VK_ESCAPE);
}

}  // namespace

TEST_CASE("Every text of the wizard and of the settings has room") {
  if (!HasDialogFont()) {
    MESSAGE("skipped: the dialogs' font is not installed");
    return;
  }
  for (const auto& language : ShippedLanguages()) {
    DialogFixture desktop(language.Abbreviation, language.LocaleId);
    Texts texts{language.IsWestern()};
    desktop.UseWizard([&] {
      CAPTURE(language.Abbreviation);
      const bool isEnglish = CaptionOf(WindowOf(desktop.Dialog.cmdCancel)) == L"&Cancel";
      CHECK(isEnglish == (language.Abbreviation == "ENU"));
      CheckSteps(desktop.Dialog, texts);
      if (!language.IsWestern()) return;
      CHECK(texts.Unknown == 0);
    });
    if (texts.Unknown != 0)
      MESSAGE(language.Abbreviation, ": characters of ", texts.Unknown, " texts are not installed");
  }
}
