// Names that a user types, found among those that there are.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace formwizard::support {

// A list of names, whose texts must outlive it. Looking one up takes no time; it is the first that is not in it letter
// by letter that costs a walk through all of them.
class Names {
 public:
  Names() = default;
  // What `nameOf` gives for each element of a range, as a view of a text that stays.
  Names(const auto& range, auto nameOf) {
    for (const auto& each : range) Add(nameOf(each));
  }
  // In the order in which messages list them.
  void Add(std::string_view name);

  // The position, counted from 0, of the name that is meant: the very one, also without the blanks around it, else the
  // only one that differs in the case of letters alone.
  std::optional<std::size_t> Find(std::string_view wanted) const;

  // For a message on a name that Find does not find: some of the names, the three likeliest first, each behind
  // `prefix`.
  std::string Listed(std::string_view wanted, const std::string& prefix = "") const;
  // "available: " and these, or "none is available".
  std::string Answer(std::string_view wanted, const std::string& prefix = "") const;

 private:
  std::vector<std::string_view> names_;
  std::unordered_map<std::string_view, std::size_t> exact_;
  mutable std::unordered_map<std::u32string, std::optional<std::size_t>> folded_;  // nothing for what several have
};

}  // namespace formwizard::support
