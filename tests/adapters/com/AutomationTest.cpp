#include "adapters/com/Automation.h"
#include "adapters/com/Failures.h"
#include "tests/support/FakeDispatch.h"

#include <new>

using namespace formwizard;
namespace com = adapters::com;
using com::ComPtr;
using com::Object;
using com::Value;
using runtime::Int16;
using runtime::Int32;
using tests::Call;
using tests::ErrorNumberOf;
using tests::FakePtr;
using tests::NewFake;

namespace {

Object Wrapped(const FakePtr& fake) { return Object(ComPtr<IDispatch>(fake.Get())); }

std::pair<int, std::string> ErrorOf(std::function<HRESULT(EXCEPINFO&)> outcome) {
  const auto fake = NewFake("fake");
  fake->On("Fail", [] {})->Outcome = std::move(outcome);
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
  const tests::NothingIsLeft test;
  const auto root = NewFake("root"), first = NewFake("a"), second = NewFake("a"), other = NewFake("other");
  const std::pair<const char*, FakePtr> children[] = {{"First", first}, {"Second", second}, {"Other", other}};
  for (const auto& [name, child] : children) {
    root->On(name, [child = child] { return child; });
    child->On("Name", [name = name] { return std::string(name); });
  }
  const auto check = [](const Object& from) {
    std::string all;
    for (const wchar_t* child : {L"First", L"Second", L"Other", L"First", L"Second", L"Other"}) {
      const Object object = from.Child(child);
      all += object.Get(L"Name").ToText() + object.Get(L"Name").ToText() + " ";
    }
    CHECK(all == "FirstFirst SecondSecond OtherOther FirstFirst SecondSecond OtherOther ");
  };

  SUBCASE("types") {
    check(Wrapped(root));
    CHECK(first->NameQueries == 1);
    CHECK(second->NameQueries == 0);
    CHECK(other->NameQueries == 1);
    CHECK(root->NameQueries == 3);
  }
  SUBCASE("no types, or a type without an identifier") {
    first->Type = GUID_NULL;
    other->Type.reset();
    check(Wrapped(root));
    CHECK(first->NameQueries == 2);
    CHECK(other->NameQueries == 2);
  }
  SUBCASE("objects of different kinds that claim the same type") {
    other->Type = first->Type;
    check(Wrapped(root).WithOwnIds());
  }
}

TEST_CASE("Calls arrive with their kind, their arguments in order and with the types they were given") {
  const tests::NothingIsLeft test;
  const auto fake = NewFake("fake");
  std::string arrived;
  const auto member = [&](const Call& call) {
    arrived = std::to_string(call.Flags);
    for (std::size_t i = 0; i < call.Count(); ++i) {
      const VARTYPE type = call.Arguments[i]->vt;
      arrived += " " + std::to_string(type) + ":";
      if (type != VT_DISPATCH) arrived += call.Text(i);
    }
    return Int16(7);
  };
  fake->On("Member", member)->OnId(26, "", member);
  const Object object = Wrapped(fake), child = Wrapped(fake);
  const auto after = [&](const Value&) { return arrived; };

  CHECK(object.Get(L"mEMBER").ToInt16() == Int16(7));
  CHECK(after(object.Get(L"Member", "text", true, Int16(1), Int32(-2))) == "3 8:text 11:True 2:1 3:-2");
  CHECK(after(object.Call(L"Member", std::string("own"), child.Dispatch())) == "1 8:own 9:");
  CHECK(after(object.CallId(26, Value())) == "1 0:");
  CHECK(after(object.GetId(26)) == "3");
  object.Put(L"Member", false);
  CHECK(arrived == "4 11:False");
  object.PutRef(L"Member", child);
  CHECK(arrived == "8 9:");
}

TEST_CASE("A failed call has the number and the description that the language shows") {
  const tests::NothingIsLeft test;
  struct Case {
    WORD Code;
    unsigned Scode;
    std::string Said;
    int Number;
    std::string Description;
  };
  for (const Case& c : {Case{0, 0x800A0009U, "no such form\r\n", 9, "no such form"},
                        Case{0, 0x800A017CU, "", 380, "Invalid property value"},
                        Case{0, 0x800A01B6U, "", 438, "Object doesn't support this property or method"},
                        Case{1004, 0, "", 1004, "Application-defined or object-defined error"},
                        Case{0, 0x80020005U, "a number is needed", 13, "a number is needed"},
                        Case{0, 0x80040201U, "the server's own", -2147220991, "the server's own"},
                        Case{0, 0, "", 440, "Automation error"}}) {
    CAPTURE(c.Number);
    const auto error = ErrorOf([&](EXCEPINFO& exception) {
      exception.wCode = c.Code;
      exception.scode = static_cast<SCODE>(c.Scode);
      if (!c.Said.empty()) exception.bstrDescription = com::Bstr(c.Said).Release();
      exception.bstrSource = com::Bstr("the fake").Release();
      return DISP_E_EXCEPTION;
    });
    CHECK(error.first == c.Number);
    CHECK(error.second == c.Description);
  }
  const auto later = ErrorOf([](EXCEPINFO& exception) {
    exception.pfnDeferredFillIn = FillInLater;
    return DISP_E_EXCEPTION;
  });
  CHECK(later == std::pair(9, std::string("said later")));

  const auto fails = [](HRESULT failure) { return ErrorOf([=](EXCEPINFO&) { return failure; }); };
  const std::pair<HRESULT, int> numbers[] = {{DISP_E_TYPEMISMATCH, 13},
                                             {DISP_E_BADINDEX, 9},
                                             {DISP_E_MEMBERNOTFOUND, 438},
                                             {DISP_E_BADPARAMCOUNT, 450},
                                             {E_NOTIMPL, 445},
                                             {static_cast<HRESULT>(0x800A000DU), 13},
                                             {E_FAIL, -2147467259},
                                             {static_cast<HRESULT>(0x80040999U), -2147219047}};
  for (const auto& [failure, number] : numbers) CHECK(fails(failure).first == number);
  CHECK(fails(static_cast<HRESULT>(0x800A000DU)).second == "Type mismatch");
  CHECK(fails(static_cast<HRESULT>(0x80040999U)).second == "Automation error");  // the system has no text for it
  const std::string systemText = fails(E_FAIL).second;
  CHECK_FALSE(systemText.empty());
  CHECK(systemText.find_first_of("\r\n") == std::string::npos);
}

TEST_CASE("Nothing, a missing member and a value that is no object are errors of their own") {
  const tests::NothingIsLeft test;
  const auto fake = NewFake("fake");
  fake->On("Nothing", [] { return FakePtr(); })->On("Text", [] { return std::string("Form1"); });
  fake->On("Unscriptable", [] { return ComPtr<IUnknown>(new tests::FakeObject<IUnknown>); });
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

TEST_CASE("An object lives as long as it is called, though the call is the end of the one that holds it") {
  const tests::NothingIsLeft test;
  auto fake = NewFake("fake");
  Object object = Wrapped(fake);
  fake->On("Close", [&] {
    object = Object();
    CHECK(com::LivingObjects == 1);
  });
  fake = {};
  object.Call(L"Close");
}

TEST_CASE("An object that knows no English is asked in the user's language") {
  const tests::NothingIsLeft test;
  const auto fake = NewFake("fake");
  fake->On("Version", [] { return std::string("6.00"); })->RefusesEnglish = true;
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
