// The profile of one run: the file's values, with the run's own settings in front of them.
#pragma once

#include "apps/forms/FormDescription.h"
#include "settings/ProfileStore.h"

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace formwizard::apps::forms {

// Reads each key of the file once; support::InputError when the file cannot be read. What is written is read back, but
// kept until it is stored, since a run that stops shall change nothing.
class RunProfile : public settings::ProfileStore {
 public:
  RunProfile(settings::ProfileStore& store, const std::string& file) : store_(store), file_(file) {}

  // The settings that stand in front of the file's, each until it is written, all until the next call.
  void Override(const SettingTexts& settings);

  // Writes what was written into the file; false when that failed.
  bool Store();

  std::string GetProfileString(std::string_view section, std::string_view key, std::string_view defaultText,
                               std::size_t size, const std::string& file) const override;
  // Never fails.
  bool WriteProfileString(std::string_view section, std::string_view key, std::string_view value,
                          const std::string& file) override;

 private:
  struct Entry {
    std::string Section, Key, Value;
  };

  settings::ProfileStore& store_;
  const std::string& file_;
  SettingTexts given_;
  bool isAsGiven_ = false;                                        // overrides_ are those that were given_
  SettingTexts overrides_;                                        // keys in lower case
  mutable std::map<std::string, std::string, std::less<>> read_;  // keys in lower case
  std::map<std::string, Entry, std::less<>> written_;             // keys in lower case
};

// A profile that the wizard would stumble over is an input like any other: support::InputError, with the place in the
// file, for a value that the settings dialog does not allow.
void CheckProfile(const settings::ProfileStore& profile, const std::string& file);

// What is odd about a settings file: that there is none though the user has named it, and keys that nobody reads.
std::vector<std::string> WarningsOn(const std::string& file, bool isNamed);

}  // namespace formwizard::apps::forms
