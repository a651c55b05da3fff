// The profile of one run: the file's values, with the run's own settings in front of them.
#pragma once

#include "apps/cli/FormDescription.h"
#include "settings/ProfileStore.h"

#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace formwizard::apps::cli {

// Reads each key of the file once. With `readOnly` nothing is written to the file; what was written is read back all
// the same.
class RunProfile : public settings::ProfileStore {
 public:
  RunProfile(settings::ProfileStore& file, bool readOnly) : file_(file), readOnly_(readOnly) {}

  // The settings that stand in front of the file's, until the next call.
  void Override(const SettingTexts& settings);

  std::string GetProfileString(std::string_view section, std::string_view key, std::string_view defaultText,
                               std::size_t size, const std::string& file) const override;
  bool WriteProfileString(std::string_view section, std::string_view key, std::string_view value,
                          const std::string& file) override;

 private:
  settings::ProfileStore& file_;
  bool readOnly_;
  SettingTexts overrides_;                                        // keys in lower case
  mutable std::map<std::string, std::string, std::less<>> read_;  // keys in lower case
};

}  // namespace formwizard::apps::cli
