// Keeps texts, and tables of them, as long as something lives: nothing of it is given back before.
#pragma once

#include <concepts>
#include <cstddef>
#include <memory_resource>
#include <string_view>

namespace formwizard::adapters::vb6files {

class Texts : public std::pmr::monotonic_buffer_resource {
 public:
  using monotonic_buffer_resource::monotonic_buffer_resource;

  // A copy that lives as long as this object; of several parts, one behind the other.
  template <std::convertible_to<std::string_view>... Parts>
  std::string_view Kept(const Parts&... parts) {
    const std::size_t size = (std::string_view(parts).size() + ...);
    char* const copy = std::pmr::polymorphic_allocator<char>(this).allocate(size);
    char* end = copy;
    ((end += std::string_view(parts).copy(end, size)), ...);
    return {copy, size};
  }
};

}  // namespace formwizard::adapters::vb6files
