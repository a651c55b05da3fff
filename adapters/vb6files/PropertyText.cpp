#include "adapters/vb6files/PropertyText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdio>

namespace formwizard::adapters::vb6files {
namespace {

constexpr std::size_t LongestLineText = 130;  // bytes; a longer text goes to the companion file
constexpr std::size_t NameColumns = 16;

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

std::string ColorText(double value) {
  std::array<char, 16> text{};
  std::snprintf(text.data(), text.size(), "&H%08X&", static_cast<unsigned>(static_cast<std::int64_t>(value)));
  return text.data();
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

std::string NumberText(double value) {
  std::array<char, 32> text{};
  if (std::abs(value) < 100000) {
    const auto whole = static_cast<int>(value);
    if (whole == value) return std::to_string(whole);
    const double rounded = std::round(value * 1000) / 1000;
    const auto end = std::to_chars(text.data(), text.data() + text.size(), rounded, std::chars_format::fixed).ptr;
    std::string digits(text.data(), end);
    if (digits.starts_with("0.")) digits.erase(0, 1);
    if (digits.starts_with("-0.")) digits.erase(1, 1);
    return digits;
  }
  const auto end =
      std::to_chars(text.data(), text.data() + text.size(), static_cast<float>(value), std::chars_format::scientific)
          .ptr;
  const std::string digits(text.data(), end);  // "2.45745e+05"
  const std::size_t e = digits.find('e');
  return digits.substr(0, e) + "e" + std::to_string(std::atoi(digits.c_str() + e + 1));
}

std::string StringText(std::string_view text, FrxBuilder& frx) {
  const bool fits = text.size() <= LongestLineText &&
                    std::ranges::none_of(text, [](char c) { return static_cast<unsigned char>(c) < ' '; });
  if (!fits) return frx.AddString(text);
  std::string quoted = "\"";
  for (const char c : text) quoted.append(c == '"' ? 2 : 1, c);
  return quoted + "\"";
}

std::string ValueText(const PropertyRow& row, const PropertyData& data, FrxBuilder& frx) {
  switch (row.Type) {
    case PropertyType::Text:
      return StringText(data.Text, frx);
    case PropertyType::Boolean:
      return data.Number != 0 ? "-1  'True" : "0   'False";
    case PropertyType::Color:
      return ColorText(data.Number);
    case PropertyType::Enumeration:
      return NumberText(data.Number) + "  '" + std::string(NameOf(row.Names, static_cast<int>(data.Number)));
    case PropertyType::Integer:
    case PropertyType::Long:
    case PropertyType::Object:
      return std::to_string(static_cast<std::int64_t>(data.Number));
    case PropertyType::Single:
      break;
  }
  return NumberText(data.Number);
}

void AppendIndent(std::string& out, int level) { out.append(static_cast<std::size_t>(level) * 3, ' '); }

void AppendPropertyLine(std::string& out, int level, std::string_view name, std::string_view value) {
  AppendIndent(out, level);
  out += name;
  if (name.size() < NameColumns) out.append(NameColumns - name.size(), ' ');
  out += "=   ";
  out += value;
  out += "\r\n";
}

}  // namespace formwizard::adapters::vb6files
