#include "runtime/Conversions.h"

#include <algorithm>
#include <cmath>
#include <locale>
#include <optional>
#include <sstream>

namespace formwizard::runtime {
namespace {

constexpr std::string_view Blanks = " \t\n\r";

constexpr bool IsBlank(char c) { return Blanks.find(c) != std::string_view::npos; }
constexpr bool IsDigit(char c) { return c >= '0' && c <= '9'; }

// Collects the longest number at the start of a text. `Used` is the count of bytes read for it.
struct NumberScan {
  std::string Digits;
  std::size_t Used = 0;
  bool HasDigit = false;
};

NumberScan ScanNumber(std::string_view text, bool skipBlanksInside) {
  NumberScan scan;
  std::size_t i = 0;
  const auto skip = [&] {
    while (skipBlanksInside && i < text.size() && IsBlank(text[i])) ++i;
  };
  const auto take = [&] {
    scan.Digits += text[i++];
    skip();
  };
  skip();
  if (i < text.size() && (text[i] == '-' || text[i] == '+')) take();
  const auto takeDigits = [&] {
    bool any = false;
    for (; i < text.size() && IsDigit(text[i]); any = true) take();
    return any;
  };
  scan.HasDigit = takeDigits();
  if (i < text.size() && text[i] == '.') {
    take();
    scan.HasDigit = takeDigits() || scan.HasDigit;
  }
  scan.Used = i;
  if (!scan.HasDigit) return scan;
  if (i < text.size() && (text[i] == 'e' || text[i] == 'E' || text[i] == 'd' || text[i] == 'D')) {
    const std::string mantissa = scan.Digits;
    scan.Digits += 'e';
    ++i;
    if (i < text.size() && (text[i] == '-' || text[i] == '+')) take();
    if (takeDigits()) {
      scan.Used = i;
    } else {
      scan.Digits = mantissa;
    }
  }
  return scan;
}

// Nearly every number is a plain integer, which needs no stream: nothing unless the whole text is one.
std::optional<double> PlainInteger(std::string_view text) {
  constexpr std::size_t most = 18;  // digits that 64 bits always hold
  const bool isNegative = text.starts_with('-');
  if (isNegative) text.remove_prefix(1);
  if (text.empty() || text.size() > most) return std::nullopt;
  std::int64_t integer = 0;
  for (const char digit : text) {
    if (!IsDigit(digit)) return std::nullopt;
    integer = integer * 10 + (digit - '0');
  }
  return static_cast<double>(isNegative ? -integer : integer);
}

// Has a point for a decimal sign whatever the user's locale is, which toolkits make the program's. Infinite when it is
// too large for a number.
double ValueOf(const NumberScan& scan) {
  double value = 0;
  if (!scan.HasDigit) return value;
  if (const auto integer = PlainInteger(scan.Digits)) return *integer;
  std::istringstream digits(scan.Digits);
  digits.imbue(std::locale::classic());
  digits >> value;
  if (digits.fail()) return std::copysign(HUGE_VAL, value);
  return value;
}

std::optional<double> WholeNumber(std::string_view text) {
  if (const auto integer = PlainInteger(text)) return integer;
  const std::string_view trimmed = Trimmed(text, Blanks);
  const NumberScan scan = ScanNumber(trimmed, false);
  if (!scan.HasDigit || scan.Used != trimmed.size()) return std::nullopt;
  return ValueOf(scan);
}

template <typename Integer>
Integer Rounded(double value) {
  const double rounded = std::nearbyint(value);  // the default rounding mode takes halves to even
  // Written so that NaN is refused as well.
  if (!(rounded >= -9.0e15 && rounded <= 9.0e15)) Raise(Overflow);
  return Integer(static_cast<std::int64_t>(rounded));
}

// Without a branch, so that many are folded at once.
constexpr char Lower(char c) {
  return static_cast<char>(c + (static_cast<unsigned char>(c - 'A') < 26 ? 'a' - 'A' : 0));
}

}  // namespace

double LeadingNumber(std::string_view text) { return ValueOf(ScanNumber(text, true)); }

Int16 RoundToInt16(double value) { return Rounded<Int16>(value); }
Int32 RoundToInt32(double value) { return Rounded<Int32>(value); }

double ToNumber(std::string_view text) {
  const std::optional<double> number = WholeNumber(text);
  if (!number) Raise(TypeMismatch);
  return *number;
}

bool IsNumeric(std::string_view text) { return WholeNumber(text).has_value(); }

bool ToBoolean(std::string_view text) {
  const std::string_view word = Trimmed(text, Blanks);
  if (EqualIgnoringCase(word, "True")) return true;
  if (EqualIgnoringCase(word, "False")) return false;
  return ToNumber(word) != 0.0;
}

Int16 ToInt16(std::string_view text) { return RoundToInt16(ToNumber(text)); }

std::string Text(bool value) { return value ? "True" : "False"; }

std::string ReplaceAll(std::string_view text, std::string_view from, std::string_view to) {
  if (from.empty()) return std::string(text);
  std::string result;
  for (;;) {
    const std::size_t at = text.find(from);
    result += text.substr(0, at);
    if (at == std::string_view::npos) return result;
    result += to;
    text.remove_prefix(at + from.size());
  }
}

std::string LowerCase(std::string_view text) {
  std::string result(text);
  std::ranges::transform(result, result.begin(), Lower);
  return result;
}

bool EqualIgnoringCase(std::string_view a, std::string_view b) {
  if (a.size() != b.size()) return false;
  return a == b || std::ranges::equal(a, b, {}, Lower, Lower);  // mostly spelled alike
}

std::string_view Trimmed(std::string_view text, std::string_view blanks) {
  const auto isBlank = [&](char c) { return std::ranges::find(blanks, c) != blanks.end(); };
  while (!text.empty() && isBlank(text.front())) text.remove_prefix(1);
  while (!text.empty() && isBlank(text.back())) text.remove_suffix(1);
  return text;
}

}  // namespace formwizard::runtime
