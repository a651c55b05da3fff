#include "settings/Settings.h"

#include "runtime/Conversions.h"
#include "settings/Profile.h"

#include <algorithm>
#include <array>

namespace formwizard::settings {
namespace {

// The settings dialog shows some of them (frmSettings), each document and completion names all of them.
constexpr std::array Keys{
    SettingKey{"Menu", &Settings::Menu},
    SettingKey{"Button", &Settings::Button},
    SettingKey{"Toolbar", &Settings::Toolbar},
    SettingKey{"Statusbar", &Settings::Statusbar},
    SettingKey{"FormSizable", &Settings::FormSizable},
    SettingKey{"Save", &Settings::Save},
    SettingKey{"Search", &Settings::Search},
    SettingKey{"New", &Settings::New},
    SettingKey{"Bold", &Settings::Bold},
    SettingKey{"SearchNew", &Settings::SearchNew},
    SettingKey{"SearchClear", &Settings::SearchClear},
    SettingKey{"SearchPredicates", &Settings::SearchPredicates},
    SettingKey{"SearchSort", &Settings::SearchSort},
    SettingKey{"LabelAlignLeft", &Settings::LabelAlignLeft},
    SettingKey{"Columns", &Settings::Columns, MostColumns, MostColumns},
    SettingKey{.Key = "CollectionRows", .Member = &Settings::CollectionRows, .LargestInDialog = Int16(10)},
    SettingKey{"ImageRows", &Settings::ImageRows},
    SettingKey{"MultilineRows", &Settings::MultilineRows},
};

void Convert(std::string_view text, bool& setting) { setting = BooleanOf(text); }
void Convert(std::string_view text, Int16& setting) { setting = runtime::ToInt16(text); }

}  // namespace

std::span<const SettingKey> SettingKeys() { return Keys; }

const SettingKey& KeyOf(SettingMember member) { return *std::ranges::find(Keys, member, &SettingKey::Member); }

const SettingKey* KeyNamed(std::string_view name) {
  const auto found =
      std::ranges::find_if(Keys, [&](const SettingKey& key) { return runtime::EqualIgnoringCase(key.Key, name); });
  return found == Keys.end() ? nullptr : &*found;
}

std::string DefaultOf(const SettingKey& key) {
  const Settings initial;
  if (const auto* choice = std::get_if<bool Settings::*>(&key.Member)) return initial.**choice ? "1" : "0";
  return Text(initial.*std::get<Int16 Settings::*>(key.Member));
}

bool IsAllowed(const SettingKey& key, std::string_view text) {
  try {
    Settings given;
    std::visit([&](auto member) { Convert(text, given.*member); }, key.Member);
    const auto* number = std::get_if<Int16 Settings::*>(&key.Member);
    return !number || (given.**number >= Int16(1) && given.**number <= key.Largest);
  } catch (const runtime::RuntimeError&) {
    return false;
  }
}

std::string AllowedFor(const SettingKey& key) {
  const bool isChoice = std::holds_alternative<bool Settings::*>(key.Member);
  return isChoice ? "1, 0, True or False" : "a whole number from 1 to " + Text(key.Largest);
}

bool BooleanOf(std::string_view text) {
  const bool isTrue = text == "1" || runtime::EqualIgnoringCase(text, "True");
  if (!isTrue && text != "0" && !runtime::EqualIgnoringCase(text, "False")) runtime::Raise(runtime::TypeMismatch);
  return isTrue;
}

void LoadSettings(Settings& settings, const ProfileStore& store, const std::string& file) {
  static_cast<LayoutConstants&>(settings) = {};
  for (const SettingKey& key : Keys) {
    std::string defaultText = DefaultOf(key);
    std::size_t size = 0;
    const std::string text = ReadProfile(store, ProfileSection, key.Key, defaultText, file, size);
    std::visit([&](auto member) { Convert(text, settings.*member); }, key.Member);
  }
}

}  // namespace formwizard::settings
