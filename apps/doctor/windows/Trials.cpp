// What is tried out in a 32-bit program: loading the library, creating the add-in and the server's object factory.
#include "adapters/com/ComFactory.h"
#include "adapters/com/ComPtr.h"
#include "adapters/com/Failures.h"
#include "apps/doctor/windows/System.h"
#include "apps/doctor/windows/WindowsChecks.h"
#include "apps/registration/Entries.h"
#include "system/Text.h"

#include <objbase.h>

namespace formwizard::apps::doctor {
namespace {

namespace com = adapters::com;
using com::ComPtr;

class Automation {
 public:
  Automation() { com::Check(::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)); }
  ~Automation() { ::CoUninitialize(); }
  Automation(const Automation&) = delete;
  Automation& operator=(const Automation&) = delete;
};

// What a trial raises is the fault.
template <typename Trial>
Finding Tried(const std::string& what, const std::string& remedy, Trial&& trial) {
  try {
    trial();
    return {State::Good, what};
  } catch (const runtime::RuntimeError& error) {
    const std::string& reason = error.Description();
    return {State::Fault, what + " fails: " + reason.substr(0, reason.find_last_not_of('.') + 1), remedy};
  }
}

}  // namespace

Finding Loading() {
  if (const auto none = NoLibrary()) return *none;
  const std::string library = RegisteredLibrary().value_or("");
  return Tried("loading " + library, "install the add-in again", [&] {
    const HMODULE module = ::LoadLibraryExW(system::Wide(library).c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH);
    if (!module || !::GetProcAddress(module, "DllGetClassObject")) com::Check(HRESULT_FROM_WIN32(::GetLastError()));
  });
}

Finding Creation() {
  if (const auto none = NoLibrary()) return *none;
  const std::string library = RegisteredLibrary().value_or("");
  if (IsForUserOnly() && IsElevated(::GetCurrentProcessId())) {
    return {State::Unknown, "cannot be told: this program runs as an administrator and ignores classes of one user"};
  }
  return Tried("creating the add-in", "as an administrator, " + RegisteringCommand(library), [] {
    const Automation automation;
    CLSID id{};
    ComPtr<IUnknown> made;
    com::Check(::CLSIDFromProgID(registration::ProgId, &id));
    com::Check(::CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_IUnknown, made.ReceiveVoid()));
  });
}

Finding ServerCreation() {
  const std::string progId = com::ServersProgId;
  if (!RegistryText(HKEY_CLASSES_ROOT, progId + "\\CLSID")) {
    return {State::NotInstalled, "the server's client, which a class dictionary replaces"};
  }
  return Tried("creating the server's object factory", "install the server's client again", [&] {
    const Automation automation;
    com::ComFactoryCreator(progId).Create();
  });
}

}  // namespace formwizard::apps::doctor
