// The characters of a JSON document, as a whole or read in blocks, with the place of what was read last.
#pragma once

#include <cstddef>
#include <istream>
#include <iterator>
#include <string>
#include <string_view>

namespace formwizard::adapters::dictionary {

// Both count from 1; columns count characters.
struct Place {
  std::size_t Line = 1, Column = 1;
};

class JsonInput {
 public:
  // `source` names the input in messages. Both must outlive this object.
  JsonInput(std::istream& in, const std::string& source);
  // A text that is there as a whole.
  JsonInput(std::string_view text, const std::string& source);

  // support::InputError when reading fails, and for a value that is too long to be kept.
  bool HasMore() { return at_ != end_ || Refill(); }
  char Current() const { return *at_; }
  void Advance() { ++at_; }

  // What was read so far is done with: the next value begins behind it.
  void EndValue() { mark_ = at_; }
  // Where the value began that ends here; counted when it is asked for.
  Place BeginOfValue();
  // That value, or what there is of it, with the rest of its word; for messages.
  std::string BeginningOfValue();
  // Of the last character, or behind all of them when they are at an end.
  Place Here();

 private:
  bool Refill();
  void SkipSeparators();
  void CountTo(const char* to);

  std::istream* in_;  // null where nothing more is to be read
  const std::string& source_;
  std::string buffer_;
  const char *at_, *end_;
  const char* mark_;     // no value before it is wanted any more
  const char* counted_;  // its place is known
  Place place_;
  bool isAtEnd_ = false;
};

// Reads a JsonInput once from its beginning to its end; a default one is the end.
class JsonIterator {
 public:
  using iterator_category = std::input_iterator_tag;
  using value_type = char;
  using difference_type = std::ptrdiff_t;
  using pointer = const char*;
  using reference = char;

  JsonIterator() = default;
  explicit JsonIterator(JsonInput& input) : input_(&input) {}

  char operator*() const { return input_->Current(); }
  JsonIterator& operator++() {
    input_->Advance();
    return *this;
  }
  JsonIterator operator++(int) {
    input_->Advance();
    return *this;
  }
  // Iterators are compared with the end, and only so.
  friend bool operator==(const JsonIterator& a, const JsonIterator&) { return !a.input_->HasMore(); }

 private:
  JsonInput* input_ = nullptr;
};

}  // namespace formwizard::adapters::dictionary
