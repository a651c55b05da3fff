// 16- and 32-bit signed integers whose arithmetic raises run-time error 6 where a plain integer would wrap.
#pragma once

#include "runtime/RuntimeError.h"

#include <compare>
#include <concepts>
#include <cstdint>
#include <limits>
#include <string>

namespace formwizard::runtime {

// Int16 widens to Int32 by itself; narrowing and conversion from plain integers are spelled and checked.
template <std::signed_integral T>
class CheckedInteger {
 public:
  constexpr CheckedInteger() = default;

  template <std::integral U>
  constexpr explicit CheckedInteger(U value) : value_(Checked(static_cast<std::int64_t>(value))) {}

  template <std::signed_integral U>
  constexpr explicit(sizeof(U) > sizeof(T)) CheckedInteger(CheckedInteger<U> other) : value_(Checked(other.Value())) {}

  constexpr T Value() const { return value_; }

  constexpr CheckedInteger& operator+=(CheckedInteger other) { return *this = *this + other; }

  friend constexpr CheckedInteger operator+(CheckedInteger a, CheckedInteger b) {
    return CheckedInteger(Wide(a) + Wide(b));
  }
  friend constexpr CheckedInteger operator-(CheckedInteger a, CheckedInteger b) {
    return CheckedInteger(Wide(a) - Wide(b));
  }
  friend constexpr CheckedInteger operator*(CheckedInteger a, CheckedInteger b) {
    return CheckedInteger(Wide(a) * Wide(b));
  }
  // Integer division: truncates toward zero, error 11 for a zero divisor.
  friend constexpr CheckedInteger operator/(CheckedInteger a, CheckedInteger b) {
    if (b.value_ == 0) Raise(DivisionByZero);
    return CheckedInteger(Wide(a) / Wide(b));
  }
  constexpr CheckedInteger operator-() const { return CheckedInteger(-Wide(*this)); }

  friend constexpr bool operator==(CheckedInteger, CheckedInteger) = default;
  friend constexpr auto operator<=>(CheckedInteger, CheckedInteger) = default;

 private:
  static constexpr std::int64_t Wide(CheckedInteger a) { return a.value_; }
  static constexpr T Checked(std::int64_t value) {
    if (value < std::numeric_limits<T>::min() || value > std::numeric_limits<T>::max()) Raise(Overflow);
    return static_cast<T>(value);
  }

  T value_ = 0;
};

using Int16 = CheckedInteger<std::int16_t>;
using Int32 = CheckedInteger<std::int32_t>;

// A mixed expression is computed in 32 bits.
constexpr Int32 operator+(Int16 a, Int32 b) { return Int32(a) + b; }
constexpr Int32 operator+(Int32 a, Int16 b) { return a + Int32(b); }
constexpr Int32 operator-(Int16 a, Int32 b) { return Int32(a) - b; }
constexpr Int32 operator-(Int32 a, Int16 b) { return a - Int32(b); }
constexpr Int32 operator*(Int16 a, Int32 b) { return Int32(a) * b; }
constexpr Int32 operator*(Int32 a, Int16 b) { return a * Int32(b); }

// The decimal form, with "-" for a negative number and no leading blank.
template <std::signed_integral T>
std::string Text(CheckedInteger<T> value) {
  return std::to_string(value.Value());
}

}  // namespace formwizard::runtime
