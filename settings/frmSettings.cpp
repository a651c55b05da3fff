#include "settings/frmSettings.h"

#include "runtime/Conversions.h"
#include "settings/Profile.h"

#include <utility>

namespace formwizard::settings {

frmSettings::frmSettings(ui::Desktop& desktop, ProfileStore& profiles, std::string profileFile,
                         support::Localization& localization)
    : ui::Form(desktop),
      desktop_(desktop),
      profiles_(profiles),
      profileFile_(std::move(profileFile)),
      localization_(localization),
      bindings_{Binding{KeyOf(&Settings::Columns), NumberBox{txtNumColumns, spnNumColumns, {}}},
                Binding{KeyOf(&Settings::CollectionRows), NumberBox{txtCollectionRows, spnCollectionRows, {}}},
                Binding{KeyOf(&Settings::ImageRows), NumberBox{txtImageRows, spnImageRows, {}}},
                Binding{KeyOf(&Settings::FormSizable), &chkFormSizable},
                Binding{KeyOf(&Settings::LabelAlignLeft), OptionPair{optLabelAlignmentLeft, optLabelAlignmentRight}},
                Binding{KeyOf(&Settings::Menu), &chkMenu},
                Binding{KeyOf(&Settings::Button), &chkButton},
                Binding{KeyOf(&Settings::Toolbar), &chkToolbar},
                Binding{KeyOf(&Settings::Statusbar), &chkStatusbar},
                Binding{KeyOf(&Settings::MultilineRows), NumberBox{txtMutilineRows, spnMultilineRows, {}}}} {
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
  ForEachNumber([](const SettingKey& key, NumberBox& number) {
    number.Spinner.Min = Int16(1);
    number.Spinner.Max = key.LargestInDialog;
    number.Spinner.Buddy = &number.Box;
  });
}

void frmSettings::ConnectEvents() {
  ForEachNumber([this](const SettingKey&, NumberBox& number) {
    number.Box.Change = Guarded([this, &number] { NumberBox_Change(number); });
  });
  cmdOK.OnClick = Guarded([this] { cmdOK_Click(); });
  cmdCancel.OnClick = Guarded([this] { Unload(); });
}

void frmSettings::ForEachNumber(const std::function<void(const SettingKey& key, NumberBox& number)>& action) {
  for (Binding& binding : bindings_) {
    if (auto* number = std::get_if<NumberBox>(&binding.Editor)) action(binding.Key, *number);
  }
}

std::string frmSettings::Read(const SettingKey& key) const {
  std::string standard = DefaultOf(key);
  std::size_t size = 0;
  return ReadProfile(profiles_, ProfileSection, key.Key, standard, profileFile_, size);
}

// The numbers come first, and count as accepted when everything is shown.
void frmSettings::Form_Load() {
  localization_.Localize(*this);
  loading_ = true;  // a stored number is shown as it is, whether it is in range or not
  ForEachNumber([this](const SettingKey& key, NumberBox& number) { number.Box.SetText(Read(key)); });
  loading_ = false;
  for (const Binding& binding : bindings_) {
    if (const auto* pair = std::get_if<OptionPair>(&binding.Editor)) {
      pair->Yes.SetValue(BooleanOf(Read(binding.Key)));
      pair->No.SetValue(!pair->Yes.Value());
    } else if (const auto* box = std::get_if<ui::CheckBox*>(&binding.Editor)) {
      (*box)->SetValue(runtime::ToInt16(Read(binding.Key)).Value());
    }
  }
  ForEachNumber([](const SettingKey&, NumberBox& number) {
    number.LastAccepted = runtime::ToInt16(number.Box.Text());
    number.Spinner.Value = number.LastAccepted;
  });
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
  for (const Binding& binding : bindings_) {
    std::string text = std::visit([](const auto& editor) { return TextOf(editor); }, binding.Editor);
    WriteProfile(profiles_, desktop_, ProfileSection, binding.Key.Key, text, profileFile_);
  }
  Unload();
}

}  // namespace formwizard::settings
