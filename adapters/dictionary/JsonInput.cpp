#include "adapters/dictionary/JsonInput.h"

#include "support/Failures.h"

#include <algorithm>

namespace formwizard::adapters::dictionary {
namespace {

constexpr std::size_t BlockSize = 65'536;
constexpr std::size_t LongestValue = 4 * BlockSize;  // as it is written: an escaped character takes six bytes

// Stands between two values.
bool IsSeparator(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n' || c == ',' || c == ':'; }

}  // namespace

JsonInput::JsonInput(std::istream& in, const std::string& source)
    : in_(&in), source_(source), at_(buffer_.data()), end_(at_), mark_(at_), counted_(at_) {}

JsonInput::JsonInput(std::string_view text, const std::string& source)
    : in_(nullptr), source_(source), at_(text.data()), end_(at_ + text.size()), mark_(at_), counted_(at_) {}

bool JsonInput::Refill() {
  isAtEnd_ |= !in_;
  if (isAtEnd_) return false;
  SkipSeparators();
  CountTo(mark_);
  const auto kept = static_cast<std::size_t>(end_ - mark_);
  if (kept > LongestValue) {
    throw support::InputError(source_ + ":" + std::to_string(place_.Line) + ":" + std::to_string(place_.Column) +
                              ": this value is too long");
  }
  buffer_.erase(0, static_cast<std::size_t>(mark_ - buffer_.data()));
  const std::size_t wanted = in_->eof() ? 0 : BlockSize;
  buffer_.resize(kept + wanted);
  in_->read(buffer_.data() + kept, static_cast<std::streamsize>(wanted));
  if (in_->bad()) throw support::InputError(source_ + ": the input cannot be read to its end");
  buffer_.resize(kept + static_cast<std::size_t>(in_->gcount()));
  mark_ = counted_ = buffer_.data();
  at_ = mark_ + kept;
  end_ = mark_ + buffer_.size();
  isAtEnd_ = at_ == end_;
  return !isAtEnd_;
}

void JsonInput::SkipSeparators() { mark_ = std::find_if_not(mark_, at_, IsSeparator); }

void JsonInput::CountTo(const char* to) {
  if (to <= counted_) return;
  const auto lines = static_cast<std::size_t>(std::count(counted_, to, '\n'));
  if (lines > 0) {
    place_ = {place_.Line + lines, 1};
    counted_ = std::find(std::reverse_iterator(to), std::reverse_iterator(counted_), '\n').base();
  }
  const auto beginsCharacter = [](char c) { return (static_cast<unsigned char>(c) & 0xC0u) != 0x80; };
  place_.Column += static_cast<std::size_t>(std::count_if(counted_, to, beginsCharacter));
  counted_ = to;
}

Place JsonInput::BeginOfValue() {
  SkipSeparators();
  CountTo(mark_);
  return place_;
}

std::string JsonInput::BeginningOfValue() {
  SkipSeparators();
  constexpr std::ptrdiff_t most = 64;
  const auto isWord = [](char c) {
    return (c >= '0' && c <= '9') || ((c | 0x20) >= 'a' && (c | 0x20) <= 'z') || c == '.';
  };
  return {mark_, std::find_if_not(at_, mark_ + std::min(end_ - mark_, std::max(at_ - mark_, most)), isWord)};
}

Place JsonInput::Here() {
  const bool isBehind = isAtEnd_ || at_ == counted_;
  CountTo(isBehind ? at_ : at_ - 1);
  return place_;
}

}  // namespace formwizard::adapters::dictionary
