#include "adapters/vb6files/PropertyText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <limits>

namespace formwizard::adapters::vb6files {
namespace {

constexpr std::size_t LongestLineText = 130;  // bytes; a longer text goes to the companion file

template <typename Integer>
std::string LittleEndian(Integer value) {
  std::string bytes;
  for (std::size_t i = 0; i < sizeof(Integer); ++i) bytes += static_cast<char>((value >> (8 * i)) & 0xFF);
  return bytes;
}

std::string_view NameOf(std::string_view names, int value) {
  for (; value > 0 && !names.empty(); --value) {
    const std::size_t bar = names.find('|');
    names = bar == std::string_view::npos ? std::string_view() : names.substr(bar + 1);
  }
  return names.substr(0, names.find('|'));
}

constexpr std::size_t NumberSize = 32;  // characters that any number fits

template <typename Integer>
void AppendDigits(FormText& out, Integer number) {
  char* const start = out.Room<NumberSize>();
  out.Take(static_cast<std::size_t>(std::to_chars(start, start + NumberSize, number).ptr - start));
}

// The digits of a number that is no integer, with what takes them.
struct Digits {
  template <typename Number>
  Digits(Number number, std::chars_format format) {
    Text = {Room.data(), std::to_chars(Room.data(), Room.data() + Room.size() - 1, number, format).ptr};
  }
  Digits(const Digits&) = delete;
  Digits& operator=(const Digits&) = delete;

  std::array<char, NumberSize> Room{};  // ends with a 0
  std::string_view Text;
};

void AppendColor(FormText& out, double value) {
  std::array<char, 16> text{};
  std::snprintf(text.data(), text.size(), "&H%08X&", static_cast<unsigned>(static_cast<std::int64_t>(value)));
  out += text.data();
}

// Without the zero before the point.
void AppendFraction(FormText& out, double value) {
  const Digits digits(std::abs(std::round(value * 1000) / 1000), std::chars_format::fixed);
  if (value < 0) out += '-';
  out += digits.Text.substr(digits.Text.starts_with("0.") ? 1 : 0);
}

// "2.45745e5"; what a Single cannot hold is the largest that it can.
void AppendExponential(FormText& out, double value) {
  constexpr double largest = std::numeric_limits<float>::max();
  const auto single = static_cast<float>(std::clamp(value, -largest, largest));
  const Digits digits(single, std::chars_format::scientific);  // "2.45745e+05"
  const std::size_t exponent = digits.Text.find('e') + 1;
  out += digits.Text.substr(0, exponent);
  AppendDigits(out, std::atoi(digits.Room.data() + exponent));
}

void AppendText(FormText& out, std::string_view text, FrxBuilder& frx) {
  const bool fits = text.size() <= LongestLineText &&
                    std::ranges::none_of(text, [](char c) { return static_cast<unsigned char>(c) < ' '; });
  if (!fits) {
    out += frx.AddString(text);
    return;
  }
  out += '"';
  for (;;) {
    const std::size_t quote = text.find('"');
    out += text.substr(0, quote);
    if (quote == std::string_view::npos) break;
    out += "\"\"";
    text.remove_prefix(quote + 1);
  }
  out += '"';
}

}  // namespace

std::string FrxBuilder::AddRecord(std::string_view bytes) {
  std::array<char, 16> offset{};
  std::snprintf(offset.data(), offset.size(), "%04zX", bytes_.size());
  bytes_ += bytes;
  return "\"" + stem_ + ".frx\":" + offset.data();
}

std::string FrxBuilder::AddString(std::string_view text) {
  return "$" + AddRecord(LittleEndian(static_cast<std::uint32_t>(text.size())) + std::string(text));
}

std::string FrxBuilder::AddMultiLineText(std::string_view text) {
  const std::string length = text.size() < 0xFF ? std::string(1, static_cast<char>(text.size()))
                                                : "\xFF" + LittleEndian(static_cast<std::uint16_t>(text.size()));
  return AddRecord(length + std::string(text));
}

void AppendNumber(FormText& out, double value) {
  if (std::abs(value) >= 100000) {
    AppendExponential(out, value);
  } else if (const int whole = static_cast<int>(value); whole == value) {
    AppendDigits(out, whole);
  } else {
    AppendFraction(out, value);
  }
}

void AppendValue(FormText& out, const PropertyRow& row, const PropertyData& data, FrxBuilder& frx) {
  switch (row.Type) {
    case PropertyType::Text:
      return AppendText(out, data.Text, frx);
    case PropertyType::Boolean:
      out += data.Number != 0 ? "-1  'True" : "0   'False";
      return;
    case PropertyType::Color:
      return AppendColor(out, data.Number);
    case PropertyType::Enumeration:
      AppendNumber(out, data.Number);
      out += "  '";
      out += NameOf(row.Names, static_cast<int>(data.Number));
      return;
    case PropertyType::Integer:
    case PropertyType::Long:
    case PropertyType::Object:
      return AppendDigits(out, static_cast<std::int64_t>(data.Number));
    case PropertyType::Single:
      return AppendNumber(out, data.Number);
  }
}

}  // namespace formwizard::adapters::vb6files
