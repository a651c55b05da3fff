// Texts have the room that they need, in every language that is shipped.
#include "adapters/win32/Screen.h"
#include "adapters/win32/Text.h"
#include "tests/adapters/win32/Densities.h"
#include "tests/adapters/win32/DialogFixture.h"
#include "tests/adapters/win32/Picture.h"
#include "tests/support/Languages.h"

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

// What is drawn in a window with its own font.
class Drawing : Pinned {
 public:
  explicit Drawing(HWND window) : window_(window), context_(GetDC(window)) {
    previous_ = SelectObject(context_, reinterpret_cast<HFONT>(SendMessageW(window, WM_GETFONT, 0, 0)));
  }
  ~Drawing() {
    SelectObject(context_, previous_);
    ReleaseDC(window_, context_);
  }

  SIZE SizeOf(const std::wstring& text, LONG width) const {
    RECT needed{0, 0, width, 0};
    DrawTextW(context_, text.c_str(), -1, &needed, DT_CALCRECT | DT_WORDBREAK);
    return {needed.right, needed.bottom};
  }
  LONG LineHeight() const {
    TEXTMETRICW metrics{};
    GetTextMetricsW(context_, &metrics);
    return metrics.tmHeight;
  }

 private:
  HWND window_;
  HDC context_;
  HGDIOBJ previous_;
};

// Those that Windows links to its own for these languages, or names in their place.
bool HasEastAsianFonts() {
  const adapters::win32::Owned<HFONT> font = adapters::win32::MakeFont(8, 96, "Microsoft Sans Serif", DEFAULT_CHARSET);
  const adapters::win32::MemoryContext context(font.get());
  for (const wchar_t character : {L'\u3042', L'\uAC00', L'\u6F22'}) {  // kana, Hangul, an ideograph
    SIZE size{};
    GetTextExtentPoint32W(context, &character, 1, &size);
    if (size.cx < 10) return false;  // as wide as it is high
  }
  return true;
}

// Around a frame; null when it has none.
HWND BoxOf(HWND frame) {
  const HWND box = FindWindowExW(frame, nullptr, WC_BUTTONW, nullptr);
  return GetDlgCtrlID(box) == 0 && IsWindowVisible(box) ? box : nullptr;
}

void CheckRoom(HWND window) {
  RECT given{};
  GetClientRect(window, &given);
  const Drawing drawing(window);
  if (IsOfClass(window, WC_STATICW) || IsOfClass(window, WC_BUTTONW)) {
    const LONG beside = TakenBeside(window);
    const SIZE needed = drawing.SizeOf(CaptionOf(window), given.right - beside);
    CHECK(needed.cx + beside <= given.right);
    CHECK(needed.cy <= given.bottom);
  } else if (IsOfClass(window, WC_EDITW) || IsOfClass(window, WC_COMBOBOXW)) {
    CHECK(drawing.LineHeight() <= given.bottom);
  } else if (IsOfClass(window, WC_LISTBOXW)) {
    CHECK(drawing.LineHeight() <= SendMessageW(window, LB_GETITEMHEIGHT, 0, 0));
  } else if (IsOfClass(window, WC_TREEVIEWW)) {
    CHECK(drawing.LineHeight() <= SendMessageW(window, TVM_GETITEMHEIGHT, 0, 0));
  } else if (const HWND box = BoxOf(window)) {
    CHECK(Drawing(box).SizeOf(CaptionOf(box), given.right).cy <= Drawing(box).LineHeight());
  }
}

