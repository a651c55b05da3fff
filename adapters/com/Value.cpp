#include "adapters/com/Value.h"

#include "adapters/com/Failures.h"
#include "adapters/com/Text.h"
#include "runtime/Conversions.h"

#include <cmath>
#include <cstdint>
#include <limits>
#include <variant>

namespace formwizard::adapters::com {
namespace {

using runtime::Int16;
using runtime::Int32;
using runtime::Variant;

Variant Whole(std::int64_t number) {
  if (number >= std::numeric_limits<std::int32_t>::min() && number <= std::numeric_limits<std::int32_t>::max()) {
    return Int32(number);
  }
  return static_cast<double>(number);
}

Variant WholeUnsigned(std::uint64_t number) {
  if (number > static_cast<std::uint64_t>(std::numeric_limits<std::int32_t>::max())) {
    return static_cast<double>(number);
  }
  return Int32(number);
}

double FromCurrency(CY amount) {
  double number = 0;
  Check(::VarR8FromCy(amount, &number));
  return number;
}

double FromDecimal(DECIMAL decimal) {
  double number = 0;
  Check(::VarR8FromDec(&decimal, &number));
  return number;
}

// Of a value that is no reference.
Variant Converted(const VARIANT& value) {
  switch (value.vt) {
    case VT_EMPTY:
      return runtime::Empty{};
    case VT_NULL:
      return runtime::Null{};
    case VT_BOOL:
      return value.boolVal != VARIANT_FALSE;
    case VT_I1:
      return Int16(static_cast<std::int8_t>(value.cVal));
    case VT_UI1:
      return Int16(value.bVal);
    case VT_I2:
      return Int16(value.iVal);
    case VT_UI2:
      return Int32(value.uiVal);
    case VT_I4:
      return Int32(value.lVal);
    case VT_INT:
      return Int32(value.intVal);
    case VT_UI4:
      return WholeUnsigned(value.ulVal);
    case VT_UINT:
      return WholeUnsigned(value.uintVal);
    case VT_I8:
      return Whole(value.llVal);
    case VT_UI8:
      return WholeUnsigned(value.ullVal);
    case VT_R4:
      return static_cast<double>(value.fltVal);
    case VT_R8:
      return value.dblVal;
    case VT_CY:
      return FromCurrency(value.cyVal);
    case VT_DATE:
      return value.date;
    case VT_DECIMAL:
      return FromDecimal(value.decVal);
    case VT_BSTR:
      return Utf8(View(value.bstrVal));
    default:
      runtime::Raise(runtime::TypeMismatch);
  }
}

struct ToValue {
  Value operator()(runtime::Empty) const { return Value(); }
  Value operator()(runtime::Null) const {
    Value null;
    null.Receive()->vt = VT_NULL;
    return null;
  }
  Value operator()(const std::string& text) const { return Value(std::string_view(text)); }
  Value operator()(auto value) const { return Value(value); }
};

// The value itself or what it refers to.
Value Direct(VARIANT value) {
  Value direct;
  if (FAILED(::VariantCopyInd(direct.Receive(), &value))) runtime::Raise(runtime::TypeMismatch);
  return direct;
}

// The number of a value, which must not be Null.
double Number(const Variant& value) { return runtime::ToNumber(value); }

}  // namespace

Value::Value(std::string_view utf8) : Value() {
  Bstr text(utf8);
  Set(VT_BSTR).bstrVal = text.Release();
}

Value::Value(ComPtr<IDispatch> object) : Value() { Set(VT_DISPATCH).pdispVal = object.Detach(); }

Value Value::Of(const Variant& value) { return std::visit(ToValue(), value); }

Value Value::ReferenceTo(Value& target) {
  Value reference;
  reference.raw_.byref = &target.raw_.bstrVal;  // every member stands at this place
  reference.raw_.vt = static_cast<VARTYPE>(target.raw_.vt | VT_BYREF);
  return reference;
}

VARIANT* Value::Receive() {
  ::VariantClear(&raw_);
  return &raw_;
}

Variant Value::ToVariant() const { return (raw_.vt & VT_BYREF) != 0 ? Converted(Direct(raw_).raw_) : Converted(raw_); }

Int16 Value::ToInt16() const { return runtime::RoundToInt16(Number(ToVariant())); }

Int32 Value::ToInt32() const { return runtime::RoundToInt32(Number(ToVariant())); }

bool Value::ToBool() const {
  const Variant value = ToVariant();
  if (std::holds_alternative<runtime::Null>(value)) runtime::Raise(runtime::InvalidUseOfNull);
  return runtime::IsTrue(value);
}

ComPtr<IUnknown> Value::ToUnknown() const {
  const Value direct = Direct(raw_);
  if (direct.raw_.vt != VT_DISPATCH && direct.raw_.vt != VT_UNKNOWN) runtime::Raise(runtime::TypeMismatch);
  return ComPtr<IUnknown>(direct.raw_.punkVal);
}

ComPtr<IDispatch> Value::ToDispatch() const {
  const Value direct = Direct(raw_);
  if (direct.raw_.vt == VT_DISPATCH) return ComPtr<IDispatch>(direct.raw_.pdispVal);
  const ComPtr<IUnknown> object = direct.ToUnknown();
  ComPtr<IDispatch> dispatch;
  if (object) Check(object->QueryInterface(IID_IDispatch, dispatch.ReceiveVoid()));
  return dispatch;
}

}  // namespace formwizard::adapters::com
