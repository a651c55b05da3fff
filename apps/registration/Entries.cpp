#include "apps/registration/Entries.h"

#include <objbase.h>

#include <array>

namespace formwizard::apps::registration {
namespace {

constexpr wchar_t Name[] = L"Ostrel Form Wizard";
constexpr wchar_t Description[] = L"Creates complete forms for the persistent classes of an Ostrel system.";
constexpr DWORD AtStartup = 1;

std::wstring ClassIdText() {
  std::array<wchar_t, 39> text{};
  StringFromGUID2(ClassId, text.data(), static_cast<int>(text.size()));
  return text.data();
}

std::wstring ProgIdKey() { return std::wstring(L"Software\\Classes\\") + ProgId; }
std::wstring ClassKey() { return L"Software\\Classes\\CLSID\\" + ClassIdText(); }
std::wstring AddInKey() { return std::wstring(ListParents[2]) + L"\\" + ProgId; }

}  // namespace

std::wstring ServerKey() { return ClassKey() + L"\\InprocServer32"; }

std::vector<Entry> EntriesFor(const std::wstring& library) {
  return {{List::Classes, ProgIdKey(), L"", Name},
          {List::Classes, ProgIdKey() + L"\\CLSID", L"", ClassIdText()},
          {List::Classes, ClassKey(), L"", Name},
          {List::Classes, ClassKey() + L"\\ProgID", L"", ProgId},
          {List::Classes, ServerKey(), L"", library},
          {List::Classes, ServerKey(), L"ThreadingModel", L"Apartment"},
          {List::AddIns, AddInKey(), L"FriendlyName", Name},
          {List::AddIns, AddInKey(), L"Description", Description},
          {List::AddIns, AddInKey(), L"LoadBehavior", AtStartup, true},
          {List::AddIns, AddInKey(), L"CommandLineSafe", DWORD{0}, true}};
}

std::vector<std::wstring> KeysOf(List list) {
  if (list == List::AddIns) return {AddInKey()};
  return {ProgIdKey(), ClassKey()};
}

}  // namespace formwizard::apps::registration
