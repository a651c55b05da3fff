// Writing a file as a whole, by the means of the operating system.
#pragma once

#include <filesystem>
#include <string_view>

namespace formwizard::adapters::profile {

// Gives the file these bytes, flushed to the disk, or leaves it as it was and returns false. Its permissions stay, its
// folders are created, and a link to it stays a link.
bool WriteWholeFile(const std::filesystem::path& file, std::string_view text);

}  // namespace formwizard::adapters::profile
