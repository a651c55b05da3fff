#include "vbtext/Lines.h"

#include <algorithm>

namespace formwizard::vbtext {
namespace {

constexpr std::size_t UsualLength = 32;  // of a line, in bytes

// The first line, which is taken off the text.
Line TakeLine(std::string_view& text) {
  const std::size_t newline = text.find('\n');
  const std::size_t whole = newline == std::string_view::npos ? text.size() : newline + 1;
  std::size_t length = std::min(newline, text.size());
  if (length < whole && length > 0 && text[length - 1] == '\r') --length;
  const Line line{{text.data(), length}, {text.data() + length, whole - length}};
  text.remove_prefix(whole);
  return line;
}

}  // namespace

std::vector<Line> LinesOf(std::string_view text) {
  std::vector<Line> lines;
  AppendLines(text, lines);
  return lines;
}

void AppendLines(std::string_view text, std::vector<Line>& lines) {
  lines.reserve(lines.size() + text.size() / UsualLength + 1);
  while (!text.empty()) lines.push_back(TakeLine(text));
}

GrowingLines::GrowingLines(std::string_view text) : rest_(text) { lines_.reserve(text.size() / UsualLength + 1); }

void GrowingLines::Split() { lines_.push_back(TakeLine(rest_)); }

std::string_view TextOf(const std::vector<Line>& lines, LineRange range) {
  if (range.Count() == 0) return {};
  const char* const first = lines[range.First].Text.data();
  const std::string_view last = lines[range.Behind - 1].Whole();
  return {first, static_cast<std::size_t>(last.data() + last.size() - first)};
}

}  // namespace formwizard::vbtext
