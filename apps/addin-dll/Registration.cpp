#include "apps/addin-dll/Registration.h"

#include "apps/addin-dll/Module.h"

#include <objbase.h>
#include <olectl.h>

#include <array>
#include <string>

namespace formwizard::apps::addin {
namespace {

constexpr wchar_t Name[] = L"Ostrel Form Wizard";
constexpr wchar_t Description[] = L"Creates complete forms for the persistent classes of an Ostrel system.";
constexpr DWORD AtStartup = 1;
const std::array Hives{HKEY_LOCAL_MACHINE, HKEY_CURRENT_USER};

std::wstring ClassIdText() {
  std::array<wchar_t, 39> text{};
  StringFromGUID2(ClassId, text.data(), static_cast<int>(text.size()));
  return text.data();
}

std::wstring ProgIdKey() { return std::wstring(L"Software\\Classes\\") + ProgId; }
std::wstring ClassKey() { return L"Software\\Classes\\CLSID\\" + ClassIdText(); }
std::wstring AddInKey() { return std::wstring(L"Software\\Microsoft\\Visual Basic\\6.0\\Addins\\") + ProgId; }

bool SetText(HKEY hive, const std::wstring& key, const wchar_t* name, const std::wstring& text) {
  const std::size_t bytes = (text.size() + 1) * sizeof(wchar_t);
  return RegSetKeyValueW(hive, key.c_str(), name, REG_SZ, text.c_str(), static_cast<DWORD>(bytes)) == ERROR_SUCCESS;
}

bool SetNumber(HKEY hive, const std::wstring& key, const wchar_t* name, DWORD number) {
  return RegSetKeyValueW(hive, key.c_str(), name, REG_DWORD, &number, sizeof(number)) == ERROR_SUCCESS;
}

bool EnterClass(HKEY hive) {
  const std::wstring server = ClassKey() + L"\\InprocServer32";
  return SetText(hive, ProgIdKey(), nullptr, Name) && SetText(hive, ProgIdKey() + L"\\CLSID", nullptr, ClassIdText()) &&
         SetText(hive, ClassKey(), nullptr, Name) && SetText(hive, ClassKey() + L"\\ProgID", nullptr, ProgId) &&
         SetText(hive, server, nullptr, ModulePath()) && SetText(hive, server, L"ThreadingModel", L"Apartment");
}

// The environment's list is the user's. Its older list, a file in the Windows folder, knows the same add-in; that
// folder may be out of reach.
bool EnterAddIn() {
  WritePrivateProfileStringW(L"Add-Ins32", ProgId, L"1", L"vbaddin.ini");
  return SetText(HKEY_CURRENT_USER, AddInKey(), L"FriendlyName", Name) &&
         SetText(HKEY_CURRENT_USER, AddInKey(), L"Description", Description) &&
         SetNumber(HKEY_CURRENT_USER, AddInKey(), L"LoadBehavior", AtStartup) &&
         SetNumber(HKEY_CURRENT_USER, AddInKey(), L"CommandLineSafe", 0);
}

void Remove(HKEY hive, const std::wstring& key) {
  RegDeleteTreeW(hive, key.c_str());
  RegDeleteKeyW(hive, key.c_str());
}

}  // namespace

HRESULT Register() {
  for (const HKEY hive : Hives) {
    if (EnterClass(hive)) return EnterAddIn() ? S_OK : SELFREG_E_CLASS;
  }
  return SELFREG_E_CLASS;
}

HRESULT Unregister() {
  for (const HKEY hive : Hives) {
    Remove(hive, ClassKey());
    Remove(hive, ProgIdKey());
    Remove(hive, AddInKey());
  }
  WritePrivateProfileStringW(L"Add-Ins32", ProgId, nullptr, L"vbaddin.ini");
  return S_OK;
}

}  // namespace formwizard::apps::addin
