// The text of a profile file: sections of "key=value" lines.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace formwizard::adapters::profile {

// Names compare without regard to case, and the first match counts. Lines that begin with ";" are comments.
class ProfileText {
 public:
  explicit ProfileText(std::string text) : text_(std::move(text)) {}

  // The text behind "=", without blanks around it and without one pair of quotes.
  std::optional<std::string> Get(std::string_view section, std::string_view key) const;
  // Replaces the value's text, or adds the key at the end of its section, or the section at the end of the file. All
  // other bytes stay.
  void Set(std::string_view section, std::string_view key, std::string_view value);

  // Where a line has its key and its value; lines and columns, in bytes, are counted from 1.
  struct Key {
    std::string_view Name;
    std::size_t Line, Column, ValueColumn;
  };
  // The keys that Get finds in the section, in its order.
  std::vector<Key> KeysIn(std::string_view section) const;

  const std::string& Text() const { return text_; }

 private:
  // Where a key's value stands, or where in the text a new line for it goes.
  struct Place {
    bool HasSection = false, HasKey = false;
    std::size_t ValueStart = 0, ValueEnd = 0;
    std::size_t NewKeyAt = 0;  // behind the section's last line that is not empty
  };

  Place Find(std::string_view section, std::string_view key) const;

  std::string text_;
};

}  // namespace formwizard::adapters::profile
