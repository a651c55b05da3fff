#include "settings/Settings.h"

#include "runtime/Conversions.h"
#include "settings/Profile.h"

#include <array>

namespace formwizard::settings {
namespace {

constexpr std::array Keys{
    SettingKey{"Menu", "1", &Settings::Menu},
    SettingKey{"Button", "1", &Settings::Button},
    SettingKey{"Toolbar", "1", &Settings::Toolbar},
    SettingKey{"Statusbar", "1", &Settings::Statusbar},
    SettingKey{"FormSizable", "0", &Settings::FormSizable},
    SettingKey{"Save", "1", &Settings::Save},
    SettingKey{"Search", "1", &Settings::Search},
    SettingKey{"New", "1", &Settings::New},
    SettingKey{"Bold", "1", &Settings::Bold},
    SettingKey{"SearchNew", "0", &Settings::SearchNew},
    SettingKey{"SearchClear", "0", &Settings::SearchClear},
    SettingKey{"SearchPredicates", "1", &Settings::SearchPredicates},
    SettingKey{"SearchSort", "1", &Settings::SearchSort},
    SettingKey{"LabelAlignLeft", "0", &Settings::LabelAlignLeft},
    SettingKey{"Columns", "1", &Settings::Columns},
    SettingKey{"CollectionRows", "3", &Settings::CollectionRows},
    SettingKey{"ImageRows", "5", &Settings::ImageRows},
    SettingKey{"MultilineRows", "5", &Settings::MultilineRows},
};

void Convert(std::string_view text, bool& setting) { setting = BooleanOf(text); }
void Convert(std::string_view text, Int16& setting) { setting = runtime::ToInt16(text); }

}  // namespace

std::span<const SettingKey> SettingKeys() { return Keys; }

bool BooleanOf(std::string_view text) {
  const bool isTrue = text == "1" || runtime::EqualIgnoringCase(text, "True");
  if (!isTrue && text != "0" && !runtime::EqualIgnoringCase(text, "False")) runtime::Raise(runtime::TypeMismatch);
  return isTrue;
}

void LoadSettings(Settings& settings, const ProfileStore& store, const std::string& file) {
  settings.Spacing = Int16(120);
  settings.ControlHeight = Int16(325);
  settings.MinFrameHeight = Int16(2975);
  settings.ButtonAreaWidth = Int16(1335);
  for (const SettingKey& key : Keys) {
    std::string defaultText(key.Default);
    std::size_t size = 0;
    const std::string text = ReadProfile(store, ProfileSection, key.Key, defaultText, file, size);
    std::visit([&](auto member) { Convert(text, settings.*member); }, key.Member);
  }
}

}  // namespace formwizard::settings
