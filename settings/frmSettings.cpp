#include "settings/frmSettings.h"

#include "runtime/Conversions.h"
#include "settings/Profile.h"
#include "settings/Settings.h"

#include <algorithm>
#include <span>
#include <utility>

namespace formwizard::settings {
namespace {

constexpr std::string_view AlignmentKey = "LabelAlignLeft";

// In the order in which the dialog writes its keys.
constexpr std::array<std::string_view, 10> SavedKeys{"Columns",    "CollectionRows", "ImageRows", "FormSizable",
                                                     AlignmentKey, "Menu",           "Button",    "Toolbar",
                                                     "Statusbar",  "MultilineRows"};

}  // namespace

frmSettings::frmSettings(ui::Desktop& desktop, ProfileStore& profiles, std::string profileFile,
                         support::Localization& localization)
    : ui::Form(desktop),
      desktop_(desktop),
      profiles_(profiles),
      profileFile_(std::move(profileFile)),
      localization_(localization),
      numbers_{NumberBox{"Columns", txtNumColumns, spnNumColumns, {}},
               NumberBox{"CollectionRows", txtCollectionRows, spnCollectionRows, {}},
               NumberBox{"ImageRows", txtImageRows, spnImageRows, {}},
               NumberBox{"MultilineRows", txtMutilineRows, spnMultilineRows, {}}},
      choices_{Choice{"FormSizable", chkFormSizable}, Choice{"Menu", chkMenu}, Choice{"Button", chkButton},
               Choice{"Toolbar", chkToolbar}, Choice{"Statusbar", chkStatusbar}} {
  Design();
  ConnectEvents();
}

// One line a control, in tab order: name, container, left, top, width, height, string ids.
void frmSettings::Design() {
  Tag = "500";
  Width = Int32(7200);
  Height = Int32(5040);
  Add(fraScreenLayout, {"fraScreenLayout", nullptr, 120, 60, 6840, 1755, "501"});
  Add(lblNumColumns, {"lblNumColumns", &fraScreenLayout, 240, 300, 5100, 195, "502"});
  Add(txtNumColumns, {"txtNumColumns", &fraScreenLayout, 5520, 240, 720, 300, ""});
  Add(spnNumColumns, {"spnNumColumns", &fraScreenLayout, 6240, 240, 240, 300, ""});
  Add(lblCollectionRows, {"lblCollectionRows", &fraScreenLayout, 240, 660, 5100, 195, "503"});
  Add(txtCollectionRows, {"txtCollectionRows", &fraScreenLayout, 5520, 600, 720, 300, ""});
  Add(spnCollectionRows, {"spnCollectionRows", &fraScreenLayout, 6240, 600, 240, 300, ""});
  Add(lblImageRows, {"lblImageRows", &fraScreenLayout, 240, 1020, 5100, 195, "504"});
  Add(txtImageRows, {"txtImageRows", &fraScreenLayout, 5520, 960, 720, 300, ""});
  Add(spnImageRows, {"spnImageRows", &fraScreenLayout, 6240, 960, 240, 300, ""});
  Add(lblMultilineRows, {"lblMultilineRows", &fraScreenLayout, 240, 1380, 5100, 195, "514"});
  Add(txtMutilineRows, {"txtMutilineRows", &fraScreenLayout, 5520, 1320, 720, 300, ""});
  Add(spnMultilineRows, {"spnMultilineRows", &fraScreenLayout, 6240, 1320, 240, 300, ""});
  Add(fraLabelAlignment, {"fraLabelAlignment", nullptr, 120, 1875, 3360, 2175, "505"});
  Add(optLabelAlignmentLeft, {"optLabelAlignmentLeft", &fraLabelAlignment, 240, 300, 3000, 255, "506"});
  Add(optLabelAlignmentRight, {"optLabelAlignmentRight", &fraLabelAlignment, 240, 615, 3000, 255, "507"});
  Add(fraFormLayout, {"fraFormLayout", nullptr, 3600, 1875, 3360, 2175, "508"});
  Add(chkMenu, {"chkMenu", &fraFormLayout, 240, 300, 3000, 255, "509"});
  Add(chkButton, {"chkButton", &fraFormLayout, 240, 615, 3000, 255, "510"});
  Add(chkToolbar, {"chkToolbar", &fraFormLayout, 240, 930, 3000, 255, "511"});
  Add(chkStatusbar, {"chkStatusbar", &fraFormLayout, 240, 1245, 3000, 255, "512"});
  Add(chkFormSizable, {"chkFormSizable", &fraFormLayout, 240, 1560, 3000, 255, "513"});
  Add(cmdOK, {"cmdOK", nullptr, 4320, 4170, 1260, 375, "550"});
  Add(cmdCancel, {"cmdCancel", nullptr, 5700, 4170, 1260, 375, "551"});

  cmdOK.Default = true;
  cmdCancel.Cancel = true;
  constexpr std::array<std::int16_t, 4> largest{4, 10, 20, 20};
  for (std::size_t i = 0; i < numbers_.size(); ++i) {
    numbers_[i].Spinner.Min = Int16(1);
    numbers_[i].Spinner.Max = Int16(largest[i]);
    numbers_[i].Spinner.Buddy = &numbers_[i].Box;
  }
}

void frmSettings::ConnectEvents() {
  for (NumberBox& number : numbers_) {
    number.Box.Change = Guarded([this, &number] { NumberBox_Change(number); });
  }
  cmdOK.OnClick = Guarded([this] { cmdOK_Click(); });
  cmdCancel.OnClick = Guarded([this] { Unload(); });
}

std::string frmSettings::Read(std::string_view key) const {
  std::string standard(std::ranges::find(SettingKeys(), key, &SettingKey::Key)->Default);
  std::size_t size = 0;
  return ReadProfile(profiles_, ProfileSection, key, standard, profileFile_, size);
}

void frmSettings::Write(std::string_view key, std::string value) {
  WriteProfile(profiles_, desktop_, ProfileSection, key, value, profileFile_);
}

void frmSettings::LoadChoice(const Choice& choice) const {
  choice.Box.SetValue(runtime::ToInt16(Read(choice.Key)).Value());
}

void frmSettings::Form_Load() {
  localization_.Localize(*this);
  loading_ = true;  // a stored number is shown as it is, whether it is in range or not
  for (NumberBox& number : numbers_) number.Box.SetText(Read(number.Key));
  loading_ = false;
  LoadChoice(choices_.front());
  const bool left = BooleanOf(Read(AlignmentKey));
  optLabelAlignmentLeft.SetValue(left);
  optLabelAlignmentRight.SetValue(!left);
  for (const Choice& choice : std::span(choices_).subspan(1)) LoadChoice(choice);
  for (NumberBox& number : numbers_) {
    number.LastAccepted = runtime::ToInt16(number.Box.Text());
    number.Spinner.Value = number.LastAccepted;
  }
}

// A valid entry does not become the last accepted one: a refused entry falls back to what was loaded.
void frmSettings::NumberBox_Change(NumberBox& number) {
  if (loading_) return;
  bool ok = false;
  ValidateRange(number.Box, number.Spinner, ok);
  if (!ok) {
    number.Box.SetText(runtime::Text(number.LastAccepted));
    SetFocus(number.Box);
    return;
  }
  number.Spinner.Value = runtime::RoundToInt16(runtime::LeadingNumber(number.Box.Text()));
}

void frmSettings::ValidateRange(const ui::TextBox& box, const ui::UpDown& spinner, bool& ok) {
  const Int16 min = spinner.Min;
  const Int16 max = spinner.Max;
  const double value = runtime::LeadingNumber(box.Text());
  ok = value >= min.Value() && value <= max.Value();
  if (ok) return;
  std::string message = localization_.Text(552);
  message = runtime::ReplaceAll(message, "%N1", runtime::Text(min));
  message = runtime::ReplaceAll(message, "%N2", runtime::Text(max));
  desktop_.ShowMessage(message, ui::Information + ui::OkOnly, Caption);
}

void frmSettings::cmdOK_Click() {
  for (const std::string_view key : SavedKeys) {
    const auto number = std::ranges::find(numbers_, key, &NumberBox::Key);
    const auto choice = std::ranges::find(choices_, key, &Choice::Key);
    if (number != numbers_.end()) {
      Write(key, number->Box.Text());
    } else if (choice != choices_.end()) {
      Write(key, std::to_string(choice->Box.Value()));
    } else {
      Write(key, runtime::Text(optLabelAlignmentLeft.Value()));
    }
  }
  Unload();
}

}  // namespace formwizard::settings
