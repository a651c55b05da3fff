// The systems that a server offers, out of the one text in which it gives them.
#pragma once

#include "support/Pieces.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

namespace formwizard::wizard::factory {

struct System {
  std::string Name, Connect;  // as shown; what the factory is connected with
};

// An empty entry ends the list, also between two others.
inline std::vector<System> SystemsIn(std::string_view list) {
  std::vector<System> systems;
  while (true) {
    const std::string_view entry = support::GetPiece(list, ";", 1);
    if (entry.empty()) return systems;
    systems.push_back({std::string(support::GetPiece(entry, ",", 1)), std::string(support::GetPiece(entry, ",", 2))});
    list.remove_prefix(std::min(entry.size() + 1, list.size()));
  }
}

}  // namespace formwizard::wizard::factory
