// What the system calls in the library.
#include "adapters/com/ComPtr.h"
#include "adapters/com/Counted.h"
#include "adapters/com/Failures.h"
#include "apps/addin-dll/AddIn.h"
#include "apps/addin-dll/Module.h"
#include "apps/registration/Registration.h"

#include <olectl.h>
#include <unknwn.h>

#include <new>
#include <span>

using namespace formwizard::apps::addin;

namespace {

using formwizard::adapters::com::ComPtr;
using formwizard::adapters::com::Counted;
using formwizard::adapters::com::WithoutExceptions;
namespace registration = formwizard::apps::registration;
using registration::Scope;

// A new object by one of its interfaces.
template <typename Made>
HRESULT HandOut(REFIID id, void** object) {
  const ComPtr<Made> made(new (std::nothrow) Made);
  return made ? made->QueryInterface(id, object) : E_OUTOFMEMORY;
}

class ClassFactory final : public Counted<IClassFactory> {
 public:
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
    if (!object) return E_POINTER;
    *object = nullptr;
    if (id != IID_IUnknown && id != IID_IClassFactory) return E_NOINTERFACE;
    *object = this;
    AddRef();
    return S_OK;
  }

  HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID id, void** object) override {
    if (!object) return E_POINTER;
    *object = nullptr;
    if (outer) return CLASS_E_NOAGGREGATION;
    return HandOut<AddIn>(id, object);
  }
  HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) override {
    lock ? HoldModule() : LetGoModule();
    return S_OK;
  }
};

HRESULT OutcomeOf(LSTATUS status) { return status == ERROR_SUCCESS ? S_OK : SELFREG_E_CLASS; }

HRESULT RegisterFirstAllowed(std::span<const Scope> scopes) {
  return WithoutExceptions(nullptr, [&] {
    HRESULT result = SELFREG_E_CLASS;
    for (const Scope scope : scopes) {
      if (result != S_OK) result = OutcomeOf(registration::Register(scope, ModulePath()));
    }
    return result;
  });
}

HRESULT UnregisterAll(std::span<const Scope> scopes) {
  return WithoutExceptions(nullptr, [&] { return OutcomeOf(registration::Unregister(scopes)); });
}

struct NamedScope {
  const wchar_t* Name;
  Scope Meant[1];
};
constexpr NamedScope NamedScopes[] = {{L"machine", {Scope::Machine}}, {L"user", {Scope::User}}};

}  // namespace

STDAPI DllGetClassObject(REFCLSID classId, REFIID id, void** object) {
  if (!object) return E_POINTER;
  *object = nullptr;
  if (classId != registration::ClassId) return CLASS_E_CLASSNOTAVAILABLE;
  return HandOut<ClassFactory>(id, object);
}

STDAPI DllCanUnloadNow() { return IsModuleNeeded() ? S_FALSE : S_OK; }

STDAPI DllRegisterServer() { return RegisterFirstAllowed(registration::BothScopes); }
STDAPI DllUnregisterServer() { return UnregisterAll(registration::BothScopes); }

// regsvr32 /n /i:machine or /i:user, with or without /u.
STDAPI DllInstall(BOOL install, PCWSTR scopeName) {
  for (const NamedScope& scope : NamedScopes) {
    if (!scopeName || CompareStringOrdinal(scopeName, -1, scope.Name, -1, TRUE) != CSTR_EQUAL) continue;
    return install ? RegisterFirstAllowed(scope.Meant) : UnregisterAll(scope.Meant);
  }
  return E_INVALIDARG;
}
