// Profile files as plain files, read and written by the rules of the platform's own profile calls.
#pragma once

#include "settings/ProfileStore.h"
#include "system/CodePage.h"
#include "system/FileSystem.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace formwizard::adapters::profile {

// A key of a section. Its line and the columns, in bytes, where it and its value begin are counted from 1.
struct ProfileKey {
  std::string Name;
  std::size_t Line, Column, ValueColumn;
};

// A write replaces the file as a whole or not at all; what another program changes in it meanwhile stays. Sizes count
// the file's bytes.
class ProfileFiles : public settings::ProfileStore {
 public:
  // Texts in files are in the code page, or in UTF-16 where a file's first bytes say so, as they do on Windows; what
  // the code page lacks is not written. `files` must outlive this object.
  explicit ProfileFiles(system::FileSystem& files = system::RealFileSystem(), int codePage = system::Utf8CodePage)
      : files_(files), codePage_(codePage) {}

  std::string GetProfileString(std::string_view section, std::string_view key, std::string_view defaultText,
                               std::size_t size, const std::string& file) const override;
  bool WriteProfileString(std::string_view section, std::string_view key, std::string_view value,
                          const std::string& file) override;
  // The keys of the section, in its order; none without the file or the section. support::InputError for a file that
  // cannot be read.
  std::vector<ProfileKey> KeysIn(std::string_view section, const std::string& file) const;

 private:
  system::FileSystem& files_;
  system::CodePage codePage_;
};

}  // namespace formwizard::adapters::profile
