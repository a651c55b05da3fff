// A profile file in memory.
#pragma once

#include "settings/ProfileStore.h"
#include "tests/support/Test.h"

namespace formwizard::tests {

class FakeProfile : public settings::ProfileStore {
 public:
  std::string GetProfileString(std::string_view, std::string_view key, std::string_view defaultText, std::size_t size,
                               const std::string&) const override {
    const auto found = Values.find(std::string(key));
    return (found == Values.end() ? std::string(defaultText) : found->second).substr(0, size - 1);
  }
  bool WriteProfileString(std::string_view section, std::string_view key, std::string_view value,
                          const std::string&) override {
    if (FailingWrites > 0) return --FailingWrites, false;
    Section = section;
    Written += std::string(key) + "=" + std::string(value) + "|";
    Values[std::string(key)] = value;
    return true;
  }

  std::map<std::string, std::string> Values;
  std::string Section, Written;  // the last section written to; all that was written, in order
  int FailingWrites = 0;
};

}  // namespace formwizard::tests
