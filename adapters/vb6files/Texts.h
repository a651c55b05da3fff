// Keeps texts, and tables of them, as long as something lives: nothing of it is given back before.
#pragma once

#include <memory_resource>
#include <string_view>

namespace formwizard::adapters::vb6files {

class Texts : public std::pmr::monotonic_buffer_resource {
 public:
  using monotonic_buffer_resource::monotonic_buffer_resource;

  // A copy that lives as long as this object.
  std::string_view Kept(std::string_view text) {
    char* copy = std::pmr::polymorphic_allocator<char>(this).allocate(text.size());
    text.copy(copy, text.size());
    return {copy, text.size()};
  }
};

}  // namespace formwizard::adapters::vb6files
