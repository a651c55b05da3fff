// The port to profile files: texts by section and key in an INI-format file.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace formwizard::settings {

// Reads and writes as the platform's own profile calls do: first match wins, section and key in any case, blanks
// around a stored value and one pair of quotes around it are not part of it, everything else in the file stays.
class ProfileStore {
 public:
  virtual ~ProfileStore() = default;

  // The stored text or, when the file or the key is missing, `defaultText` without its trailing blanks; cut to size - 1
  // bytes. Error 75 for a file that is there and cannot be read.
  virtual std::string GetProfileString(std::string_view section, std::string_view key, std::string_view defaultText,
                                       std::size_t size, const std::string& file) const = 0;
  // False when the file could not be read or written; it is then as it was before.
  virtual bool WriteProfileString(std::string_view section, std::string_view key, std::string_view value,
                                  const std::string& file) = 0;
};

}  // namespace formwizard::settings
