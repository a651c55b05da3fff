// Profile reading and writing with the wizard's own rules on top of the platform's.
#pragma once

#include "settings/ProfileStore.h"
#include "support/Strings.h"
#include "ui/Desktop.h"

#include <string>
#include <string_view>

namespace formwizard::settings {

inline constexpr std::string_view ProfileName = "outility.ini";
inline constexpr std::string_view ProfileSection = support::ApplicationName;

// An empty default becomes "~blank~" and a size of 0 becomes 2048, both in the caller's variables; a result of
// "~blank~" is returned as the empty text. `size` counts bytes.
std::string ReadProfile(const ProfileStore& store, std::string_view section, std::string_view key,
                        std::string& defaultText, const std::string& file, std::size_t& size);

// Strips one line terminator (CR or LF) from the end of `value`, then its outer blanks, in the caller's variable; an
// empty value is written as one blank. A failed write is shown with Abort, Retry and Ignore, and repeated on Retry.
void WriteProfile(ProfileStore& store, ui::Desktop& desktop, std::string_view section, std::string_view key,
                  std::string& value, const std::string& file);

}  // namespace formwizard::settings
