#include "adapters/vb6files/Values.h"

#include "runtime/Conversions.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace formwizard::adapters::vb6files {
namespace {

using generator::ide::PropertyValue;

constexpr int LongestName = 40;  // characters

double AsNumber(const PropertyValue& value) {
  if (const auto* text = std::get_if<std::string_view>(&value)) return runtime::ToNumber(*text);
  if (const auto* truth = std::get_if<bool>(&value)) return *truth ? -1 : 0;
  if (const auto* number = std::get_if<generator::ide::Int16>(&value)) return number->Value();
  return std::get<generator::ide::Int32>(value).Value();
}

bool AsBoolean(const PropertyValue& value) {
  if (const auto* text = std::get_if<std::string_view>(&value)) return runtime::ToBoolean(*text);
  return AsNumber(value) != 0;
}

double Enumerated(const PropertyRow& row, double value) {
  const int number = runtime::RoundToInt16(value).Value();
  constexpr int custom = 99;  // of a mouse pointer
  if (number == custom && row.Is("MousePointer")) return number;
  if (number < 0 || number > std::ranges::count(row.Names, '|')) runtime::Raise(runtime::InvalidPropertyValue);
  return number;
}

double Placed(const PropertyRow& row, double value) {
  const bool mustNotBe0 = row.Is("ScaleHeight") || row.Is("ScaleWidth");
  const bool isExtent = row.Is("Height") || row.Is("Width");
  if ((isExtent && value < 0) || (mustNotBe0 && value == 0)) runtime::Raise(runtime::InvalidPropertyValue);
  return value;
}

// General punctuation and the signs of Latin-1 are no letters; every other character beyond ASCII passes.
bool IsLetterBeyondAscii(std::string_view text) {
  const auto byte = [&](std::size_t i) { return i < text.size() ? static_cast<unsigned char>(text[i]) : 0u; };
  if (byte(0) == 0xC2) return byte(1) == 0xAA || byte(1) == 0xB5 || byte(1) == 0xBA;
  return !(byte(0) == 0xE2 && byte(1) <= 0x81);
}

bool IsLegalName(std::string_view name) {
  int characters = 0;
  for (std::size_t i = 0; i < name.size(); ++i) {
    const char c = name[i];
    const auto byte = static_cast<unsigned char>(c);
    const bool leads = byte >= 0xC0, follows = byte >= 0x80 && !leads;
    if (!follows) ++characters;
    const bool letter = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
    if (letter || follows || (leads && IsLetterBeyondAscii(name.substr(i)))) continue;
    if (i == 0 || !((c >= '0' && c <= '9') || c == '_')) return false;
  }
  return !name.empty() && characters <= LongestName;
}

}  // namespace

std::string_view CoercedText(const PropertyValue& value, const system::CodePage& codePage, std::string& room) {
  if (const auto* text = std::get_if<std::string_view>(&value)) return codePage.Encoded(*text, room);
  room = std::visit(
      []<typename T>(const T& v) {
        if constexpr (std::is_same_v<T, std::string_view>)
          return std::string(v);
        else
          return runtime::Text(v);
      },
      value);
  return room;
}

double CoercedNumber(const PropertyRow& row, const PropertyValue& value) {
  switch (row.Type) {
    case PropertyType::Boolean:
      return AsBoolean(value) ? -1 : 0;
    case PropertyType::Integer:
      return runtime::RoundToInt16(AsNumber(value)).Value();
    case PropertyType::Long:
    case PropertyType::Color:
      return runtime::RoundToInt32(AsNumber(value)).Value();
    case PropertyType::Enumeration:
      return Enumerated(row, AsNumber(value));
    case PropertyType::Single:
      return Placed(row, AsNumber(value));
    case PropertyType::Text:
    case PropertyType::Object:
      break;
  }
  runtime::Raise(runtime::PropertyReadOnly, "'" + std::string(row.Name.Text()) + "' property cannot be set here");
}

bool IsDefault(const PropertyRow& row, const PropertyData& data) {
  return row.Type == PropertyType::Text ? data.Text == row.Default : data.Number == row.DefaultNumber;
}

void CheckObjectName(std::string_view name) {
  if (!IsLegalName(name)) {
    runtime::Raise(runtime::NotALegalObjectName, "Not a legal object name: '" + std::string(name) + "'");
  }
}

std::string ProblemOfObjectName(std::string_view name) {
  const auto length =
      std::ranges::count_if(name, [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80; });
  if (length > LongestName) {
    return "which has " + std::to_string(length) + " characters, and Visual Basic takes " + std::to_string(LongestName);
  }
  return IsLegalName(name) ? "" : "which is no name in Visual Basic: that is a letter, then letters, digits and \"_\"";
}

}  // namespace formwizard::adapters::vb6files
