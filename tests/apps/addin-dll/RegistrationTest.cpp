// What the library enters into the registry, for all users or for one, and takes out again.
#include "apps/registration/Registration.h"

#include "adapters/com/Text.h"
#include "tests/apps/addin-dll/AddInLibrary.h"
#include "tests/support/FakeDispatch.h"

#include <olectl.h>
#include <sddl.h>

using namespace formwizard::tests;
using namespace formwizard::tests::host;
using namespace formwizard::apps::registration;
using formwizard::adapters::com::ComPtr;

namespace {

const HKEY Hives[] = {HKEY_LOCAL_MACHINE, HKEY_CURRENT_USER};
constexpr wchar_t OldFile[] = L"C:\\old\\OstrelFormWizard.dll";

// Does something with a key that is there; false when there is none, or it cannot be opened.
template <typename Work>
bool WithKey(HKEY hive, const std::wstring& name, REGSAM access, Work&& work) {
  HKEY key = nullptr;
  if (::RegOpenKeyExW(hive, name.c_str(), 0, access | KEY_WOW64_32KEY, &key) != ERROR_SUCCESS) return false;
  work(key);
  ::RegCloseKey(key);
  return true;
}
bool Exists(HKEY hive, const std::wstring& name) {
  return WithKey(hive, name, KEY_READ, [](HKEY) {});
}

// All that is entered, a letter each: of the machine's class and list, of the user's, and the older list. A capital is
// as it should be for the library.
std::string Registered(const std::wstring& library) {
  std::string all;
  for (const Scope scope : BothScopes) {
    for (const auto& [list, letter] : {std::pair{List::Classes, 'c'}, std::pair{List::AddIns, 'l'}}) {
      const auto entries = Read(scope, list, library);
      const bool isRight = std::ranges::all_of(entries, &Reading::IsRight);
      const bool isThere =
          std::ranges::any_of(entries, [](const Reading& entry) { return entry.Status == ERROR_SUCCESS; });
      all += isRight ? static_cast<char>(letter - 'a' + 'A') : isThere ? letter : '-';
    }
    all += ' ';
  }
  return all + (IsInOlderList() ? "O" : "-");
}

HRESULT CreateRegistered(ComPtr<IUnknown>& addIn) {
  CLSID id{};
  const HRESULT result = ::CLSIDFromProgID(AddInProgId, &id);
  if (FAILED(result)) return result;
  return ::CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, Extensibility, addIn.ReceiveVoid());
}

// Who may do what with the machine's keys of the add-in, as long as it lives.
class Rights : Pinned {
 public:
  explicit Rights(const wchar_t* granted) { Set(granted); }
  ~Rights() { Set(L"D:(A;;KA;;;WD)"); }

 private:
  static void Set(const wchar_t* granted) {
    PSECURITY_DESCRIPTOR descriptor = nullptr;
    REQUIRE(::ConvertStringSecurityDescriptorToSecurityDescriptorW(granted, SDDL_REVISION_1, &descriptor, nullptr));
    for (const Entry& entry : EntriesFor(L"")) {
      WithKey(HKEY_LOCAL_MACHINE, entry.Key, WRITE_DAC, [&](HKEY key) {
        CHECK(::RegSetKeySecurity(key, DACL_SECURITY_INFORMATION, descriptor) == ERROR_SUCCESS);
      });
    }
    ::LocalFree(descriptor);
  }
};
constexpr wchar_t LookOnly[] = L"D:(A;;KRWD;;;WD)";  // and give rights back

// The registry must be as bare before as after.
struct BareRegistry {
  BareRegistry() { CHECK(Bare()); }
  ~BareRegistry() {
    Unregister(BothScopes);
    CHECK(Bare());
  }
  static bool Bare() {
    return std::ranges::none_of(Hives,
                                [](HKEY hive) {
                                  return std::ranges::any_of(
                                      std::array{ListParents[0], L"Software\\Classes\\OstrelFormWizard.Wizard",
                                                 L"Software\\Classes\\CLSID\\{21C062AC-2BC3-4D75-A2FD-04517B9CF298}"},
                                      [&](const wchar_t* key) { return Exists(hive, key); });
                                }) &&
           ::GetFileAttributesW(L"C:\\windows\\vbaddin.ini") == INVALID_FILE_ATTRIBUTES;
  }
};

struct RegistrationFixture {
  NothingIsLeft AtTheEnd;
  BareRegistry Registry;
  AddInLibrary Library;
  std::wstring Path = com::Wide(Library.Path());

