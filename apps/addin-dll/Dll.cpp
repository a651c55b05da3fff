// What the system calls in the library.
#include "adapters/com/ComPtr.h"
#include "adapters/com/Counted.h"
#include "apps/addin-dll/AddIn.h"
#include "apps/addin-dll/Module.h"
#include "apps/addin-dll/Registration.h"

#include <unknwn.h>

#include <new>

using namespace formwizard::apps::addin;

namespace {

using formwizard::adapters::com::ComPtr;
using formwizard::adapters::com::Counted;

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

}  // namespace

STDAPI DllGetClassObject(REFCLSID classId, REFIID id, void** object) {
  if (!object) return E_POINTER;
  *object = nullptr;
  if (classId != ClassId) return CLASS_E_CLASSNOTAVAILABLE;
  return HandOut<ClassFactory>(id, object);
}

STDAPI DllCanUnloadNow() { return IsModuleNeeded() ? S_FALSE : S_OK; }

STDAPI DllRegisterServer() { return Register(); }
STDAPI DllUnregisterServer() { return Unregister(); }
