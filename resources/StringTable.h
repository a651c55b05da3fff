// The program's own string table: every text of the dialogs and the generated forms, in English.
#pragma once

#include <optional>
#include <string_view>
#include <vector>

namespace formwizard::resources {

// The text of a string id, UTF-8; nothing for an id that the table lacks.
std::optional<std::string_view> StringTableText(int id);

// All ids of the table, in order. A satellite library holds the same.
std::vector<int> StringTableIds();

}  // namespace formwizard::resources
