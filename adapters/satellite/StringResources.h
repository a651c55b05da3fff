// The string table in the resources of a Windows library, 32- or 64-bit.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

namespace formwizard::adapters::satellite {

using StringTable = std::unordered_map<int, std::string>;  // by id, UTF-8

// Nothing for bytes that are no such library, a part of one or a damaged one, and for a library without texts: a dialog
// without texts would be worse than one in English. Hostile bytes are never read past their end.
std::optional<StringTable> ReadStringTable(std::string_view library);

// The same of a file, and whether there is something; nothing for a file that is not there or cannot be read.
std::optional<StringTable> ReadSatellite(const std::string& path);
bool IsSatellite(const std::string& path);

}  // namespace formwizard::adapters::satellite
