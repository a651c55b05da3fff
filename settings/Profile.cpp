#include "settings/Profile.h"

namespace formwizard::settings {
namespace {

constexpr std::string_view Blank = "~blank~";
constexpr std::size_t DefaultSize = 2048;

void Trim(std::string& value) {
  value.erase(0, value.find_first_not_of(' '));
  value.erase(value.find_last_not_of(' ') + 1);
}

}  // namespace

std::string ReadProfile(const ProfileStore& store, std::string_view section, std::string_view key,
                        std::string& defaultText, const std::string& file, std::size_t& size) {
  if (defaultText.empty()) defaultText = Blank;
  if (size == 0) size = DefaultSize;
  std::string result = store.GetProfileString(section, key, defaultText, size, file);
  if (result == Blank) result.clear();
  return result;
}

void WriteProfile(ProfileStore& store, ui::Desktop& desktop, std::string_view section, std::string_view key,
                  std::string& value, const std::string& file) {
  if (value.ends_with('\r') || value.ends_with('\n')) value.pop_back();
  if (value.empty()) {
    value = " ";
  } else {
    Trim(value);
  }
  while (!store.WriteProfileString(section, key, value, file)) {
    const ui::MessageAnswer answer = desktop.ShowMessage(
        "Error saving " + std::string(key), ui::AbortRetryIgnore + ui::Exclamation + ui::DefaultButton2, "");
    if (answer != ui::MessageAnswer::Retry) return;
  }
}

}  // namespace formwizard::settings
