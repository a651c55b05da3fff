// A value of automation with its owner.
#pragma once

#include "adapters/com/ComPtr.h"
#include "runtime/Variant.h"

#include <windows.h>

#include <oleauto.h>

#include <concepts>
#include <string>
#include <string_view>
#include <utility>

namespace formwizard::adapters::com {

class Value {
 public:
  Value() noexcept { ::VariantInit(&raw_); }
  explicit Value(std::string_view utf8);
  explicit Value(std::same_as<bool> auto flag) : Value() { Set(VT_BOOL).boolVal = flag ? VARIANT_TRUE : VARIANT_FALSE; }
  explicit Value(runtime::Int16 number) : Value() { Set(VT_I2).iVal = number.Value(); }
  explicit Value(runtime::Int32 number) : Value() { Set(VT_I4).lVal = number.Value(); }
  explicit Value(double number) : Value() { Set(VT_R8).dblVal = number; }
  explicit Value(ComPtr<IDispatch> object);
  Value(Value&& other) noexcept : raw_(other.raw_) { ::VariantInit(&other.raw_); }
  Value& operator=(Value other) noexcept {
    std::swap(raw_, other.raw_);
    return *this;
  }
  ~Value() { ::VariantClear(&raw_); }

  static Value Of(const runtime::Variant& value);
  // An argument through which the called object may change `target`, which must live as long and must not be a
  // reference itself. Its type stays.
  static Value ReferenceTo(Value& target);

  const VARIANT& Raw() const { return raw_; }
  // For a call that delivers a value; what was held before is cleared.
  VARIANT* Receive();

  // What a reference refers to is looked up. A currency, a decimal, a date and a number that needs more than 32 bits
  // become a double (a date its serial number); error 13 for an object, an array, an error value or a missing one.
  runtime::Variant ToVariant() const;
  // By the language's conversions: error 94 for Null, 13 for a text that is no number, 6 out of range.
  std::string ToText() const { return runtime::ToText(ToVariant()); }
  runtime::Int16 ToInt16() const;
  runtime::Int32 ToInt32() const;
  bool ToBool() const;
  // Null for "Nothing"; error 13 for a value that is no object, 430 for an object without automation.
  ComPtr<IDispatch> ToDispatch() const;
  ComPtr<IUnknown> ToUnknown() const;

 private:
  VARIANT& Set(VARTYPE type) {
    raw_.vt = type;
    return raw_;
  }

  VARIANT raw_;
};

}  // namespace formwizard::adapters::com
