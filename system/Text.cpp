#include "system/Text.h"

#include <array>
#include <cstdint>

namespace formwizard::system {
namespace {

constexpr char32_t Replacement = 0xFFFD;

// One character taken off a text, and whether it was one.
struct Taken {
  char32_t Character = Replacement;
  bool IsWhole = false;
};

bool IsHighHalf(char32_t unit) { return unit >= 0xD800 && unit < 0xDC00; }
bool IsLowHalf(char32_t unit) { return unit >= 0xDC00 && unit < 0xE000; }

Taken Take(std::u16string_view& text) {
  const char32_t unit = text.front();
  text.remove_prefix(1);
  if (IsHighHalf(unit) && !text.empty() && IsLowHalf(text.front())) {
    const char32_t low = text.front();
    text.remove_prefix(1);
    return {0x10000 + ((unit - 0xD800) << 10) + (low - 0xDC00), true};
  }
  if (IsHighHalf(unit) || IsLowHalf(unit)) return {};
  return {unit, true};
}

// What a lead byte says: how many bytes follow, its own bits, and the least character that needs so many.
struct Lead {
  std::size_t More;
  char32_t Bits, Least;
};

Lead LeadOf(unsigned char byte) {
  if (byte >= 0xF0 && byte < 0xF8) return {3, byte & 0x07U, 0x10000};
  if (byte >= 0xE0) return {2, byte & 0x0FU, 0x800};
  return {1, byte & 0x1FU, 0x80};
}

Taken Take(std::string_view& text) {
  const auto first = static_cast<unsigned char>(text.front());
  text.remove_prefix(1);
  if (first < 0x80) return {first, true};
  if (first < 0xC0 || first >= 0xF8) return {};
  const Lead lead = LeadOf(first);
  char32_t character = lead.Bits;
  std::size_t count = 0;
  while (count < lead.More && count < text.size() && (static_cast<unsigned char>(text[count]) & 0xC0) == 0x80) {
    character = (character << 6) | (static_cast<unsigned char>(text[count++]) & 0x3FU);
  }
  text.remove_prefix(count);
  const bool isHalf = IsHighHalf(character) || IsLowHalf(character);
  if (count < lead.More || character < lead.Least || character > 0x10FFFF || isHalf) return {};
  return {character, true};
}

void Append(std::string& text, char32_t c) {
  if (c < 0x80) {
    text += static_cast<char>(c);
    return;
  }
  const int more = c < 0x800 ? 1 : c < 0x10000 ? 2 : 3;
  constexpr std::array<unsigned, 4> leads{0, 0xC0, 0xE0, 0xF0};
  text += static_cast<char>(leads[static_cast<std::size_t>(more)] | (c >> (6 * more)));
  for (int i = more - 1; i >= 0; --i) text += static_cast<char>(0x80 | ((c >> (6 * i)) & 0x3F));
}

void Append(std::u16string& text, char32_t c) {
  if (c < 0x10000) {
    text += static_cast<char16_t>(c);
    return;
  }
  text += static_cast<char16_t>(0xD800 + ((c - 0x10000) >> 10));
  text += static_cast<char16_t>(0xDC00 + ((c - 0x10000) & 0x3FF));
}

template <typename To, typename From>
To Converted(From text) {
  To result;
  result.reserve(text.size());
  while (!text.empty()) Append(result, Take(text).Character);
  return result;
}

template <typename From>
From StartOf(From text) {
  From rest = text;
  for (From next = rest; !rest.empty() && Take(next).IsWhole; rest = next) {
  }
  return text.substr(0, text.size() - rest.size());
}

}  // namespace

std::string Utf8(std::u16string_view text) { return Converted<std::string>(text); }
std::u16string Utf16(std::string_view utf8) { return Converted<std::u16string>(utf8); }
bool IsWhole(std::u16string_view text) { return StartOf(text).size() == text.size(); }
bool IsUtf8(std::string_view text) { return StartOf(text).size() == text.size(); }
std::string_view WholeStart(std::string_view utf8) { return StartOf(utf8); }

#ifdef _WIN32
std::string Utf8(std::wstring_view text) { return Utf8(std::u16string(text.begin(), text.end())); }
std::wstring Wide(std::string_view utf8) {
  const std::u16string text = Utf16(utf8);
  return std::wstring(text.begin(), text.end());
}
bool IsWhole(std::wstring_view text) { return IsWhole(std::u16string(text.begin(), text.end())); }
#endif

}  // namespace formwizard::system
