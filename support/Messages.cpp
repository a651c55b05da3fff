#include "support/Messages.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <utility>

namespace formwizard::support {
namespace {

// In bytes; together less than a screen of 25 lines with 80 characters.
constexpr std::size_t ShownAtStart = 800, ShownAtEnd = 700;

bool IsContinuation(char c) { return (static_cast<unsigned char>(c) & 0xC0U) == 0x80; }

// The bytes of the character that `text` begins with; 0 when it begins with no UTF-8.
std::size_t LengthOfCharacter(std::string_view text) {
  const auto lead = static_cast<unsigned char>(text.front());
  if (lead < 0x80) return 1;
  const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
  if (lead < 0xC2 || lead > 0xF4 || text.size() < length) return 0;
  if (!std::ranges::all_of(text.substr(1, length - 1), IsContinuation)) return 0;
  // Written longer than it need be, half of a pair, or past the last character.
  const std::string_view start = text.substr(0, 2);
  const bool isNone = (lead == 0xE0 && start < "\xE0\xA0") || (lead == 0xED && start >= "\xED\xA0") ||
                      (lead == 0xF0 && start < "\xF0\x90") || (lead == 0xF4 && start >= "\xF4\x90");
  return isNone ? 0 : length;
}

// C0, C1, line and paragraph separator, and what steers the direction of the text.
bool IsControl(std::string_view character) {
  if (character.size() == 1) return static_cast<unsigned char>(character.front()) < ' ' || character == "\x7F";
  if (character.size() == 2) return character < "\xC2\xA0";
  return (character >= "\xE2\x80\xA8" && character <= "\xE2\x80\xAE") ||
         (character >= "\xE2\x81\xA6" && character <= "\xE2\x81\xA9");
}

std::string Escape(char c) {
  constexpr std::string_view named = "\n\r\t", letters = "nrt";
  const std::size_t at = named.find(c);
  if (at != std::string_view::npos) return std::string("\\") + letters[at];
  std::array<char, 5> code{};
  std::snprintf(code.data(), code.size(), "\\x%02X", static_cast<unsigned>(static_cast<unsigned char>(c)));
  return code.data();
}

}  // namespace

std::string Escaped(std::string_view text) {
  std::string escaped;
  escaped.reserve(text.size());
  while (!text.empty()) {
    const std::size_t length = LengthOfCharacter(text);
    const std::string_view character = text.substr(0, std::max<std::size_t>(length, 1));
    if (length == 0 || IsControl(character)) {
      for (const char c : character) escaped += Escape(c);
    } else {
      escaped += character;
    }
    text.remove_prefix(character.size());
  }
  return escaped;
}

std::string Shortened(std::string text) {
  if (text.size() <= ShownAtStart + ShownAtEnd) return text;
  std::size_t from = ShownAtStart;
  std::size_t to = text.size() - ShownAtEnd;
  while (IsContinuation(text[from])) --from;
  while (IsContinuation(text[to])) ++to;
  return text.replace(from, to - from, " ... (" + std::to_string(to - from) + " bytes left out) ... ");
}

std::string Shown(std::string_view message) { return Shortened(Escaped(message)); }

std::string Counted(std::size_t count, std::string_view what, std::string_view plural) {
  std::string text = std::to_string(count) + " ";
  if (count == 1) return text.append(what);
  return plural.empty() ? text.append(what) + "s" : text.append(plural);
}

}  // namespace formwizard::support