  // Registers or unregisters by "register", "unregister", "+SCOPE" or "-SCOPE".
  HRESULT Do(const std::string& what) const {
    if (what == "register") return Library.Call("DllRegisterServer");
    if (what == "unregister") return Library.Call("DllUnregisterServer");
    return Library.Install(what[0] == '+', com::Wide(what.substr(1)).c_str());
  }
};

}  // namespace

TEST_CASE_FIXTURE(RegistrationFixture,
                  "Whatever is registered before, each step leaves one class and no list without one") {
  struct Step {
    std::string What, Expected;
    HRESULT Result = S_OK;
  };
  // In Entries.h is what the letters stand for; small ones name another file.
  const std::vector<Step> passes[] = {
      {{"register", "CL -- O"}, {"register", "CL -- O"}, {"unregister", "-- -- -"}, {"unregister", "-- -- -"}},
      {{"+user", "-- CL O"}, {"+machine", "CL -L O"}, {"-machine", "-- -- -"}},
      {{"+MACHINE", "CL -- O"}, {"+user", "CL CL O"}, {"-user", "CL -- O"}, {"unregister", "-- -- -"}},
      {{"old", "-- cL O"}, {"register", "CL -L O"}, {"-user", "CL -- O"}, {"-machine", "-- -- -"}},
      {{"+user", "-- CL O"}, {"list", "-- CL O"}, {"+everyone", "-- CL O", E_INVALIDARG}, {"-user", "-- -- -"}},
      {{"list", "-- -L O"}, {"unregister", "-- -- -"}},
  };
  for (const auto& pass : passes) {
    for (const Step& step : pass) {
      CAPTURE(step.What);
      if (step.What == "old") {
        CHECK(Register(Scope::User, OldFile) == ERROR_SUCCESS);
      } else if (step.What == "list") {
        CHECK(EnterUsersList() == ERROR_SUCCESS);
      } else {
        CHECK(Do(step.What) == step.Result);
      }
      CHECK(Registered(Path) == step.Expected);
    }
    CHECK(Registry.Bare());
  }
}

TEST_CASE_FIXTURE(RegistrationFixture,
                  "Without the rights to the machine's entries it registers for the user, and unregisters nothing") {
  CHECK(Register(Scope::Machine, OldFile) == ERROR_SUCCESS);
  {
    const Rights rights(LookOnly);
    CHECK(Do("+machine") == SELFREG_E_CLASS);
    CHECK(Registered(OldFile) == "CL -- O");
    CHECK(Do("register") == S_OK);
    CHECK(Registered(Path) == "cL CL O");
    for (const char* way : {"unregister", "-machine"}) CHECK(Do(way) == SELFREG_E_CLASS);
    CHECK(Registered(Path) == "cL CL O");
    CHECK(Do("-user") == S_OK);
    CHECK(Registered(OldFile) == "CL -- O");
  }
  CHECK(Do("unregister") == S_OK);
}

TEST_CASE_FIXTURE(RegistrationFixture, "The registered class can be created, and what an entry has become is told") {
  ComPtr<IUnknown> addIn;
  CHECK(FAILED(CreateRegistered(addIn)));
  CHECK(Do("register") == S_OK);
  constexpr bool isOf32Bits = sizeof(void*) == 4;  // no other program is to find the class
  CHECK(SUCCEEDED(CreateRegistered(addIn)) == isOf32Bits);
  CHECK(RegisteredLibrary(Scope::Machine) == Path);
  CHECK_FALSE(RegisteredLibrary(Scope::User));
  CHECK(Library.Call("DllCanUnloadNow") == (isOf32Bits ? S_FALSE : S_OK));
  addIn = {};
  const std::wstring list = KeysOf(List::AddIns).front();
  const auto setNumber = [&](const wchar_t* name) {
    const BYTE number[sizeof(DWORD)] = {};
    CHECK(WithKey(HKEY_LOCAL_MACHINE, list, KEY_SET_VALUE,
                  [&](HKEY key) { ::RegSetValueExW(key, name, 0, REG_DWORD, number, sizeof(number)); }));
  };
  setNumber(L"LoadBehavior");
  CHECK(Registered(Path) == "CL -- O");  // the user's own choice
  setNumber(L"FriendlyName");
  CHECK(Read(Scope::Machine, List::AddIns, Path).front().Status == ERROR_UNSUPPORTED_TYPE);
  CHECK(Do("unregister") == S_OK);
  CHECK(FAILED(CreateRegistered(addIn)));
  CHECK(Library.Call("DllCanUnloadNow") == S_OK);
  ::CoFreeUnusedLibrariesEx(0, 0);
}
