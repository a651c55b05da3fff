// Automation objects for tests: members are lambdas by name, every call is written down, every object is counted.
#pragma once

#include "adapters/com/ComPtr.h"
#include "adapters/com/Text.h"
#include "adapters/com/Value.h"

#include <windows.h>

#include <doctest/doctest.h>
#include <ocidl.h>
#include <oleauto.h>

#include <algorithm>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace formwizard::tests {

namespace com = adapters::com;

// A COM object with a reference count. `Living` is the number of those that exist.
inline int Living = 0;

template <typename First, typename... Others>
class FakeObject : public First, public Others... {
 public:
  FakeObject() { ++Living; }
  FakeObject(const FakeObject&) = delete;
  FakeObject& operator=(const FakeObject&) = delete;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
    *object = id == __uuidof(IUnknown) || id == __uuidof(First) ? static_cast<First*>(this) : nullptr;
    ((id == __uuidof(Others) ? void(*object = static_cast<Others*>(this)) : void()), ...);
    if (!*object) return E_NOINTERFACE;
    AddRef();
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
  ULONG STDMETHODCALLTYPE Release() override {
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
  }

 protected:
  virtual ~FakeObject() { --Living; }

 private:
  ULONG references_ = 0;
};

// What the members of fake objects were called with, such as `put Label1.Caption "Name"`.
inline std::vector<std::string> CallLog;

// Stands in every test case: nothing may be left over when it ends.
struct AutomationTest {
  AutomationTest() { CallLog.clear(); }
  AutomationTest(const AutomationTest&) = delete;
  AutomationTest& operator=(const AutomationTest&) = delete;
  ~AutomationTest() { CHECK(Living == 0); }
};

// A type description that says nothing but who it is.
class FakeType : public FakeObject<ITypeInfo> {
 public:
  explicit FakeType(const GUID& id) { attributes_.guid = id; }

  HRESULT STDMETHODCALLTYPE GetTypeAttr(TYPEATTR** attributes) override {
    *attributes = &attributes_;
    AddRef();  // until it is released
    return S_OK;
  }
  void STDMETHODCALLTYPE ReleaseTypeAttr(TYPEATTR*) override { Release(); }

