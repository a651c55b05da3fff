// The text of a form file while it is written: pieces are gathered in a block, blocks in a text that is large enough.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

namespace formwizard::adapters::vb6files {

class FormText {
 public:
  // A text of more than the expected bytes is moved while it grows.
  explicit FormText(std::size_t expected = 0) { text_.reserve(expected); }

  FormText& operator+=(std::string_view piece) {
    if (piece.size() > block_.size() - used_) return AppendBehindBlock(piece);
    std::copy_n(piece.data(), piece.size(), block_.data() + used_);
    used_ += piece.size();
    return *this;
  }
  FormText& operator+=(char c) {
    *Room<1>() = c;
    Take(1);
    return *this;
  }

  // The first bytes of a few. All are copied, because a size that the compiler knows takes no loop.
  template <std::size_t Size>
  void AppendFirst(const std::array<char, Size>& few, std::size_t count) {
    std::copy_n(few.data(), Size, Room<Size>());
    Take(count);
  }

  // So many bytes behind the text, to be written there; those that are taken then belong to it.
  template <std::size_t Size>
  char* Room() {
    static_assert(Size <= BlockSize);
    if (block_.size() - used_ < Size) GatherBlock();
    return block_.data() + used_;
  }
  void Take(std::size_t count) { used_ += count; }

  // The last that is done with it.
  std::string Text() && {
    GatherBlock();
    return std::move(text_);
  }

 private:
  static constexpr std::size_t BlockSize = 2048;

  void GatherBlock();
  FormText& AppendBehindBlock(std::string_view piece);

  std::string text_;
  std::array<char, BlockSize> block_;
  std::size_t used_ = 0;
};

}  // namespace formwizard::adapters::vb6files
