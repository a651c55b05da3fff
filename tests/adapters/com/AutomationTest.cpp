#include "adapters/com/Automation.h"
#include "adapters/com/Failures.h"
#include "tests/support/ErrorNumber.h"
#include "tests/support/FakeDispatch.h"

#include <doctest/doctest.h>

#include <new>
#include <stdexcept>

using namespace formwizard;
namespace com = adapters::com;
using com::ComPtr;
using com::Object;
using com::Value;
using runtime::Int16;
using runtime::Int32;
using tests::ErrorNumberOf;
using tests::Invocation;
using tests::NewFake;

namespace {

constexpr GUID TypeA{1, 2, 3, {4}};
constexpr GUID TypeB{1, 2, 3, {5}};

Object Wrapped(const ComPtr<tests::FakeDispatch>& fake) { return Object(ComPtr<IDispatch>(fake.Get())); }

std::pair<int, std::string> ErrorOf(const tests::FakeDispatch::Handler& handler) {
  const auto fake = NewFake("fake");
  fake->On(L"Fail", handler);
  try {
    Wrapped(fake).Call(L"Fail");
  } catch (const runtime::RuntimeError& error) {
    return {error.Number(), error.Description()};
  }
  return {0, ""};
}

HRESULT STDAPICALLTYPE FillInLater(EXCEPINFO* info) {
  info->scode = static_cast<SCODE>(0x800A0009U);
  info->bstrDescription = com::Bstr("said later\r\n").Release();
  return S_OK;
}

}  // namespace

TEST_CASE("A name is looked up once per type, and anew for another type or an object without one") {
  const tests::AutomationTest test;
  const auto first = NewFake("first");
  const auto second = NewFake("second");
  const auto other = NewFake("other");
  const auto root = NewFake("root");
  root->With(L"First", first).With(L"Second", second).With(L"Other", other);
  first->With(L"Name", "1st");
  second->With(L"Name", "2nd");
  other->With(L"Before", "wrong").With(L"Name", "3rd");
  const auto names = [&](const Object& from) {
    std::string all;
    for (const wchar_t* child : {L"First", L"Second", L"Other", L"First", L"Second", L"Other"}) {
      const Object object = from.Child(child);
      all += object.Get(L"Name").ToText() + object.Get(L"Name").ToText() + " ";
    }
    return all;
  };

  SUBCASE("types") {
    first->Type = second->Type = TypeA;
    other->Type = TypeB;
    CHECK(names(Wrapped(root)) == "1st1st 2nd2nd 3rd3rd 1st1st 2nd2nd 3rd3rd ");
    CHECK(first->NameQueries == 1);
    CHECK(second->NameQueries == 0);
    CHECK(other->NameQueries == 1);
    CHECK(root->NameQueries == 3);
  }
  SUBCASE("no types, or a type without an identifier") {
    first->Type = GUID_NULL;
    CHECK(names(Wrapped(root)) == "1st1st 2nd2nd 3rd3rd 1st1st 2nd2nd 3rd3rd ");
    CHECK(first->NameQueries == 2);
    CHECK(other->NameQueries == 2);
  }
  SUBCASE("objects of different kinds that claim the same type") {
    first->Type = second->Type = other->Type = TypeA;
    CHECK(names(Wrapped(root).WithOwnIds()) == "1st1st 2nd2nd 3rd3rd 1st1st 2nd2nd 3rd3rd ");
  }
}

TEST_CASE("Calls arrive with their kind, their arguments in order and with the types they were given") {
  const tests::AutomationTest test;
  const auto fake = NewFake("fake");
  const auto child = NewFake("child");
  fake->With(L"Member", Int16(7), DISPID(26)).With(L"Child", child, DISPID_VALUE);
  const Object object = Wrapped(fake);

  CHECK(object.Get(L"mEMBER", "text", true, Int16(1), Int32(-2)).ToInt16() == Int16(7));
  object.Call(L"Member", std::string("own"), object.Item("name").Dispatch());
  object.Put(L"Member", false);
  object.PutRef(L"Member", object.ChildId(DISPID_VALUE, Int32(1)));
  object.CallId(26, Value());
  CHECK(object.GetId(26).ToText() == "7");

  const std::vector<std::string> expected{
      R"(get fake.Member "text" True 1% -2&)",
      R"(get fake.Child "name")",
      R"(call fake.Member "own" child)",
      "put fake.Member False",
      "get fake.Child 1&",
      "putref fake.Member child",
      "call fake.Member type 0",
      "get fake.Member",
  };
  CHECK(tests::CallLog == expected);
}

TEST_CASE("An argument by reference comes back changed") {
  const tests::AutomationTest test;
  const auto fake = NewFake("fake");
  fake->On(L"Complete", [](const Invocation& call) {
    const VARIANT& text = *call.Arguments.at(0);
    if (text.vt != (VT_BYREF | VT_BSTR)) return DISP_E_TYPEMISMATCH;
    ::SysFreeString(*text.pbstrVal);
    *text.pbstrVal = com::Bstr("completed").Release();
    return S_OK;
  });
  Value text("begun");
  Wrapped(fake).Call(L"Complete", Value::ReferenceTo(text));
  CHECK(text.ToText() == "completed");
}

