#include "vbtext/Lines.h"

#include <algorithm>

namespace formwizard::vbtext {
namespace {

constexpr std::size_t UsualLength = 32;  // of a line, in bytes

}  // namespace

std::vector<Line> LinesOf(std::string_view text) {
  std::vector<Line> lines;
  lines.reserve(text.size() / UsualLength + 1);
  while (!text.empty()) {
    const std::size_t newline = text.find('\n');
    const std::size_t whole = newline == std::string_view::npos ? text.size() : newline + 1;
    std::size_t length = std::min(newline, text.size());
    if (length < whole && length > 0 && text[length - 1] == '\r') --length;
    lines.push_back({text.substr(0, length), text.substr(length, whole - length)});
    text.remove_prefix(whole);
  }
  return lines;
}

std::string_view TextOf(const std::vector<Line>& lines, LineRange range) {
  if (range.Count() == 0) return {};
  const char* const first = lines[range.First].Text.data();
  const std::string_view last = lines[range.Behind - 1].Whole();
  return {first, static_cast<std::size_t>(last.data() + last.size() - first)};
}

}  // namespace formwizard::vbtext
