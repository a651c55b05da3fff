#include "support/Localization.h"

#include "tests/support/FakeDesktop.h"
#include "tests/support/FakeLibraries.h"
#include "ui/ListBox.h"

using namespace formwizard;
using namespace formwizard::tests;

namespace {

using Texts = std::vector<std::string>;

std::string Shown(const ui::Font& font) {
  return std::to_string(static_cast<int>(font.Size.Get())) + " " + font.Name.Get() + " " +
         std::to_string(font.Charset.Get());
}

// A dialog with one control of every kind. What was designed is a 9-point "Design" font and captions of dashes.
struct Dialog : ui::Form {
  explicit Dialog(ui::Desktop& desktop) : Form(desktop) {
    tabs.TabCaptions = {"-", "-", "-"};
    list.ColumnHeaders = {"-", "-"};
    tools.Buttons = {{"105^x", "-"}, {"", "-"}, {"104", "-"}};
    for (const auto& [control, name] : {std::pair<ui::Control*, const char*>{&label, "lbl"},
                                        {&tabs, "tabMain"},
                                        {&list, "lvw"},
                                        {&tools, "tbr"},
                                        {&box, "txt"},
                                        {&combo, "cbo"}}) {
      Add(*control, {name, nullptr, 0, 0, 0, 0, ""});
      ForgetFont(control->Font);
    }
    ForgetFont(Font);
    Caption = "-";
    label.Caption = "-";
  }
  static void ForgetFont(ui::Font& font) {
    font.Size = 9;
    font.Name = "Design";
    font.Charset = 0;
  }

  ui::Label label;
  ui::TabStrip tabs;
  ui::ListView list;
  ui::Toolbar tools;
  ui::TextBox box;
  ui::ComboBox combo;
};

struct Fixture {
  FakeDesktop Desktop;
  FakeLibraries Libraries;
  support::Strings Strings{Libraries, "/addin/"};
  support::Localization Localization{Strings, Libraries};
};

}  // namespace

TEST_CASE("A tag names caption, font size and font name, up to its first circumflex") {
  struct Case {
    std::string Tag, Caption, Font, Override = "";
  };
  for (const Case& c :
       {Case{"114", "Ca&ption:", "8 MS Sans Serif 1"}, Case{"105^140", "Please select a class:", "8 MS Sans Serif 1"},
        Case{"100,0,31", "Welcome!", "8 Courier New 1"}, Case{"0,24,0", "-", "24 MS Sans Serif 1"},
        Case{",,31", "-", "8 Courier New 1"}, Case{"", "-", "9 Design 0"}, Case{"^140", "-", "9 Design 0"},
        // Assignments that fail are passed over one by one.
        Case{"9999,9999,31", "-", "9 Courier New 1"}, Case{"100,30", "Welcome!", "9 MS Sans Serif 1"},
        Case{"100,10,9999", "Welcome!", "10 Design 1"},
        // A size of the host's overrides every other, unless it is none.
        Case{"100,24", "Welcome!", "11 MS Sans Serif 1", "11"}, Case{"100,24", "Welcome!", "9 MS Sans Serif 1", "big"},
        Case{"", "-", "9 Design 0", "11"}}) {
    CAPTURE(c.Tag);
    Fixture fixture;
    fixture.Localization.FontSizeOverride = c.Override;
    Dialog dialog(fixture.Desktop);
    dialog.label.Tag = c.Tag;
    fixture.Localization.Localize(dialog);
    CHECK(dialog.label.Caption == c.Caption);
    CHECK(Shown(dialog.label.Font) == c.Font);
  }
}

TEST_CASE_FIXTURE(Fixture, "Every kind of control takes its texts in its own way") {
  Dialog dialog(Desktop);
  dialog.Tag = "500,12";
  dialog.tabs.Tag = "108-0-109,10";
  dialog.list.Tag = "601-602,,31";
  dialog.tools.Tag = "100";
  dialog.box.Tag = "100,18";
  Localization.Localize(dialog);
  CHECK(dialog.Caption == "Ostrel Form Wizard Settings");
  CHECK(Shown(dialog.Font) == "12 MS Sans Serif 1");
  CHECK(dialog.tabs.TabCaptions == Texts{"Available Properties:", "-", "Selected Properties:"});
  CHECK(Shown(dialog.tabs.Font) == "10 MS Sans Serif 1");
  CHECK(dialog.list.ColumnHeaders == Texts{"Query Name:", "Column Name:"});
  CHECK(Shown(dialog.list.Font) == "8 Courier New 1");
  Texts tips;
  for (const ui::Toolbar::Button& button : dialog.tools.Buttons) tips.push_back(button.ToolTipText);
  CHECK(tips == Texts{"Please select a class:", "-", "Which class would you like to use?"});
  CHECK(dialog.box.Text().empty());
  CHECK(Shown(dialog.box.Font) == "18 MS Sans Serif 1");
  CHECK(Shown(dialog.combo.Font) == "8 MS Sans Serif 1");  // a list needs no tag for its font
}

TEST_CASE("The character set follows the user's locale as it was when it was first needed") {
  for (const auto& [locale, charset] : {std::pair{1042, 129}, std::pair{1028, 136}, std::pair{1041, 128},
                                        std::pair{2052, 134}, std::pair{1033, 1}, std::pair{3076, 1}}) {
    CAPTURE(locale);
    Fixture fixture;
    Dialog dialog(fixture.Desktop);
    for (const int current : {locale, 1041}) {
      fixture.Libraries.LocaleId = current;
      fixture.Localization.Localize(dialog);
      CHECK(dialog.Font.Charset == charset);
    }
    CHECK(fixture.Libraries.LocaleLookups == 1);
  }
}
