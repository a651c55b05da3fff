// Automation objects for tests: members by name under ids that no real object has for them, counted while they live,
// and made to fail where a test wants it.
#pragma once

#include "adapters/com/ComPtr.h"
#include "adapters/com/Counted.h"
#include "adapters/com/Failures.h"
#include "adapters/com/Text.h"
#include "adapters/com/Value.h"
#include "tests/support/Test.h"

#include <windows.h>

#include <objbase.h>
#include <ocidl.h>
#include <oleauto.h>

#include <any>
#include <concepts>
#include <cstring>

namespace formwizard::tests {

namespace com = adapters::com;

// A COM object, one of com::LivingObjects.
template <typename First, typename... Others>
class FakeObject : public com::Counted<First, Others...> {
 public:
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
    *object = id == __uuidof(IUnknown) || id == __uuidof(First) ? static_cast<First*>(this) : nullptr;
    ((id == __uuidof(Others) ? void(*object = static_cast<Others*>(this)) : void()), ...);
    if (!*object) return E_NOINTERFACE;
    this->AddRef();
    return S_OK;
  }
};

// A type description that says nothing but who it is.
inline com::ComPtr<ITypeInfo> NewType(const GUID& id) {
  std::wstring name = L"FakeType";
  com::ComPtr<ICreateTypeLib2> library;
  com::ComPtr<ICreateTypeInfo> type;
  com::ComPtr<ITypeInfo> info;
  com::Check(::CreateTypeLib2(SYS_WIN32, name.c_str(), library.Receive()));
  com::Check(library->CreateTypeInfo(name.data(), TKIND_DISPATCH, type.Receive()));
  com::Check(type->SetGuid(id));
  com::Check(type->QueryInterface(IID_ITypeInfo, info.ReceiveVoid()));
  return info;
}

// What can be wrong with a member.
enum class Failure {
  MissingName,  // the object does not have it
  Hresult,      // E_ACCESSDENIED
  Exception,    // 0x800A0000 + 1234, "The host refuses"
  WrongType,    // an error value instead of its result
  Null,         // Nothing or Null instead of its result
};
inline constexpr std::array AllFailures{Failure::MissingName, Failure::Hresult, Failure::Exception, Failure::WrongType,
                                        Failure::Null};

// What the failure of an object's member is called. A value that is Null has another name.
inline std::string DescriptionOf(Failure how) {
  constexpr std::array descriptions{"Object doesn't support this property or method", "Permission denied",
                                    "The host refuses", "Type mismatch",
                                    "Object variable or With block variable not set"};
  return descriptions.at(static_cast<std::size_t>(how));
}

// Once, at a call of "Kind.Member". What has happened is taken out.
inline std::map<std::string, Failure> PlannedFailures;
// What was called, by the same names.
inline std::set<std::string> UsedMembers;
// Does something meanwhile, at every call or look for a name.
inline std::function<void(const std::string&)> AtEachCall;

// Stands in every test case: nothing may be left when it ends, and everything that was to fail must have failed.
struct NothingIsLeft : Pinned {
  NothingIsLeft() {
    PlannedFailures.clear();
    AtEachCall = nullptr;
    com::Check(::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED));  // as the environment's own thread
  }
  ~NothingIsLeft() {
    CHECK(com::LivingObjects == 0);
    for (const auto& [member, plan] : PlannedFailures) FAIL_CHECK("did not fail: ", member);
    ::CoUninitialize();
  }
};

// The call of a member. A missing argument is an error.
struct Call {
  WORD Flags;
  std::vector<const VARIANT*> Arguments;  // the first one first; an assigned value last

  std::size_t Count() const { return Arguments.size(); }
  com::Value Value(std::size_t index) const {
    com::Value value;
    if (index >= Arguments.size()) com::Check(DISP_E_PARAMNOTOPTIONAL);
    com::Check(::VariantCopyInd(value.Receive(), const_cast<VARIANT*>(Arguments[index])));  // reads it only
    return value;
  }
  std::string Text(std::size_t index) const { return Value(index).ToText(); }
  runtime::Int32 Number(std::size_t index) const { return Value(index).ToInt32(); }
  bool IsPut() const { return (Flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0; }
};

class FakeDispatch : public FakeObject<IDispatch> {
 public:
  using Handler = std::function<com::Value(const Call&)>;

  // Objects of one kind are of one type.
  explicit FakeDispatch(std::string kind, std::any played = {})
      : Played(std::move(played)), Type(GUID{0x5B1F0000, 0, 0x4000, {}}), kind_(std::move(kind)) {
    const std::size_t hash = std::hash<std::string>()(kind_);
    std::memcpy(Type->Data4, &hash, sizeof(hash));
  }

  // A member does what `work` does, which takes the call or nothing, and yields its result if it has one. A run-time
  // error becomes an exception of automation.
  template <typename Work>
  com::ComPtr<FakeDispatch> On(const std::string& name, Work work) {
    return Add(static_cast<DISPID>(1000 + 10 * members_.size() + kind_.size()), name, true, HandlerOf(std::move(work)));
  }
  // One that is only called by its id. The name is that of its failures.
  template <typename Work>
  com::ComPtr<FakeDispatch> OnId(DISPID id, const std::string& name, Work work) {
    return Add(id, name, false, HandlerOf(std::move(work)));
  }