  HRESULT STDMETHODCALLTYPE GetTypeComp(ITypeComp**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetFuncDesc(UINT, FUNCDESC**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetVarDesc(UINT, VARDESC**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetNames(MEMBERID, BSTR*, UINT, UINT*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetRefTypeOfImplType(UINT, HREFTYPE*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetImplTypeFlags(UINT, INT*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(LPOLESTR*, UINT, MEMBERID*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE Invoke(PVOID, MEMBERID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*, UINT*) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE GetDocumentation(MEMBERID, BSTR*, BSTR*, DWORD*, BSTR*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetDllEntry(MEMBERID, INVOKEKIND, BSTR*, BSTR*, WORD*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetRefTypeInfo(HREFTYPE, ITypeInfo**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE AddressOfMember(MEMBERID, INVOKEKIND, PVOID*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown*, REFIID, PVOID*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetMops(MEMBERID, BSTR*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetContainingTypeLib(ITypeLib**, UINT*) override { return E_NOTIMPL; }
  void STDMETHODCALLTYPE ReleaseFuncDesc(FUNCDESC*) override {}
  void STDMETHODCALLTYPE ReleaseVarDesc(VARDESC*) override {}

 private:
  TYPEATTR attributes_{};
};

// One call of a member, as it arrives.
struct Invocation {
  WORD Flags;
  std::vector<VARIANT*> Arguments;  // the first one first; the assigned value last
  VARIANT* Result;
  EXCEPINFO* Exception;

  std::string Text(std::size_t index) const { return com::Utf8(com::View(Arguments.at(index)->bstrVal)); }
  HRESULT Return(const com::Value& value) const {
    VARIANT raw = value.Raw();
    return Result ? ::VariantCopy(Result, &raw) : S_OK;
  }
  HRESULT Raise(WORD code, SCODE scode, std::string_view description = "") const {
    Exception->wCode = code;
    Exception->scode = scode;
    if (!description.empty()) Exception->bstrDescription = com::Bstr(description).Release();
    Exception->bstrSource = com::Bstr("the fake").Release();
    return DISP_E_EXCEPTION;
  }
};

// What a method without a result returns.
inline const runtime::Variant NoValue;

class FakeDispatch : public FakeObject<IDispatch> {
 public:
  using Handler = std::function<HRESULT(const Invocation&)>;

  explicit FakeDispatch(std::string label) : Label(std::move(label)) {}

  // Without an id the member gets one that no real object has for it.
  FakeDispatch& On(const std::wstring& name, Handler handler, std::optional<DISPID> id = {}) {
    members_.push_back({name, id.value_or(static_cast<DISPID>(500 + members_.size())), std::move(handler)});
    return *this;
  }
  // Answers every call with the value and takes every assignment.
  FakeDispatch& With(const std::wstring& name, const runtime::Variant& value, std::optional<DISPID> id = {}) {
    return On(
        name, [value](const Invocation& call) { return call.Return(com::Value::Of(value)); }, id);
  }
  FakeDispatch& With(const std::wstring& name, const com::ComPtr<FakeDispatch>& child, std::optional<DISPID> id = {}) {
    return On(
        name, [child](const Invocation& call) { return call.Return(com::Value(com::ComPtr<IDispatch>(child.Get()))); },
        id);
  }

  std::string Label;
  std::optional<GUID> Type;
  bool RefusesEnglish = false;
  int NameQueries = 0;

  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
    *count = Type ? 1 : 0;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo** info) override {
    *info = nullptr;
    if (!Type) return DISP_E_BADINDEX;
    *info = new FakeType(*Type);
    (*info)->AddRef();
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID locale, DISPID* id) override {
    ++NameQueries;
    if (RefusesEnglish && PRIMARYLANGID(locale) == LANG_ENGLISH) return DISP_E_UNKNOWNLCID;
    const auto found = std::ranges::find_if(
        members_, [&](const Member& member) { return ::lstrcmpiW(member.Name.c_str(), names[0]) == 0; });
    *id = found == members_.end() ? DISPID_UNKNOWN : found->Id;
    return found == members_.end() ? DISP_E_UNKNOWNNAME : S_OK;
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID locale, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                                   EXCEPINFO* exception, UINT*) override {
    if (RefusesEnglish && PRIMARYLANGID(locale) == LANG_ENGLISH) return DISP_E_UNKNOWNLCID;
    const auto found = std::ranges::find(members_, id, &Member::Id);
    if (found == members_.end()) return DISP_E_MEMBERNOTFOUND;
    const bool isPut = (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
    if (isPut != (parameters->cNamedArgs == 1 && parameters->rgdispidNamedArgs[0] == DISPID_PROPERTYPUT)) {
      return DISP_E_PARAMNOTFOUND;
    }
    Invocation call{flags, {}, result, exception};
    for (UINT i = parameters->cArgs; i > 0; --i) call.Arguments.push_back(&parameters->rgvarg[i - 1]);
    CallLog.push_back(Shown(found->Name, call));
    const Handler handler = found->Handle;
    return handler(call);
  }

 private:
  struct Member {
    std::wstring Name;
    DISPID Id;
    Handler Handle;
  };

  static std::string Shown(const VARIANT& value) {
    if ((value.vt & VT_BYREF) != 0) {
      VARIANT direct{};
      direct.vt = static_cast<VARTYPE>(value.vt & ~VT_BYREF);
      direct.bstrVal = *value.pbstrVal;
      return "ByRef " + Shown(direct);
    }
    switch (value.vt) {
      case VT_BSTR:
        return "\"" + com::Utf8(com::View(value.bstrVal)) + "\"";
      case VT_BOOL:
        return value.boolVal == VARIANT_TRUE ? "True" : value.boolVal == VARIANT_FALSE ? "False" : "neither";
      case VT_I2:
        return std::to_string(value.iVal) + "%";
      case VT_I4:
        return std::to_string(value.lVal) + "&";
      case VT_DISPATCH: {
        const auto* object = dynamic_cast<FakeDispatch*>(value.pdispVal);
        return object ? object->Label : "Nothing";
      }
      default:
        return "type " + std::to_string(value.vt);
    }
  }
  std::string Shown(const std::wstring& name, const Invocation& call) const {
    std::string line = (call.Flags & DISPATCH_PROPERTYPUTREF) != 0 ? "putref "
                       : (call.Flags & DISPATCH_PROPERTYPUT) != 0  ? "put "
                       : (call.Flags & DISPATCH_PROPERTYGET) != 0  ? "get "
                                                                   : "call ";
    line += Label + "." + com::Utf8(name);
    for (const VARIANT* argument : call.Arguments) line += " " + Shown(*argument);
    return line;
  }

  std::vector<Member> members_;
};

inline com::ComPtr<FakeDispatch> NewFake(std::string label) {
  return com::ComPtr<FakeDispatch>(new FakeDispatch(std::move(label)));
}

// "[first] [second]" in order, by index or name, as the default member.
inline com::ComPtr<FakeDispatch> NewCollection(const std::string& label,
                                               const std::vector<com::ComPtr<FakeDispatch>>& items) {
  auto collection = NewFake(label);
  collection->With(L"Count", runtime::Int32(items.size()));
  collection->On(
      L"Item",
      [items](const Invocation& call) {
        for (std::size_t i = 0; i < items.size(); ++i) {
          const VARIANT& index = *call.Arguments.at(0);
          const bool wanted = index.vt == VT_BSTR ? call.Text(0) == items[i]->Label
                                                  : index.vt == VT_I4 && index.lVal == static_cast<LONG>(i + 1);
          if (wanted) return call.Return(com::Value(com::ComPtr<IDispatch>(items[i].Get())));
        }
        return call.Raise(0, static_cast<SCODE>(0x800A0009U), "");
      },
      DISPID_VALUE);
  return collection;
}

}  // namespace formwizard::tests