TEST_CASE("A failed call has the number and the description that the language shows") {
  const tests::AutomationTest test;
  const auto fails = [](HRESULT failure) { return ErrorOf([=](const Invocation&) { return failure; }); };
  const auto raises = [](WORD code, SCODE scode, const char* description) {
    return ErrorOf([=](const Invocation& call) { return call.Raise(code, scode, description); });
  };
  using Error = std::pair<int, std::string>;
  const auto scode = [](unsigned value) { return static_cast<SCODE>(value); };

  CHECK(raises(0, scode(0x800A0009U), "no such form\r\n") == Error(9, "no such form"));
  CHECK(raises(0, scode(0x800A017CU), "") == Error(380, "Invalid property value"));
  CHECK(raises(0, scode(0x800A01B6U), "") == Error(438, "Object doesn't support this property or method"));
  CHECK(raises(1004, 0, "") == Error(1004, "Application-defined or object-defined error"));
  CHECK(raises(0, DISP_E_TYPEMISMATCH, "a number is needed") == Error(13, "a number is needed"));
  CHECK(raises(0, scode(0x80040201U), "the server's own") == Error(-2147220991, "the server's own"));
  CHECK(raises(0, 0, "") == Error(440, "Automation error"));
  CHECK(ErrorOf([](const Invocation& call) {
          call.Exception->pfnDeferredFillIn = FillInLater;
          return DISP_E_EXCEPTION;
        }) == Error(9, "said later"));

  CHECK(fails(DISP_E_TYPEMISMATCH) == Error(13, "Type mismatch"));
  CHECK(fails(DISP_E_BADINDEX).first == 9);
  CHECK(fails(DISP_E_MEMBERNOTFOUND).first == 438);
  CHECK(fails(DISP_E_BADPARAMCOUNT).first == 450);
  CHECK(fails(E_NOTIMPL).first == 445);
  CHECK(fails(scode(0x800A000DU)) == Error(13, "Type mismatch"));
  const Error unknown = fails(E_FAIL);
  CHECK(unknown.first == -2147467259);
  CHECK_FALSE(unknown.second.empty());
  CHECK(unknown.second.find_first_of("\r\n") == std::string::npos);
  CHECK(fails(scode(0x80040999U)) == Error(-2147219047, "Automation error"));  // the system has no text for it
}

TEST_CASE("Nothing, a missing member and a value that is no object are errors of their own") {
  const tests::AutomationTest test;
  const auto fake = NewFake("fake");
  fake->With(L"Nothing", ComPtr<tests::FakeDispatch>()).With(L"Text", "Form1");
  fake->On(L"Unscriptable", [](const Invocation& call) {
    call.Result->vt = VT_UNKNOWN;
    call.Result->punkVal = new tests::FakeObject<IUnknown>;
    call.Result->punkVal->AddRef();
    return S_OK;
  });
  const Object object = Wrapped(fake);

  CHECK_FALSE(object.Child(L"Nothing"));
  for (const Object& nothing : {Object(), object.Child(L"Nothing")}) {
    CHECK(ErrorNumberOf([&] { nothing.Call(L"Close"); }) == runtime::ObjectVariableNotSet);
    CHECK(ErrorNumberOf([&] { nothing.GetId(DISPID_VALUE); }) == runtime::ObjectVariableNotSet);
  }
  CHECK(ErrorNumberOf([&] { object.Get(L"Absent"); }) == com::MemberNotSupported);
  CHECK(ErrorNumberOf([&] { object.CallId(4711); }) == com::MemberNotSupported);
  CHECK(ErrorNumberOf([&] { object.Child(L"Text"); }) == runtime::TypeMismatch);
  CHECK(ErrorNumberOf([&] { object.Child(L"Unscriptable"); }) == 430);
}

TEST_CASE("An object that knows no English is asked in the user's language") {
  const tests::AutomationTest test;
  const auto fake = NewFake("fake");
  fake->RefusesEnglish = true;
  fake->With(L"Version", "6.00");
  CHECK(Wrapped(fake).Get(L"Version").ToText() == "6.00");
  CHECK(fake->NameQueries == 2);
}

TEST_CASE("No exception leaves a call from outside") {
  const auto outcome = [](auto call) {
    EXCEPINFO info{};
    const HRESULT result = com::WithoutExceptions(&info, [&]() {
      call();
      return S_OK;
    });
    const std::string description = com::Utf8(com::View(info.bstrDescription));
    ::SysFreeString(info.bstrDescription);
    return std::tuple(result, info.scode, description);
  };
  CHECK(outcome([]() { runtime::Raise(91, "not set"); }) ==
        std::tuple(DISP_E_EXCEPTION, static_cast<SCODE>(0x800A005BU), "not set"));
  CHECK(outcome([]() { runtime::Raise(E_FAIL, "failed"); }) == std::tuple(DISP_E_EXCEPTION, E_FAIL, "failed"));
  CHECK(outcome([]() { throw std::logic_error("a mistake"); }) ==
        std::tuple(DISP_E_EXCEPTION, E_UNEXPECTED, "a mistake"));
  CHECK(outcome([]() { throw std::bad_alloc(); }) == std::tuple(E_OUTOFMEMORY, S_OK, ""));
  CHECK(outcome([]() { throw 1; }) == std::tuple(E_UNEXPECTED, S_OK, ""));
  CHECK(com::WithoutExceptions(nullptr, []() -> HRESULT { runtime::Raise(5); }) == DISP_E_EXCEPTION);
}
