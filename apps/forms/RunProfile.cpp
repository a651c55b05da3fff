#include "apps/forms/RunProfile.h"

#include "apps/common/Platform.h"
#include "runtime/Conversions.h"
#include "runtime/RuntimeError.h"
#include "settings/Profile.h"
#include "settings/Settings.h"
#include "support/Failures.h"
#include "support/Names.h"
#include "system/FileSystem.h"
#include "wizard/RememberedSystem.h"

#include <algorithm>
#include <functional>
#include <utility>

namespace formwizard::apps::forms {

void RunProfile::Override(const SettingTexts& settings) {
  if (isAsGiven_ && settings == given_) return;  // as those of the form before mostly are
  given_ = settings;
  isAsGiven_ = true;
  overrides_.clear();
  for (const auto& [key, value] : settings) overrides_[runtime::LowerCase(key)] = value;
}

std::string RunProfile::GetProfileString(std::string_view section, std::string_view key, std::string_view defaultText,
                                         std::size_t size, const std::string& file) const {
  const std::string name = runtime::LowerCase(key);
  const auto own = overrides_.find(name);
  if (own != overrides_.end()) return own->second.substr(0, size - 1);
  const auto known = read_.find(name);
  if (known != read_.end()) return known->second;
  try {
    return read_[name] = store_.GetProfileString(section, key, defaultText, size, file);
  } catch (const runtime::RuntimeError& error) {
    throw support::InputError(error.Description() + "; mend that, or name other settings with --profile");
  }
}

bool RunProfile::WriteProfileString(std::string_view section, std::string_view key, std::string_view value,
                                    const std::string&) {
  const std::string name = runtime::LowerCase(key);
  if (overrides_.erase(name) != 0) isAsGiven_ = false;
  std::string& known = read_[name];
  if (known == value) return true;
  known = value;
  written_[name] = {std::string(section), std::string(key), known};
  return true;
}

bool RunProfile::Store() {
  return std::ranges::all_of(std::exchange(written_, {}), [&](const auto& each) {
    return store_.WriteProfileString(each.second.Section, each.second.Key, each.second.Value, file_);
  });
}

namespace {

using adapters::profile::ProfileKey;

// "outility.ini:3:9: [OstrelFormWizard]".
std::string PlaceIn(const std::string& file, std::size_t line, std::size_t column) {
  std::string place = file;
  if (line != 0) place += ":" + std::to_string(line) + ":" + std::to_string(column);
  return place.append(": [").append(settings::ProfileSection).append("]");
}

}  // namespace

void CheckProfile(const settings::ProfileStore& profile, const std::string& file) {
  for (const settings::SettingKey& key : settings::SettingKeys()) {
    std::string standard = settings::DefaultOf(key);
    std::size_t size = 0;
    const std::string value = settings::ReadProfile(profile, settings::ProfileSection, key.Key, standard, file, size);
    if (settings::IsAllowed(key, value)) continue;
    const std::vector<ProfileKey> keys = common::ProfileKeys(file, settings::ProfileSection);
    const auto found = std::ranges::find_if(
        keys, [&](const ProfileKey& each) { return runtime::EqualIgnoringCase(each.Name, key.Key); });
    const bool isThere = found != keys.end();
    CheckSetting(PlaceIn(file, isThere ? found->Line : 0, isThere ? found->ValueColumn : 0), std::string(key.Key),
                 value);
  }
}

std::vector<std::string> WarningsOn(const std::string& file, bool isNamed) {
  if (file.empty()) return {};
  if (!system::RealFileSystem().StampOf(file)) {
    if (!isNamed) return {};
    return {file + ": there is no such settings file, so that every setting has its default; check the path"};
  }
  std::vector<std::string> warnings;
  support::Names names(settings::SettingKeys(), std::mem_fn(&settings::SettingKey::Key));
  for (const ProfileKey& key : common::ProfileKeys(file, settings::ProfileSection)) {
    if (settings::KeyNamed(key.Name) || runtime::EqualIgnoringCase(key.Name, wizard::RememberedSystemKey)) continue;
    std::string& warning = warnings.emplace_back(PlaceIn(file, key.Line, key.Column));
    warning.append(": nobody reads the key \"").append(key.Name).append("\"; ").append(names.Answer(key.Name));
  }
  return warnings;
}

}  // namespace formwizard::apps::forms
