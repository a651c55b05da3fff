#include "runtime/Variant.h"

#include "runtime/Conversions.h"

#include <iomanip>
#include <locale>
#include <sstream>

namespace formwizard::runtime {
namespace {

template <typename... Cases>
struct Overloaded : Cases... {
  using Cases::operator()...;
};
template <typename... Cases>
Overloaded(Cases...) -> Overloaded<Cases...>;

// With 15 digits, as Visual Basic shows it, and with a point for a decimal sign whatever the user's locale is.
std::string DecimalForm(double value) {
  constexpr int digits = 15;
  std::ostringstream text;
  text.imbue(std::locale::classic());
  text << std::uppercase << std::setprecision(digits) << value;
  return text.str();
}

}  // namespace

double ToNumber(const Variant& value) {
  return std::visit(
      Overloaded{[](Empty) { return 0.0; }, [](Null) -> double { Raise(InvalidUseOfNull); },
                 [](bool flag) { return flag ? -1.0 : 0.0; },
                 [](Int16 number) { return static_cast<double>(number.Value()); },
                 [](Int32 number) { return static_cast<double>(number.Value()); }, [](double number) { return number; },
                 [](const std::string& text) { return ToNumber(std::string_view(text)); }},
      value);
}

bool EqualsNumber(const Variant& value, Int32 number) {
  return !std::holds_alternative<Null>(value) && ToNumber(value) == static_cast<double>(number.Value());
}

bool EqualsText(const Variant& value, std::string_view text) {
  if (const auto* own = std::get_if<std::string>(&value)) return *own == text;
  return !std::holds_alternative<Null>(value) && ToText(value) == text;
}

std::string ToText(const Variant& value) {
  return std::visit(
      Overloaded{[](Empty) { return std::string(); }, [](Null) -> std::string { Raise(InvalidUseOfNull); },
                 [](bool flag) { return Text(flag); }, [](Int16 number) { return Text(number); },
                 [](Int32 number) { return Text(number); }, [](double number) { return DecimalForm(number); },
                 [](const std::string& text) { return text; }},
      value);
}

bool IsTrue(const Variant& value) {
  if (std::holds_alternative<Null>(value)) return false;
  if (const auto* text = std::get_if<std::string>(&value)) return ToBoolean(*text);
  return ToNumber(value) != 0.0;
}

double NumericValue(const Variant& value) {
  if (std::holds_alternative<Null>(value)) return 0.0;
  if (const auto* text = std::get_if<std::string>(&value)) return LeadingNumber(*text);
  return ToNumber(value);
}

}  // namespace formwizard::runtime
