// Profile files through the platform's own profile calls.
#pragma once

#include "settings/ProfileStore.h"

#include <string>
#include <string_view>

namespace formwizard::adapters::native {

// Files are in the ANSI code page of this machine; a size counts its bytes. A file named without its folder is one in
// the current folder. Writing creates the folder of a file.
class NativeProfile : public settings::ProfileStore {
 public:
  std::string GetProfileString(std::string_view section, std::string_view key, std::string_view defaultText,
                               std::size_t size, const std::string& file) const override;
  bool WriteProfileString(std::string_view section, std::string_view key, std::string_view value,
                          const std::string& file) override;
};

}  // namespace formwizard::adapters::native
