// Keeps texts, and tables of them, as long as something lives: nothing of it is given back before.
#pragma once

#include <array>
#include <cstddef>
#include <memory_resource>
#include <string_view>

namespace formwizard::adapters::vb6files {

class Texts : public std::pmr::monotonic_buffer_resource {
 public:
  using monotonic_buffer_resource::monotonic_buffer_resource;

  // A copy that lives as long as this object.
  std::string_view Kept(std::string_view text) { return Kept({text, {}, {}}); }
  // Of the three, one behind the other.
  std::string_view Kept(const std::array<std::string_view, 3>& parts) {
    const std::size_t size = parts[0].size() + parts[1].size() + parts[2].size();
    char* const copy = std::pmr::polymorphic_allocator<char>(this).allocate(size);
    char* end = copy;
    for (const std::string_view part : parts) end += part.copy(end, part.size());
    return {copy, size};
  }
};

}  // namespace formwizard::adapters::vb6files
