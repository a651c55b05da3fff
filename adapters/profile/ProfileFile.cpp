#include "adapters/profile/ProfileFile.h"

#include "adapters/profile/ProfileText.h"
#include "runtime/RuntimeError.h"
#include "support/Failures.h"
#include "system/WholeFile.h"

#include <optional>

namespace formwizard::adapters::profile {
namespace {

// Another program may change the file meanwhile; its change is then read and kept.
bool Set(system::FileSystem& files, std::string_view section, std::string_view key, std::string_view value,
         const std::string& file) {
  constexpr int attempts = 10;
  for (int attempt = 0; attempt < attempts; ++attempt) {
    const std::optional<std::string> old = files.Read(file, system::LargestSettings);
    ProfileText text(old.value_or(""));
    text.Set(section, key, value);
    if (text.Text() == old) return true;
    if (!old) system::MakeFolderOf(files, file);
    system::WholeFile changed(files, file);
    changed.Write(text.Text());
    if (changed.CommitOver(old)) return true;
  }
  return false;
}

}  // namespace

std::string ProfileFiles::GetProfileString(std::string_view section, std::string_view key, std::string_view defaultText,
                                           std::size_t size, const std::string& file) const {
  try {
    const ProfileText text(files_.Read(file, system::LargestSettings).value_or(""));
    std::string value = text.Get(section, key).value_or(std::string(defaultText));
    if (value == defaultText) value.erase(value.find_last_not_of(' ') + 1);
    return value.substr(0, size == 0 ? 0 : size - 1);
  } catch (const support::InputError& error) {
    runtime::Raise(runtime::PathFileAccessError, error.what());
  }
}

bool ProfileFiles::WriteProfileString(std::string_view section, std::string_view key, std::string_view value,
                                      const std::string& file) {
  try {
    return Set(files_, section, key, value, file);
  } catch (const support::InputError&) {
    return false;
  } catch (const support::SaveError&) {
    return false;
  }
}

}  // namespace formwizard::adapters::profile
