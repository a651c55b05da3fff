// The add-in's library as the system and the environment use it: loaded from a folder of its own, called through its
// exports and through the vtables of its object.
#pragma once

#include "adapters/com/ComPtr.h"
#include "tests/support/TemporaryFolder.h"

#include <windows.h>

#include <oleauto.h>

namespace formwizard::tests::host {

namespace com = adapters::com;

inline constexpr wchar_t AddInProgId[] = L"OstrelFormWizard.Wizard";
inline constexpr GUID Extensibility{0x0002E151, 0x0000, 0x0000, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
inline constexpr GUID Extensibility2{0xB65AD801, 0xABAF, 0x11D0, {0xBB, 0x8B, 0x00, 0xA0, 0xC9, 0x0F, 0x27, 0x44}};

// The places of the methods in the vtables of both interfaces.
namespace slot {
inline constexpr std::size_t OnConnection = 7, OnDisconnection = 8, OnAddInsUpdate = 9, OnStartupComplete = 10,
                             OnBeginShutdown = 11;
}

template <typename... Arguments>
HRESULT CallSlot(IUnknown* object, std::size_t place, Arguments... arguments) {
  using Method = HRESULT(STDMETHODCALLTYPE*)(IUnknown*, Arguments...);
  void** const methods = *reinterpret_cast<void***>(object);
  return reinterpret_cast<Method>(methods[place])(object, arguments...);
}

inline HRESULT Connect(IUnknown* addIn, IDispatch* root, LONG mode) {
  return CallSlot<IDispatch*, LONG, IDispatch*, SAFEARRAY**>(addIn, slot::OnConnection, root, mode, nullptr, nullptr);
}
inline HRESULT Disconnect(IUnknown* addIn) {
  return CallSlot<LONG, SAFEARRAY**>(addIn, slot::OnDisconnection, 0, nullptr);
}

// The installer whose installed library is tested in place of the built one, by the environment variable
// FORMWIZARD_INSTALLER; empty where it is not set.
std::string Installer();

// A copy of the library, whose profile file stands beside it and goes with it; or the installed one.
class AddInLibrary : Pinned {
 public:
  AddInLibrary();
  ~AddInLibrary();

  std::string Path() const { return library_; }
  // With the separator at its end.
  std::string Folder() const { return library_.substr(0, library_.find_last_of("/\\") + 1); }
  std::string Profile() const { return Folder() + "outility.ini"; }
  HMODULE Handle() const { return handle_; }
  // An export that takes nothing, such as DllCanUnloadNow.
  HRESULT Call(const char* name) const;
  // DllInstall.
  HRESULT Install(bool install, const wchar_t* scope) const;
  // From the library's own class factory, without the system's list of classes; the installed one by that list.
  com::ComPtr<IUnknown> Create(REFIID id, IUnknown* outer = nullptr) const;

 private:
  TemporaryFolder folder_;
  std::string library_;
  HMODULE handle_;
};

}  // namespace formwizard::tests::host