  const std::any Played;  // what this object stands for
  std::optional<GUID> Type;
  bool RefusesEnglish = false;
  std::function<HRESULT(EXCEPINFO&)> Outcome;  // of every call, instead of what the members do
  int NameQueries = 0;

  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
    *count = Type ? 1 : 0;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo** info) override {
    *info = Type ? NewType(*Type).Detach() : nullptr;
    return Type ? S_OK : DISP_E_BADINDEX;
  }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID locale, DISPID* id) override {
    ++NameQueries;
    if (RefusesEnglish && PRIMARYLANGID(locale) == LANG_ENGLISH) return DISP_E_UNKNOWNLCID;
    const auto found = std::ranges::find_if(members_, [&](const Member& member) {
      return member.HasName && ::lstrcmpiW(com::Wide(member.Name).c_str(), names[0]) == 0;
    });
    *id = DISPID_UNKNOWN;
    if (const auto meanwhile = AtEachCall) meanwhile(kind_);
    if (found == members_.end() || TakeFailure(found->Name, true)) return DISP_E_UNKNOWNNAME;
    *id = found->Id;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID locale, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                                   EXCEPINFO* exception, UINT*) override {
    if (RefusesEnglish && PRIMARYLANGID(locale) == LANG_ENGLISH) return DISP_E_UNKNOWNLCID;
    if (Outcome) return Outcome(*exception);
    const auto found = std::ranges::find(members_, id, &Member::Id);
    if (found == members_.end()) return DISP_E_MEMBERNOTFOUND;
    Call call{flags, {}};
    for (UINT i = parameters->cArgs; i > 0; --i) call.Arguments.push_back(&parameters->rgvarg[i - 1]);
    if (call.IsPut() != (parameters->cNamedArgs == 1 && parameters->rgdispidNamedArgs[0] == DISPID_PROPERTYPUT)) {
      return DISP_E_PARAMNOTFOUND;
    }
    const Member member = *found;  // the call may be the end of this object
    return com::WithoutExceptions(exception, [&] { return Answer(member, call, result); });
  }

 private:
  struct Member {
    DISPID Id;
    std::string Name;
    bool HasName;
    Handler Handle;
  };

  static com::Value ValueOf(com::Value value) { return value; }
  static com::Value ValueOf(const runtime::Variant& value) { return com::Value::Of(value); }
  static com::Value ValueOf(com::ComPtr<IUnknown> object) {
    com::Value value;
    VARIANT& raw = *value.Receive();
    raw.vt = VT_UNKNOWN;
    raw.punkVal = object.Detach();
    return value;
  }
  template <std::derived_from<IDispatch> Class>
  static com::Value ValueOf(const com::ComPtr<Class>& object) {
    return com::Value(com::ComPtr<IDispatch>(object.Get()));
  }
  template <typename Work>
  static Handler HandlerOf(Work work) {
    return [work = std::move(work)](const Call& call) {
      const auto run = [&] {
        if constexpr (std::invocable<const Work&, const Call&>) {
          return work(call);
        } else {
          return work();
        }
      };
      if constexpr (std::same_as<decltype(run()), void>) {
        run();
        return com::Value();
      } else {
        return ValueOf(run());
      }
    };
  }
  com::ComPtr<FakeDispatch> Add(DISPID id, const std::string& name, bool hasName, Handler handler) {
    members_.push_back({id, name, hasName, std::move(handler)});
    return com::ComPtr<FakeDispatch>(this);
  }

  // The failure that is due, if there is one: at this call, or before it when the name is looked up.
  std::optional<Failure> TakeFailure(const std::string& name, bool isLookedUp) const {
    const auto found = PlannedFailures.find(kind_ + "." + name);
    if (found == PlannedFailures.end() || (isLookedUp && found->second != Failure::MissingName)) return {};
    return PlannedFailures.extract(found).mapped();
  }

  HRESULT Answer(const Member& member, const Call& call, VARIANT* result) const {
    UsedMembers.insert(kind_ + "." + member.Name);
    if (const auto meanwhile = AtEachCall) meanwhile(kind_ + "." + member.Name);
    const auto failure = TakeFailure(member.Name, false);
    if (failure == Failure::MissingName) return DISP_E_MEMBERNOTFOUND;
    if (failure == Failure::Hresult) return E_ACCESSDENIED;
    if (failure == Failure::Exception) runtime::Raise(1234, "The host refuses");
    com::Value answer = failure == Failure::WrongType ? com::Value() : member.Handle(call);
    if (failure) {
      const VARTYPE type = answer.Raw().vt;
      const bool isObject = type == VT_DISPATCH || type == VT_UNKNOWN;
      VARIANT& without = *answer.Receive();
      without = {};
      without.vt = failure == Failure::WrongType ? VARTYPE{VT_ERROR} : isObject ? type : VARTYPE{VT_NULL};
    }
    VARIANT value = answer.Raw();
    return result ? ::VariantCopy(result, &value) : S_OK;
  }

  std::string kind_;
  std::vector<Member> members_;
};

using FakePtr = com::ComPtr<FakeDispatch>;

inline FakePtr NewFake(std::string kind, std::any played = {}) {
  return FakePtr(new FakeDispatch(std::move(kind), std::move(played)));
}

// What the object in a value stands for; error 13 when it is none of these.
template <typename Played>
Played PlayedBy(const com::Value& value) {
  const com::ComPtr<IDispatch> object = value.ToDispatch();
  const auto* fake = dynamic_cast<const FakeDispatch*>(object.Get());
  const auto* played = fake ? std::any_cast<Played>(&fake->Played) : nullptr;
  if (!played) runtime::Raise(runtime::TypeMismatch);
  return *played;
}

// `item` gets what is between the brackets; null is a member that is missing.
inline FakePtr NewCollection(const std::string& kind, std::function<runtime::Int32()> count,
                             std::function<FakePtr(const Call&)> item) {
  return NewFake(kind)
      ->On("Count", std::move(count))
      ->OnId(DISPID_VALUE, "Item", [item = std::move(item)](const Call& call) {
        const FakePtr found = item(call);
        if (!found) runtime::Raise(runtime::SubscriptOutOfRange);
        return found;
      });
}

}  // namespace formwizard::tests
