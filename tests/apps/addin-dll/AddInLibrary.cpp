#include "tests/apps/addin-dll/AddInLibrary.h"

#include "adapters/com/Failures.h"
#include "apps/registration/Registration.h"
#include "system/Text.h"

#include <objbase.h>

namespace formwizard::tests::host {
namespace {

constexpr char LibraryName[] = "OstrelFormWizard.dll";

template <typename Function>
Function Export(HMODULE library, const char* name) {
  const FARPROC address = ::GetProcAddress(library, name);
  if (!address) throw std::runtime_error(std::string("the library does not export ") + name);
  return reinterpret_cast<Function>(reinterpret_cast<void*>(address));
}

std::string InstalledLibrary() {
  for (const auto scope : apps::registration::BothScopes) {
    if (const auto library = apps::registration::RegisteredLibrary(scope)) return formwizard::system::Utf8(*library);
  }
  throw std::runtime_error("no library is registered");
}

}  // namespace

std::string Installer() {
  const char* installer = std::getenv("FORMWIZARD_INSTALLER");
  return installer ? installer : "";
}

AddInLibrary::AddInLibrary() {
  if (Installer().empty()) {
    library_ = folder_ / LibraryName;
    std::filesystem::copy_file(NativePath(BuiltFolder() + LibraryName), NativePath(library_));
  } else {
    library_ = InstalledLibrary();
  }
  handle_ = ::LoadLibraryW(NativePath(library_).c_str());
  if (!handle_) throw std::runtime_error("the library cannot be loaded");
}

AddInLibrary::~AddInLibrary() { ::FreeLibrary(handle_); }

HRESULT AddInLibrary::Call(const char* name) const { return Export<HRESULT(STDMETHODCALLTYPE*)()>(handle_, name)(); }

HRESULT AddInLibrary::Install(bool install, const wchar_t* scope) const {
  return Export<HRESULT(STDMETHODCALLTYPE*)(BOOL, PCWSTR)>(handle_, "DllInstall")(install, scope);
}

com::ComPtr<IUnknown> AddInLibrary::Create(REFIID id, IUnknown* outer) const {
  com::ComPtr<IUnknown> addIn;
  if (!Installer().empty()) {
    GUID classId{};
    com::Check(::CLSIDFromProgID(AddInProgId, &classId));
    com::Check(::CoCreateInstance(classId, outer, CLSCTX_INPROC_SERVER, id, addIn.ReceiveVoid()));
    return addIn;
  }
  const auto getClassObject =
      Export<HRESULT(STDMETHODCALLTYPE*)(REFCLSID, REFIID, void**)>(handle_, "DllGetClassObject");
  com::ComPtr<IClassFactory> factory;
  com::Check(getClassObject(apps::registration::ClassId, IID_IClassFactory, factory.ReceiveVoid()));
  com::Check(factory->CreateInstance(outer, id, addIn.ReceiveVoid()));
  return addIn;
}

}  // namespace formwizard::tests::host
