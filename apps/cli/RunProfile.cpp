#include "apps/cli/RunProfile.h"

#include "runtime/Conversions.h"

namespace formwizard::apps::cli {

void RunProfile::Override(const SettingTexts& settings) {
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
  return read_[name] = file_.GetProfileString(section, key, defaultText, size, file);
}

bool RunProfile::WriteProfileString(std::string_view section, std::string_view key, std::string_view value,
                                    const std::string& file) {
  std::string& known = read_[runtime::LowerCase(key)];
  if (known == value) return true;
  if (!readOnly_ && !file_.WriteProfileString(section, key, value, file)) return false;
  known = value;
  return true;
}

}  // namespace formwizard::apps::cli
