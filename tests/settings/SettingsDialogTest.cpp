#include "settings/frmSettings.h"

#include "tests/support/ErrorNumber.h"
#include "tests/support/FakeDesktop.h"
#include "tests/support/FakeLibraries.h"
#include "tests/support/FakeProfile.h"

#include <doctest/doctest.h>

using namespace formwizard;
using namespace formwizard::tests;
using runtime::Int16;

namespace {

class WrittenProfile : public FakeProfile {
 public:
  bool WriteProfileString(std::string_view section, std::string_view key, std::string_view value,
                          const std::string& file) override {
    const bool done = FakeProfile::WriteProfileString(section, key, value, file);
    if (done)
      Written +=
          std::string(section == "OstrelFormWizard" ? "" : "?") + std::string(key) + "=" + std::string(value) + "|";
    return done;
  }
  std::string Written;  // in order
};

struct SettingsFixture {
  FakeDesktop Desktop;
  WrittenProfile Profile;
  FakeLibraries Libraries;
  support::Strings Strings{Libraries, ""};
  support::Localization Localization{Strings, Libraries};
  settings::frmSettings Dialog{Desktop, Profile, "outility.ini", Localization};

  // Numbers, alignment, then the check boxes from top to bottom.
  std::string Shown() const {
    std::string all;
    for (const ui::TextBox* box :
         {&Dialog.txtNumColumns, &Dialog.txtCollectionRows, &Dialog.txtImageRows, &Dialog.txtMutilineRows}) {
      all += box->Text() + " ";
    }
    all += std::string(Dialog.optLabelAlignmentLeft.Value() ? "L" : "") +
           (Dialog.optLabelAlignmentRight.Value() ? "R" : "");
    for (const ui::CheckBox* box :
         {&Dialog.chkMenu, &Dialog.chkButton, &Dialog.chkToolbar, &Dialog.chkStatusbar, &Dialog.chkFormSizable}) {
      all += " " + std::to_string(box->Value());
    }
    return all;
  }
  std::string Spinners() const {
    return Text(Dialog.spnNumColumns.Value.Get()) + " " + Text(Dialog.spnCollectionRows.Value.Get()) + " " +
           Text(Dialog.spnImageRows.Value.Get()) + " " + Text(Dialog.spnMultilineRows.Value.Get());
  }
};

}  // namespace

TEST_CASE("The settings dialog shows the stored values, the defaults where nothing is stored") {
  SettingsFixture fixture;
  fixture.Dialog.Load();
  CHECK(fixture.Shown() == "1 3 5 5 R 1 1 1 1 0");
  CHECK(fixture.Spinners() == "1 3 5 5");
  CHECK(fixture.Dialog.Caption == "Ostrel Form Wizard Settings");
  CHECK(fixture.Dialog.chkStatusbar.Caption == "Form contains a &staus bar");

  fixture.Profile.Values = {{"Columns", "4"}, {"CollectionRows", "99"}, {"LabelAlignLeft", "True"}, {"Menu", "0"},
                            {"Toolbar", "2"}, {"FormSizable", "1"},     {"MultilineRows", "7"}};
  fixture.Dialog.Load();                             // opened again
  CHECK(fixture.Shown() == "4 99 5 7 L 0 1 2 1 1");  // a number that is out of range too
  CHECK(fixture.Spinners() == "4 99 5 7");
  CHECK(fixture.Desktop.Messages.empty());
  CHECK(fixture.Profile.Written.empty());
}

TEST_CASE("A number outside the bounds is refused and falls back to the loaded one") {
  struct Case {
    ui::TextBox settings::frmSettings::*Box;
    ui::UpDown settings::frmSettings::*Spinner;
    std::string Largest, Above;
  };
  for (const Case& c :
       {Case{&settings::frmSettings::txtNumColumns, &settings::frmSettings::spnNumColumns, "4", "5"},
        Case{&settings::frmSettings::txtCollectionRows, &settings::frmSettings::spnCollectionRows, "10", "11"},
        Case{&settings::frmSettings::txtImageRows, &settings::frmSettings::spnImageRows, "20", "21"},
        Case{&settings::frmSettings::txtMutilineRows, &settings::frmSettings::spnMultilineRows, "20", "21"}}) {
    SettingsFixture fixture;
    fixture.Dialog.Load();
    ui::TextBox& box = fixture.Dialog.*c.Box;
    const std::string loaded = box.Text();
    for (const std::string& refused :
         {c.Above, std::string("0"), std::string(), std::string("many"), std::string("-1")}) {
      CAPTURE(refused);
      fixture.Dialog.SetFocus(fixture.Dialog.cmdOK);
      box.Type(c.Largest);  // a valid change in between does not count
      CHECK(fixture.Desktop.Messages.empty());
      CHECK((fixture.Dialog.*c.Spinner).Value == (fixture.Dialog.*c.Spinner).Max);
      box.Type(refused);
      REQUIRE(fixture.Desktop.Messages.size() == 1);
      CHECK(fixture.Desktop.Messages[0].Text == "Please enter a number between 1 and " + c.Largest + ".");
      CHECK(fixture.Desktop.Messages[0].Style == 64);
      CHECK(fixture.Desktop.Messages[0].Title == "Ostrel Form Wizard Settings");
      CHECK(box.Text() == loaded);
      CHECK(Text((fixture.Dialog.*c.Spinner).Value.Get()) == loaded);
      CHECK(fixture.Dialog.ActiveControl() == &box);
      fixture.Desktop.Messages.clear();
    }
  }
}

