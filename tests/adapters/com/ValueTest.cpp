#include "adapters/com/Text.h"
#include "adapters/com/Value.h"
#include "tests/support/FakeDispatch.h"

#include <limits>

using namespace formwizard;
namespace com = adapters::com;
using com::Value;
using runtime::Int16;
using runtime::Int32;
using runtime::Variant;
using tests::ErrorNumberOf;

namespace {

Value Made(VARTYPE type, const std::function<void(VARIANT&)>& fill) {
  Value value;
  VARIANT& raw = *value.Receive();
  fill(raw);
  raw.vt = type;
  return value;
}

BSTR TextOf(std::wstring_view text) { return ::SysAllocStringLen(text.data(), static_cast<UINT>(text.size())); }

}  // namespace

TEST_CASE("A value of every automation type keeps its number or text, also through a reference") {
  struct Case {
    VARTYPE Type;
    std::function<void(VARIANT&)> Fill;
    Variant Expected;
  };
  const Case cases[] = {
      {VT_BOOL, [](VARIANT& v) { v.boolVal = 1; }, true},  // some servers have a true of their own
      {VT_BOOL, [](VARIANT& v) { v.boolVal = VARIANT_FALSE; }, false},
      {VT_I1, [](VARIANT& v) { v.cVal = static_cast<CHAR>(-5); }, Int16(-5)},
      {VT_UI1, [](VARIANT& v) { v.bVal = 200; }, Int16(200)},
      {VT_I2, [](VARIANT& v) { v.iVal = -32768; }, Int16(-32768)},
      {VT_UI2, [](VARIANT& v) { v.uiVal = 65535; }, Int32(65535)},
      {VT_I4, [](VARIANT& v) { v.lVal = -70000; }, Int32(-70000)},
      {VT_UI4, [](VARIANT& v) { v.ulVal = 4000000000U; }, 4000000000.0},
      {VT_UINT, [](VARIANT& v) { v.uintVal = 7; }, Int32(7)},
      {VT_I8, [](VARIANT& v) { v.llVal = -2147483648LL; }, Int32(std::numeric_limits<std::int32_t>::min())},
      {VT_I8, [](VARIANT& v) { v.llVal = -2147483649LL; }, -2147483649.0},
      {VT_UI8, [](VARIANT& v) { v.ullVal = 18446744073709551615ULL; }, 18446744073709551616.0},
      {VT_R4, [](VARIANT& v) { v.fltVal = 0.5F; }, 0.5},
      {VT_R8, [](VARIANT& v) { v.dblVal = 1e300; }, 1e300},
      {VT_CY, [](VARIANT& v) { v.cyVal.int64 = 123456789; }, 12345.6789},
      {VT_DATE, [](VARIANT& v) { v.date = 36526.5; }, 36526.5},
      {VT_DECIMAL, [](VARIANT& v) { ::VarDecFromR8(-12.25, &v.decVal); }, -12.25},
      {VT_BSTR, [](VARIANT& v) { v.bstrVal = TextOf(L"Gr\u00FCn \U0001F4A1"); }, "Gr\xC3\xBCn \xF0\x9F\x92\xA1"},
      {VT_BSTR, [](VARIANT& v) { v.bstrVal = TextOf(std::wstring_view(L"a\0b", 3)); }, std::string("a\0b", 3)},
      {VT_BSTR, [](VARIANT& v) { v.bstrVal = nullptr; }, ""},
      {VT_EMPTY, [](VARIANT&) {}, runtime::Empty{}},
      {VT_NULL, [](VARIANT&) {}, runtime::Null{}},
  };
  for (const Case& c : cases) {
    CAPTURE(c.Type);
    Value value = Made(c.Type, c.Fill);
    CHECK(value.ToVariant() == c.Expected);
    Value reference = Made(VT_BYREF | VT_VARIANT, [&](VARIANT& v) { v.pvarVal = const_cast<VARIANT*>(&value.Raw()); });
    CHECK(reference.ToVariant() == c.Expected);
    if (c.Type == VT_EMPTY || c.Type == VT_NULL || c.Type == VT_DECIMAL) continue;
    CHECK(Value::ReferenceTo(value).ToVariant() == c.Expected);
  }
}

TEST_CASE("Values of the core have the types of the language") {
  const std::pair<Variant, VARTYPE> cases[] = {
      {runtime::Empty{}, VT_EMPTY},
      {runtime::Null{}, VT_NULL},
      {true, VT_BOOL},
      {Int16(3), VT_I2},
      {Int32(3), VT_I4},
      {1.5, VT_R8},
      {"text", VT_BSTR},
  };
  for (const auto& [value, type] : cases) {
    CAPTURE(type);
    CHECK(Value::Of(value).Raw().vt == type);
    CHECK(Value::Of(value).ToVariant() == value);
  }
  CHECK(Value(true).Raw().boolVal == VARIANT_TRUE);
}

TEST_CASE("What cannot be converted raises the error of the language") {
  const tests::NothingIsLeft test;
  const auto number = [](VARTYPE type, double value) { return Made(type, [=](VARIANT& v) { v.dblVal = value; }); };
  const Value missing = Made(VT_ERROR, [](VARIANT& v) { v.scode = DISP_E_PARAMNOTFOUND; });
  const Value object(com::ComPtr<IDispatch>(tests::NewFake("object").Get()));
  const Value array = Made(VT_ARRAY | VT_I4, [](VARIANT& v) { v.parray = ::SafeArrayCreateVector(VT_I4, 0, 2); });
  const Value null = Value::Of(runtime::Null{});

  for (const Value* value : {&missing, &object, &array}) {
    CHECK(ErrorNumberOf([&] { static_cast<void>(value->ToVariant()); }) == runtime::TypeMismatch);
  }
  CHECK(ErrorNumberOf([&] { static_cast<void>(null.ToText()); }) == runtime::InvalidUseOfNull);
  CHECK(ErrorNumberOf([&] { static_cast<void>(null.ToBool()); }) == runtime::InvalidUseOfNull);
  CHECK(ErrorNumberOf([&] { static_cast<void>(Value("abc").ToInt32()); }) == runtime::TypeMismatch);
  CHECK(ErrorNumberOf([&] { static_cast<void>(number(VT_R8, 32768).ToInt16()); }) == runtime::Overflow);
  CHECK(ErrorNumberOf([&] { static_cast<void>(number(VT_R8, 3e9).ToInt32()); }) == runtime::Overflow);
  CHECK(ErrorNumberOf([&] { static_cast<void>(Value("Form1").ToDispatch()); }) == runtime::TypeMismatch);
  CHECK(number(VT_R8, 2.5).ToInt16() == Int16(2));
  CHECK(Value("-1").ToBool());
}

TEST_CASE("A text that is invalid in its encoding is refused, but a message stays readable") {
  for (const std::string_view invalid : {"\xFF", "a\xC3", "\xED\xA0\x80"}) {
    CHECK(ErrorNumberOf([&] { static_cast<void>(com::Wide(invalid)); }) == runtime::InvalidProcedureCall);
  }
  const std::wstring half(1, static_cast<wchar_t>(0xD83D));
  CHECK(ErrorNumberOf([&] { static_cast<void>(com::Utf8(half)); }) == runtime::InvalidProcedureCall);
  CHECK(com::Readable(L"in " + half + L" two. \r\n") == "in \xEF\xBF\xBD two.");
}
