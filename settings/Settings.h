// The generator's settings: the layout options of the profile file and the fixed layout constants beside them.
#pragma once

#include "runtime/Integer.h"
#include "settings/ProfileStore.h"

#include <span>
#include <string>
#include <string_view>
#include <variant>

namespace formwizard::settings {

using runtime::Int16;

inline constexpr Int16 MostColumns(4);  // a form's columns of fields

// In twips, set anew by every LoadSettings.
struct LayoutConstants {
  Int16 Spacing = Int16(120);
  Int16 ControlHeight = Int16(325);
  Int16 MinFrameHeight = Int16(2975);
  Int16 ButtonAreaWidth = Int16(1335);  // the layout sets it to 0 for a form without buttons
};

// The initial values are the defaults.
struct Settings : LayoutConstants {
  bool Menu = true;                 // form has menus
  bool Button = true;               // form has command buttons
  bool Toolbar = true;              // form has a toolbar
  bool Statusbar = true;            // form has a status bar
  bool FormSizable = false;         // form can be resized
  bool Save = true;                 // form has a Save button
  bool Search = true;               // form has a Search button
  bool New = true;                  // form has a New button
  bool Bold = true;                 // labels are bold
  bool SearchNew = false;           // search opens in a new window
  bool SearchClear = false;         // search page has a Clear button
  bool SearchPredicates = true;     // search page has match options
  bool SearchSort = true;           // search page has sort options
  bool LabelAlignLeft = false;      // labels are left-justified, else right-justified
  Int16 Columns = Int16(1);         // field columns on the form
  Int16 CollectionRows = Int16(3);  // rows of lists and arrays
  Int16 ImageRows = Int16(5);       // rows of images
  Int16 MultilineRows = Int16(5);   // rows of multi-line text boxes
};

using SettingMember = std::variant<bool Settings::*, Int16 Settings::*>;

// One key of the profile and the setting that it fills. Numbers are at least 1; loading does not look at the bounds.
struct SettingKey {
  std::string_view Key;
  SettingMember Member;
  Int16 Largest = Int16(0x7FFF);      // wherever a user gives a number
  Int16 LargestInDialog = Int16(20);  // what the settings dialog offers
};

// In the order in which LoadSettings reads them.
std::span<const SettingKey> SettingKeys();
const SettingKey& KeyOf(SettingMember member);
// Null for a name that is no key; names are looked up without regard to case.
const SettingKey* KeyNamed(std::string_view name);

// As the profile would hold it: "1" or "0" for a Boolean.
std::string DefaultOf(const SettingKey& key);
// Whether a user may give this text, and what may be given: "a whole number from 1 to 4".
bool IsAllowed(const SettingKey& key, std::string_view text);
std::string AllowedFor(const SettingKey& key);

// A Boolean as a profile may hold it: "1", "0", "True" or "False" in any case; error 13 for any other text.
bool BooleanOf(std::string_view text);

// Raises error 13 for a stored text that does not convert and 6 for a number outside 16 bits; the settings before it in
// the table are then loaded.
void LoadSettings(Settings& settings, const ProfileStore& store, const std::string& file);

}  // namespace formwizard::settings
