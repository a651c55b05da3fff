// Reads JSON as it is usually written, several times faster than the library's parser.
#pragma once

#include "adapters/dictionary/JsonInput.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace formwizard::apps::forms {

// Tells a handler what the library's parser would tell it. Whatever is not plain (an escape, a byte above ASCII, a
// number with a fraction or of many digits, what is no JSON at all) is left to that parser, from the beginning.
class PlainJson {
 public:
  // `text` must outlive this object.
  explicit PlainJson(std::string_view text) : at_(text.data()), end_(at_ + text.size()), line_(at_) {}

  // False for what is not plain, and when the handler answers false.
  template <typename Handler>
  bool Tell(Handler& handler) {
    return Value(handler) && (SkipBlanks(), at_ == end_);
  }

  // Of the value that is told, as JsonInput has them.
  adapters::dictionary::Place BeginOfValue() const {
    return {lines_ + 1, static_cast<std::size_t>(value_ - line_) + 1};
  }
  adapters::dictionary::Place Here() const { return BeginOfValue(); }
  void EndValue() const {}

 private:
  static bool IsPlain(char c) { return c >= ' ' && c < '\x7F' && c != '"' && c != '\\'; }

  void SkipBlanks() {
    for (; at_ != end_ && (*at_ == ' ' || *at_ == '\n' || *at_ == '\r' || *at_ == '\t'); ++at_) {
      if (*at_ != '\n') continue;
      ++lines_;
      line_ = at_ + 1;
    }
  }
  bool Skip(char c) {
    SkipBlanks();
    if (at_ == end_ || *at_ != c) return false;
    ++at_;
    return true;
  }
  bool Skip(std::string_view word) {
    if (!std::string_view(at_, end_).starts_with(word)) return false;
    at_ += word.size();
    return true;
  }

  // With its quotes.
  bool ReadText() {
    if (at_ == end_ || *at_ != '"') return false;
    const char* const first = ++at_;
    while (at_ != end_ && IsPlain(*at_)) ++at_;
    if (at_ == end_ || *at_ != '"') return false;
    text_.assign(first, at_++);
    return true;
  }

  template <typename Handler>
  bool Value(Handler& handler) {
    SkipBlanks();
    if (at_ == end_) return false;
    value_ = at_;
    switch (*at_) {
      case '{':
        return Members(handler);
      case '[':
        return Elements(handler);
      case '"':
        return ReadText() && handler.string(text_);
      case 't':
        return Skip("true") && handler.boolean(true);
      case 'f':
        return Skip("false") && handler.boolean(false);
      default:
        return Number(handler);
    }
  }

  template <typename Handler>
  bool Number(Handler& handler) {
    constexpr std::ptrdiff_t most = 9;  // digits
    const char* const first = at_;
    std::uint64_t number = 0;
    for (; at_ != end_ && *at_ >= '0' && *at_ <= '9'; ++at_)
      number = 10 * number + static_cast<unsigned char>(*at_ - '0');
    const bool isPlain = at_ != first && at_ - first <= most && (*first != '0' || at_ - first == 1);
    const bool goesOn = at_ != end_ && (*at_ == '.' || *at_ == 'e' || *at_ == 'E');
    return isPlain && !goesOn && handler.number_unsigned(number);
  }

  template <typename Handler>
  bool Members(Handler& handler) {
    ++at_;
    if (!handler.start_object(static_cast<std::size_t>(-1))) return false;
    if (Skip('}')) return handler.end_object();
    do {
      SkipBlanks();
      if (!ReadText() || !handler.key(text_) || !Skip(':') || !Value(handler)) return false;
    } while (Skip(','));
    return Skip('}') && handler.end_object();
  }

  template <typename Handler>
  bool Elements(Handler& handler) {
    ++at_;
    if (!handler.start_array(static_cast<std::size_t>(-1))) return false;
    if (Skip(']')) return handler.end_array();
    do {
      if (!Value(handler)) return false;
    } while (Skip(','));
    return Skip(']') && handler.end_array();
  }

  const char *at_, *end_;
  const char *line_, *value_ = nullptr;  // where the line and the value begin
  std::size_t lines_ = 0;
  std::string text_;
};

}  // namespace formwizard::apps::forms
