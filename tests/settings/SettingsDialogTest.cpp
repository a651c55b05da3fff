#include "settings/frmSettings.h"

#include "tests/support/FakeDesktop.h"
#include "tests/support/FakeLibraries.h"
#include "tests/support/FakeProfile.h"

using namespace formwizard;
using namespace formwizard::tests;
using namespace std::string_literals;
using settings::frmSettings;

namespace {

struct Number {
  ui::TextBox frmSettings::*Box;
  ui::UpDown frmSettings::*Spinner;
  int Largest;
};

const std::vector<Number> Numbers{
    {&frmSettings::txtNumColumns, &frmSettings::spnNumColumns, 4},
    {&frmSettings::txtCollectionRows, &frmSettings::spnCollectionRows, 10},
    {&frmSettings::txtImageRows, &frmSettings::spnImageRows, 20},
    {&frmSettings::txtMutilineRows, &frmSettings::spnMultilineRows, 20},
};

struct SettingsFixture {
  FakeDesktop Desktop;
  FakeProfile Profile;
  FakeLibraries Libraries;
  support::Strings Strings{Libraries, ""};
  support::Localization Localization{Strings, Libraries};
  frmSettings Dialog{Desktop, Profile, "outility.ini", Localization};

  std::string Spinner(const Number& number) const { return Text((Dialog.*number.Spinner).Value.Get()); }
  // Numbers, alignment, then the check boxes from top to bottom.
  std::string Shown() const {
    std::string all;
    for (const Number& number : Numbers) {
      const std::string& text = (Dialog.*number.Box).Text();
      all += text + (text == Spinner(number) ? " " : "(" + Spinner(number) + ") ");
    }
    all += Dialog.optLabelAlignmentLeft.Value() ? "L" : "";
    all += Dialog.optLabelAlignmentRight.Value() ? "R" : "";
    for (const ui::CheckBox* box :
         {&Dialog.chkMenu, &Dialog.chkButton, &Dialog.chkToolbar, &Dialog.chkStatusbar, &Dialog.chkFormSizable}) {
      all += " " + std::to_string(box->Value());
    }
    return all;
  }
};

}  // namespace

TEST_CASE_FIXTURE(SettingsFixture,
                  "The settings dialog shows the stored values, the defaults where nothing is stored") {
  Dialog.Load();
  CHECK(Dialog.Controls().size() == 24);
  CHECK(Shown() == "1 3 5 5 R 1 1 1 1 0");
  CHECK(Dialog.chkStatusbar.Caption == "Form contains a &staus bar");

  Profile.Values = {{"Columns", "4"}, {"CollectionRows", "99"}, {"LabelAlignLeft", "True"}, {"Menu", "0"},
                    {"Toolbar", "2"}, {"FormSizable", "1"},     {"MultilineRows", "7"}};
  Dialog.Load();                             // opened again
  CHECK(Shown() == "4 99 5 7 L 0 1 2 1 1");  // a number that is out of range too
  Dialog.spnCollectionRows.Spin(-1);
  CHECK(Shown() == "4 10 5 7 L 0 1 2 1 1");
  CHECK(Desktop.Texts().empty());
  CHECK(Profile.Written.empty());
}

TEST_CASE_FIXTURE(SettingsFixture, "A number outside the bounds is refused and falls back to the loaded one") {
  Dialog.Load();
  for (const Number& number : Numbers) {
    ui::TextBox& box = Dialog.*number.Box;
    const std::string loaded = box.Text(), largest = std::to_string(number.Largest);
    for (const std::string& refused : {std::to_string(number.Largest + 1), "0"s, "many"s, "-1"s}) {
      CAPTURE(box.Name);
      CAPTURE(refused);
      Dialog.SetFocus(Dialog.cmdOK);
      Desktop.Messages.clear();
      box.Type(largest);  // a valid change in between does not count
      CHECK(Desktop.Texts().empty());
      box.Type(refused);
      CHECK(Desktop.Shown() ==
            "Ostrel Form Wizard Settings[64]: Please enter a number between 1 and " + largest + ".\n");
      CHECK(box.Text() == loaded);
      CHECK(Spinner(number) == loaded);
      CHECK(Dialog.ActiveControl() == &box);
    }
  }
}

TEST_CASE_FIXTURE(SettingsFixture, "Spinners follow what is typed and type what they choose") {
  Dialog.Load();
  for (const auto& [text, shown] : {std::pair{"2.5", "2.5(2) "}, std::pair{"3.5", "3.5(4) "},
                                    std::pair{" 3 rows", " 3 rows(3) "}, std::pair{"1e1", "1e1(10) "}}) {
    Dialog.txtImageRows.Type(text);
    CHECK(Shown() == "1 3 " + std::string(shown) + "5 R 1 1 1 1 0");
  }
  for (const Number& number : Numbers) (Dialog.*number.Spinner).Spin(+1);
  CHECK(Shown() == "2 4 11 6 R 1 1 1 1 0");
  Dialog.spnNumColumns.Spin(+30);
  CHECK(Dialog.txtNumColumns.Text() == "4");
  CHECK(Desktop.Texts().empty());
}

TEST_CASE_FIXTURE(SettingsFixture, "OK writes ten keys in their order, says which cannot be written, and closes") {
  for (ui::CommandButton* button : {&Dialog.cmdCancel, &Dialog.cmdOK}) {
    CHECK(Profile.Written.empty());
    Dialog.Load();
    Dialog.txtNumColumns.Type(" 2  ");
    Dialog.txtMutilineRows.Type("6");
    Dialog.optLabelAlignmentLeft.Click();
    Dialog.chkMenu.SetValue(2);  // grey
    Dialog.chkFormSizable.Click();
    button->Click();
    CHECK(Dialog.IsUnloaded());
  }
  CHECK(Profile.Section == "OstrelFormWizard");
  const std::string others =
      "CollectionRows=3|ImageRows=5|FormSizable=1|LabelAlignLeft=True|Menu=2|Button=1|Toolbar=1|Statusbar=1|"
      "MultilineRows=6|";
  CHECK(std::exchange(Profile.Written, "") == "Columns=2|" + others);

  Profile.FailingWrites = 3;
  Desktop.Answers = {ui::MessageAnswer::Retry, ui::MessageAnswer::Abort, ui::MessageAnswer::Retry};
  Dialog.Load();
  Dialog.PressEscape();
  CHECK(Desktop.Texts().empty());
  Dialog.Load();
  Dialog.PressEnter();
  CHECK(Desktop.Texts() == "Error saving Columns\nError saving Columns\nError saving CollectionRows\n");
  CHECK(Profile.Written == others);
  CHECK(Dialog.IsUnloaded());
}

TEST_CASE_FIXTURE(SettingsFixture, "A stored value that does not convert is an error of the one who loads the dialog") {
  for (const auto& [key, value] : {std::pair{"Columns", "two"}, std::pair{"MultilineRows", " "},
                                   std::pair{"LabelAlignLeft", "-1"}, std::pair{"Menu", "True"}}) {
    CAPTURE(std::string(key));
    Profile.Values = {{key, value}};
    CHECK(ErrorNumberOf([&] { Dialog.Load(); }) == runtime::TypeMismatch);
    Profile.Values.clear();
    Dialog.Load();
    CHECK(Shown() == "1 3 5 5 R 1 1 1 1 0");
  }
}
