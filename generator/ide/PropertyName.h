// The name of a property, as those who call the environment give it.
#pragma once

#include <algorithm>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <type_traits>

namespace formwizard::generator::ide {

// A name and the key that it is found by, which the compiler works out of a name that stands in the source. Names that
// differ in the case of their letters only are one name.
class PropertyName {
 public:
  template <std::size_t Size>
  consteval PropertyName(const char (&name)[Size]) : PropertyName(std::string_view(name, Size - 1)) {}
  // The text is not copied.
  template <std::convertible_to<std::string_view> Name>
  constexpr PropertyName(const Name& name) : text_(name) {
    for (const char c : text_) key_ = (key_ ^ static_cast<unsigned char>(Lower(c))) * 0x01000193;  // FNV-1a
  }

  constexpr std::string_view Text() const { return text_; }
  constexpr std::uint32_t Key() const { return key_; }

  friend constexpr bool operator==(const PropertyName& a, const PropertyName& b) {
    if (a.key_ != b.key_ || a.text_.size() != b.text_.size()) return false;
    // Mostly they are the very same literal, which is known at run time only.
    if (!std::is_constant_evaluated() && a.text_.data() == b.text_.data()) return true;
    return std::ranges::equal(a.text_, b.text_, {}, Lower, Lower);
  }

 private:
  static constexpr char Lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

  std::string_view text_;
  std::uint32_t key_ = 0x811C9DC5;
};

}  // namespace formwizard::generator::ide
