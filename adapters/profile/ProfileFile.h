// Profile files as plain files, read and written by the rules of the platform's own profile calls.
#pragma once

#include "settings/ProfileStore.h"
#include "system/FileSystem.h"

#include <string>
#include <string_view>

namespace formwizard::adapters::profile {

// Texts are UTF-8, in memory and in the file. A write replaces the file as a whole or not at all; what another program
// changes in it meanwhile stays.
class ProfileFiles : public settings::ProfileStore {
 public:
  // `files` must outlive this object.
  explicit ProfileFiles(system::FileSystem& files = system::RealFileSystem()) : files_(files) {}

  std::string GetProfileString(std::string_view section, std::string_view key, std::string_view defaultText,
                               std::size_t size, const std::string& file) const override;
  bool WriteProfileString(std::string_view section, std::string_view key, std::string_view value,
                          const std::string& file) override;

 private:
  system::FileSystem& files_;
};

}  // namespace formwizard::adapters::profile
