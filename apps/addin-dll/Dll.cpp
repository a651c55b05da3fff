// What the system calls in the library.
#include "apps/addin-dll/AddIn.h"
#include "apps/addin-dll/Module.h"
#include "apps/addin-dll/Registration.h"

#include <unknwn.h>

#include <atomic>
#include <new>

using namespace formwizard::apps::addin;

namespace {

class ClassFactory final : public IClassFactory {
 public:
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
    if (!object) return E_POINTER;
    *object = nullptr;
    if (id != IID_IUnknown && id != IID_IClassFactory) return E_NOINTERFACE;
    *object = this;
    AddRef();
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
  ULONG STDMETHODCALLTYPE Release() override {
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
  }

  HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID id, void** object) override {
    if (!object) return E_POINTER;
    *object = nullptr;
    if (outer) return CLASS_E_NOAGGREGATION;
    auto* addIn = new (std::nothrow) AddIn;
    if (!addIn) return E_OUTOFMEMORY;
    const HRESULT result = addIn->QueryInterface(id, object);
    addIn->Release();
    return result;
  }
  HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) override {
    lock ? HoldModule() : LetGoModule();
    return S_OK;
  }

 private:
  ~ClassFactory() = default;

  ModuleHold hold_;
  std::atomic<ULONG> references_ = 1;
};

}  // namespace

STDAPI DllGetClassObject(REFCLSID classId, REFIID id, void** object) {
  if (!object) return E_POINTER;
  *object = nullptr;
  if (classId != ClassId) return CLASS_E_CLASSNOTAVAILABLE;
  auto* factory = new (std::nothrow) ClassFactory;
  if (!factory) return E_OUTOFMEMORY;
  const HRESULT result = factory->QueryInterface(id, object);
  factory->Release();
  return result;
}

STDAPI DllCanUnloadNow() { return IsModuleHeld() ? S_FALSE : S_OK; }

STDAPI DllRegisterServer() { return Register(); }
STDAPI DllUnregisterServer() { return Unregister(); }
