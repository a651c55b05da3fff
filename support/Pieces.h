// Texts that are lists of pieces with a delimiter between them.
#pragma once

#include <cstddef>
#include <string_view>

namespace formwizard::support {

// The n-th piece, counted from 1, compared byte by byte; empty past the last one. A view into `text`.
constexpr std::string_view GetPiece(std::string_view text, std::string_view delimiter, int n) {
  std::size_t start = 0;
  for (int piece = 1; piece < n; ++piece) {
    const std::size_t found = text.find(delimiter, start);
    if (found == std::string_view::npos) return {};
    start = found + delimiter.size();
  }
  return text.substr(start, text.find(delimiter, start) - start);
}

}  // namespace formwizard::support
