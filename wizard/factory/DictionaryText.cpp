#include "wizard/factory/DictionaryText.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace formwizard::wizard::factory {
namespace {

constexpr char32_t Invalid = 0xFFFFFFFF;
constexpr std::size_t MostShown = 60;  // bytes

// Takes the next character off the text; Invalid for bytes that are none, of which one is taken.
char32_t TakeCharacter(std::string_view& text) {
  constexpr std::array<char32_t, 5> least{0, 0, 0x80, 0x800, 0x10000};
  const auto lead = static_cast<unsigned char>(text.front());
  text.remove_prefix(1);
  if (lead < 0x80) return lead;
  const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
  if (lead < 0xC2 || lead > 0xF4 || text.size() < length - 1) return Invalid;
  char32_t character = lead & (0x7Fu >> length);
  for (std::size_t i = 0; i < length - 1; ++i) {
    const auto next = static_cast<unsigned char>(text[i]);
    if ((next & 0xC0u) != 0x80) return Invalid;
    character = (character << 6) | (next & 0x3Fu);
  }
  if (character < least.at(length) || character > 0x10FFFF || (character >= 0xD800 && character <= 0xDFFF)) {
    return Invalid;
  }
  text.remove_prefix(length - 1);
  return character;
}

struct Range {
  char32_t First, Last;
};

// Beyond ASCII: blanks, line breaks, controls, punctuation and operators, also the wide ones, which the environment
// takes for the narrow.
constexpr std::array NoNameCharacters{
    Range{0x80, 0xA9},      Range{0xAB, 0xB4},     Range{0xB6, 0xB9},     Range{0xBB, 0xBF},     Range{0xD7, 0xD7},
    Range{0xF7, 0xF7},      Range{0x1680, 0x1680}, Range{0x180E, 0x180E}, Range{0x2000, 0x206F}, Range{0x2190, 0x2BFF},
    Range{0x3000, 0x3004},  Range{0x3008, 0x3020}, Range{0x3030, 0x3030}, Range{0xE000, 0xF8FF}, Range{0xFE10, 0xFE6F},
    Range{0xFEFF, 0xFF0F},  Range{0xFF1A, 0xFF20}, Range{0xFF3B, 0xFF40}, Range{0xFF5B, 0xFF65}, Range{0xFFE0, 0xFFFF},
    Range{0xE0000, Invalid}};

constexpr bool IsNameCharacter(char32_t c) {
  if (c < 0x80) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_' || c == '%' ||
           c == '.';
  }
  return std::ranges::none_of(NoNameCharacters, [c](const Range& r) { return c >= r.First && c <= r.Last; });
}

constexpr bool IsLineCharacter(char32_t c) {
  return c >= 0x20 && !(c >= 0x7F && c <= 0x9F) && c != 0x2028 && c != 0x2029 && c <= 0x10FFFF;
}

// For the characters of ASCII, of which most texts consist.
template <bool (*Accepts)(char32_t)>
constexpr std::array<bool, 0x80> Accepted = [] {
  std::array<bool, 0x80> accepted{};
  for (char32_t c = 0; c < accepted.size(); ++c) accepted[c] = Accepts(c);
  return accepted;
}();

template <bool (*Accepts)(char32_t)>
bool AllAre(std::string_view text) {
  while (!text.empty()) {
    const auto lead = static_cast<unsigned char>(text.front());
    if (lead < 0x80) {
      if (!Accepted<Accepts>[lead]) return false;
      text.remove_prefix(1);
    } else if (!Accepts(TakeCharacter(text))) {
      return false;
    }
  }
  return true;
}

std::string Escaped(std::string_view bytes) {
  constexpr std::string_view digits = "0123456789abcdef";
  if (bytes == "\n") return "\\n";
  std::string text;
  for (const char c : bytes) {
    const auto byte = static_cast<unsigned char>(c);
    text += "\\x";
    text += digits[byte >> 4u];
    text += digits[byte & 15u];
  }
  return text;
}

}  // namespace

bool IsName(std::string_view text) { return !text.empty() && AllAre<IsNameCharacter>(text); }

bool IsLine(std::string_view text) { return AllAre<IsLineCharacter>(text); }

bool StaysQuoted(std::string_view caption, std::string_view collection) {
  return (collection != "list" && collection != "array") || caption.find('"') == std::string_view::npos;
}

std::string Shown(std::string_view text) {
  std::string shown = "\"";
  while (!text.empty() && shown.size() < MostShown) {
    const std::string_view rest = text;
    const bool isPlain = IsLineCharacter(TakeCharacter(text));
    const std::string_view character = rest.substr(0, rest.size() - text.size());
    shown += isPlain ? std::string(character) : Escaped(character);
  }
  return shown + (text.empty() ? "\"" : "...\"");
}

}  // namespace formwizard::wizard::factory
