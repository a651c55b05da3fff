#include "adapters/profile/ProfileFile.h"

#include "adapters/profile/ProfileText.h"
#include "adapters/profile/WholeFile.h"

#include <filesystem>
#include <fstream>
#include <sstream>

namespace formwizard::adapters::profile {
namespace {

namespace fs = std::filesystem;

fs::path Native(const std::string& utf8) { return fs::path(std::u8string(utf8.begin(), utf8.end())); }

std::string ReadAll(const fs::path& file) {
  std::ifstream in(file, std::ios::binary);
  std::ostringstream text;
  if (in) text << in.rdbuf();
  return text.str();
}

}  // namespace

std::string ProfileFiles::GetProfileString(std::string_view section, std::string_view key, std::string_view defaultText,
                                           std::size_t size, const std::string& file) const {
  std::string value = ProfileText(ReadAll(Native(file))).Get(section, key).value_or(std::string(defaultText));
  if (value == defaultText) value.erase(value.find_last_not_of(' ') + 1);
  return value.substr(0, size == 0 ? 0 : size - 1);
}

bool ProfileFiles::WriteProfileString(std::string_view section, std::string_view key, std::string_view value,
                                      const std::string& file) {
  const fs::path path = Native(file);
  const std::string old = ReadAll(path);
  ProfileText text(old);
  text.Set(section, key, value);
  return text.Text() == old || WriteWholeFile(path, text.Text());
}

}  // namespace formwizard::adapters::profile
