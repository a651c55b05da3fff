// The string table in the resources of a Windows library, 32- or 64-bit.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

namespace formwizard::adapters::satellite {

using StringTable = std::unordered_map<int, std::string>;  // by id, UTF-8

// Nothing for bytes that are no such library. Damaged or hostile bytes are never read past their end; what is damaged
// is left out.
std::optional<StringTable> ReadStringTable(std::string_view library);

}  // namespace formwizard::adapters::satellite
