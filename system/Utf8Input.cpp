#include "system/Utf8Input.h"

#include "support/Failures.h"
#include "system/Text.h"

#include <algorithm>
#include <utility>

namespace formwizard::system {
namespace {

constexpr std::size_t LargestBlock = 65'536;

bool IsHighHalf(char16_t unit) { return unit >= 0xD800 && unit < 0xDC00; }

}  // namespace

Utf8Input::int_type Utf8Input::underflow() {
  ReadBlock();
  if (form_ == Form::Unknown) Recognize();
  if (form_ != Form::Utf8) Convert();
  std::string& text = form_ == Form::Utf8 ? block_ : utf8_;
  setg(text.data(), text.data(), text.data() + text.size());
  return text.empty() ? traits_type::eof() : traits_type::to_int_type(text.front());
}

// Behind what is kept of the block before.
void Utf8Input::ReadBlock() {
  if (form_ == Form::Utf8) block_.clear();
  const std::size_t kept = block_.size();
  const std::size_t wanted = in_.eof() ? 0 : std::exchange(blockSize_, std::min(4 * blockSize_, LargestBlock));
  block_.resize(kept + wanted);
  in_.read(block_.data() + kept, static_cast<std::streamsize>(wanted));
  block_.resize(kept + static_cast<std::size_t>(in_.gcount()));
  taken_ += static_cast<std::size_t>(in_.gcount());
  if (onRead_) onRead_(taken_);
  if (in_.bad()) throw support::InputError(name_ + ": the input cannot be read to its end");
}

void Utf8Input::Recognize() {
  const auto begins = [&](std::string_view mark) {
    if (!block_.starts_with(mark)) return false;
    block_.erase(0, mark.size());
    return true;
  };
  form_ = Form::Utf8;
  if (begins("\xEF\xBB\xBF")) return;
  if (begins("\xFF\xFE")) {
    form_ = Form::Utf16Little;
  } else if (begins("\xFE\xFF")) {
    form_ = Form::Utf16Big;
  } else if (block_.size() >= 2 && (block_[0] == '\0') != (block_[1] == '\0')) {
    form_ = block_[0] == '\0' ? Form::Utf16Big : Form::Utf16Little;
  }
}

void Utf8Input::Convert() {
  const std::size_t high = form_ == Form::Utf16Big ? 0 : 1;
  std::u16string units;
  units.reserve(block_.size() / 2);
  for (std::size_t at = 0; at + 1 < block_.size(); at += 2) {
    units += static_cast<char16_t>((static_cast<unsigned char>(block_[at + high]) << 8U) |
                                   static_cast<unsigned char>(block_[at + 1 - high]));
  }
  const bool isLast = in_.eof();
  if (!isLast && !units.empty() && IsHighHalf(units.back())) units.pop_back();
  if ((isLast && block_.size() % 2 != 0) || !IsWhole(units)) FailAsUtf16();
  block_.erase(0, units.size() * 2);
  utf8_ = Utf8(units);
}

void Utf8Input::FailAsUtf16() const {
  throw support::InputError(name_ + ": the text begins like UTF-16 and is none; save it anew, as UTF-8");
}

}  // namespace formwizard::system