TEST_CASE("Spinners follow what is typed and type what they choose") {
  SettingsFixture fixture;
  fixture.Dialog.Load();
  for (const auto& [text, value] :
       {std::pair{"2.5", 2}, std::pair{"3.5", 4}, std::pair{" 3 rows", 3}, std::pair{"1e1", 10}}) {
    fixture.Dialog.txtImageRows.Type(text);
    CHECK(fixture.Dialog.spnImageRows.Value == Int16(value));
    CHECK(fixture.Dialog.txtImageRows.Text() == text);
  }
  fixture.Dialog.spnImageRows.Spin(+1);
  CHECK(fixture.Dialog.txtImageRows.Text() == "11");
  for (int i = 0; i < 30; ++i) fixture.Dialog.spnNumColumns.Spin(+1);
  CHECK(fixture.Dialog.txtNumColumns.Text() == "4");
  CHECK(fixture.Desktop.Messages.empty());
}

TEST_CASE("OK writes ten keys in their order and closes, Cancel writes nothing") {
  SettingsFixture fixture;
  for (ui::CommandButton* button : {&fixture.Dialog.cmdCancel, &fixture.Dialog.cmdOK}) {
    CHECK(fixture.Profile.Written.empty());
    fixture.Dialog.Load();
    fixture.Dialog.txtNumColumns.Type(" 2  ");
    fixture.Dialog.txtMutilineRows.Type("6");
    fixture.Dialog.optLabelAlignmentLeft.Click();
    fixture.Dialog.chkMenu.SetValue(2);  // grey
    fixture.Dialog.chkFormSizable.Click();
    button->Click();
    CHECK(fixture.Dialog.IsUnloaded());
  }
  CHECK(fixture.Profile.Written ==
        "Columns=2|CollectionRows=3|ImageRows=5|FormSizable=1|LabelAlignLeft=True|Menu=2|Button=1|Toolbar=1|"
        "Statusbar=1|MultilineRows=6|");

  fixture.Profile.Written.clear();
  fixture.Profile.FailingWrites = 3;
  fixture.Desktop.Answers = {ui::MessageAnswer::Retry, ui::MessageAnswer::Abort, ui::MessageAnswer::Retry};
  fixture.Dialog.Load();
  fixture.Dialog.PressEscape();
  CHECK(fixture.Desktop.Messages.empty());
  fixture.Dialog.Load();
  fixture.Dialog.PressEnter();
  CHECK(fixture.Desktop.Texts() ==
        std::vector<std::string>{"Error saving Columns", "Error saving Columns", "Error saving CollectionRows"});
  CHECK(
      fixture.Profile.Written.starts_with("CollectionRows=3|ImageRows=5|"));  // the next keys are written all the same
  CHECK(fixture.Profile.Written.ends_with("|MultilineRows=6|"));
  CHECK(fixture.Dialog.IsUnloaded());
}

TEST_CASE("A stored value that does not convert is an error of the one who loads the dialog") {
  for (const auto& [key, value] : {std::pair{"Columns", "two"}, std::pair{"MultilineRows", " "},
                                   std::pair{"LabelAlignLeft", "left"}, std::pair{"Menu", "True"}}) {
    CAPTURE(key);
    SettingsFixture fixture;
    fixture.Profile.Values = {{key, value}};
    CHECK(ErrorNumberOf([&] { fixture.Dialog.Load(); }) == runtime::TypeMismatch);
    CHECK(fixture.Desktop.Messages.empty());
    fixture.Profile.Values.clear();
    fixture.Dialog.Load();
    CHECK(fixture.Shown() == "1 3 5 5 R 1 1 1 1 0");
  }
}
