#include "tests/apps/addin-dll/AddInLibrary.h"

#include "adapters/com/Failures.h"
#include "apps/registration/Entries.h"
#include "tests/support/BuildTree.h"

#include <filesystem>
#include <stdexcept>

namespace formwizard::tests::host {
namespace {

template <typename Function>
Function Export(HMODULE library, const char* name) {
  const FARPROC address = ::GetProcAddress(library, name);
  if (!address) throw std::runtime_error(std::string("the library does not export ") + name);
  return reinterpret_cast<Function>(reinterpret_cast<void*>(address));
}

}  // namespace

AddInLibrary::AddInLibrary() {
  std::filesystem::copy_file(NativePath(BuiltFolder() + "OstrelFormWizard.dll"), NativePath(Path()));
  handle_ = ::LoadLibraryW(NativePath(Path()).c_str());
  if (!handle_) throw std::runtime_error("the library cannot be loaded");
}

AddInLibrary::~AddInLibrary() { ::FreeLibrary(handle_); }

HRESULT AddInLibrary::Call(const char* name) const { return Export<HRESULT(STDMETHODCALLTYPE*)()>(handle_, name)(); }

HRESULT AddInLibrary::Install(bool install, const wchar_t* scope) const {
  return Export<HRESULT(STDMETHODCALLTYPE*)(BOOL, PCWSTR)>(handle_, "DllInstall")(install, scope);
}

com::ComPtr<IUnknown> AddInLibrary::Create(REFIID id, IUnknown* outer) const {
  const auto getClassObject =
      Export<HRESULT(STDMETHODCALLTYPE*)(REFCLSID, REFIID, void**)>(handle_, "DllGetClassObject");
  com::ComPtr<IClassFactory> factory;
  com::Check(getClassObject(apps::registration::ClassId, IID_IClassFactory, factory.ReceiveVoid()));
  com::ComPtr<IUnknown> addIn;
  com::Check(factory->CreateInstance(outer, id, addIn.ReceiveVoid()));
  return addIn;
}

}  // namespace formwizard::tests::host
