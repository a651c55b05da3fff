// The profile of a user who has no folder for one.
#pragma once

#include "runtime/Conversions.h"
#include "settings/ProfileStore.h"

#include <map>
#include <string>
#include <string_view>
#include <utility>

namespace formwizard::apps::common {

// Remembers until the program ends, whatever the file is called.
class MemoryProfile : public settings::ProfileStore {
 public:
  std::string GetProfileString(std::string_view section, std::string_view key, std::string_view defaultText,
                               std::size_t size, const std::string&) const override {
    const auto found = texts_.find({runtime::LowerCase(section), runtime::LowerCase(key)});
    return found == texts_.end() ? std::string(defaultText) : found->second.substr(0, size - 1);
  }
  bool WriteProfileString(std::string_view section, std::string_view key, std::string_view value,
                          const std::string&) override {
    texts_[{runtime::LowerCase(section), runtime::LowerCase(key)}] = value;
    return true;
  }

 private:
  std::map<std::pair<std::string, std::string>, std::string> texts_;
};

}  // namespace formwizard::apps::common