// All texts that are shown have the room that they need, and nothing lies on another or outside of what it stands in.
void Check(HWND dialog) {
  const std::vector<HWND> windows = ShownControls(dialog);
  CHECK(windows.size() > 8);
  for (const HWND window : windows) {
    CAPTURE(adapters::win32::Utf8(std::wstring_view(CaptionOf(window))));
    CheckRoom(window);
    const RECT place = PlaceIn(GetParent(window), window);
    RECT inside{};
    GetClientRect(GetParent(window), &inside);
    CHECK(std::min(place.left, place.top) >= 0);
    CHECK(place.right <= inside.right);
    CHECK(place.bottom <= inside.bottom - (BoxOf(GetParent(window)) ? 3 : 0));
    for (const HWND other : windows) {
      if (other == window || GetParent(other) != GetParent(window)) continue;
      const RECT otherPlace = PlaceIn(GetParent(window), other);
      RECT shared{};
      const bool overlaps = IntersectRect(&shared, &place, &otherPlace) != FALSE;
      CHECK_FALSE(overlaps);
    }
  }
}

// Also every panel of the attributes.
void CheckSteps(DialogFixture& desktop, const std::string& name) {
  MouseUser user;
  wizard::frmWizard& dialog = desktop.Dialog;
  PassThroughWizard(user, [&](int step) {
    CAPTURE(step);
    if (step == 4) user.Press(dialog.cmdSelectAll);
    for (int row = 0; row < (step == 5 ? dialog.lstFields.ListCount() : 1); ++row) {
      desktop.Main.Run([&] {
        if (step == 5) dialog.lstFields.ClickItem(row);
        desktop.Desktop.ProcessMessages();
      });
      Check(ActiveWindow());
      TakePicture(name + "-" + std::to_string(step) + (row > 0 ? "-" + std::to_string(row) : ""));
    }
  });
  CHECK(dialog.CurrentStep() == Int16(6));
  Press(VK_ESCAPE);
}

bool IsDrawnBy(adapters::win32::Fonts& fonts, std::string_view text) { return fonts.Draws(ui::Label().Font, text); }

}  // namespace

TEST_CASE(
    "A font draws what it names and has a glyph for, and for another text all of it is drawn in one that has it") {
  using adapters::win32::CharactersOf, adapters::win32::HasAll;
  std::vector<WORD> glyphs(0x100, 0x1F);  // a bitmap font's placeholder
  glyphs['b'] = 0xFFFF;
  const WCRANGE named{L'a', 3};
  for (const auto& [characters, hasD] :
       {std::pair{CharactersOf({&named, 1}, glyphs), false}, {CharactersOf({}, glyphs), true}}) {
    CHECK(HasAll(characters, L"ac\r\n"));  // line breaks are not drawn
    CHECK_FALSE(HasAll(characters, L"abc"));
    CHECK_FALSE(HasAll(characters, L"\u6F22"));
    CHECK(HasAll(characters, L"d") == hasD);
  }
  adapters::win32::Fonts fonts;
  for (const auto& [text, isDrawn] : {std::pair{"two\r\nlines", true},
                                      {"Gr\u00F6\u00DFe\r\n", true},
                                      {"\u0416", false},
                                      {"\u6F22\u5B57", false},
                                      {"\U0001F600", false}}) {
    CAPTURE(text);
    if (HasDialogFont()) CHECK(IsDrawnBy(fonts, text) == isDrawn);
  }
}

TEST_CASE("Every text of the wizard and of the settings has room") {
  if (!HasDialogFont()) {
    MESSAGE("skipped: the dialogs' font is not installed");
    return;
  }
  const bool hasAll = HasEastAsianFonts();
  if (!hasAll) MESSAGE("skipped: Chinese, Japanese and Korean, whose fonts are not installed");
  AtEveryDensity([&](int density) {
    for (const auto& language : ShippedLanguages()) {
      if (!language.IsWestern() && !hasAll) continue;
      CAPTURE(language.Abbreviation);
      DialogFixture desktop(language.Abbreviation, language.LocaleId);
      desktop.UseWizard([&] {
        CAPTURE(density);
        CAPTURE(language.Abbreviation);
        const bool isEnglish = CaptionOf(WindowOf(desktop.Dialog.cmdCancel)) == L"&Cancel";
        CHECK(isEnglish == (language.Abbreviation == "ENU"));
        CheckSteps(desktop, language.Abbreviation + std::to_string(density));
      });
    }
  });
}
