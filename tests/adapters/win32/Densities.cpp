#include "tests/adapters/win32/Densities.h"

#include "adapters/win32/Screen.h"
#include "adapters/win32/Text.h"

#include <doctest/doctest.h>

#include <windows.h>

#include <process.h>
#include <array>
#include <cstdlib>
#include <string>

namespace formwizard::tests {
namespace {

constexpr wchar_t Variable[] = L"FORMWIZARD_DENSITY";
constexpr DWORD Designed = 96;

void SetDensity(DWORD dotsPerInch) {
  RegSetKeyValueW(HKEY_CURRENT_USER, L"Control Panel\\Desktop", L"LogPixels", REG_DWORD, &dotsPerInch,
                  sizeof(dotsPerInch));
}

bool IsWine() { return GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version") != nullptr; }

// A comma would separate two tests, so a sign for any character stands for it.
std::wstring ThisTest() {
  std::wstring name = adapters::win32::Wide(doctest::getContextOptions()->currentTest->m_name);
  for (wchar_t& character : name) {
    if (character == L',') character = L'?';
  }
  return L"\"--test-case=" + name + L"\"";
}

}  // namespace

void AtEveryDensity(const std::function<void(int dotsPerInch)>& check) {
  const wchar_t* told = _wgetenv(Variable);
  if (told || !IsWine()) {
    const int density = adapters::win32::DotsPerInch();
    CAPTURE(density);
    CHECK((!told || density == std::wcstol(told, nullptr, 10)));
    check(density);
    return;
  }
  std::array<wchar_t, 1024> program{};
  GetModuleFileNameW(nullptr, program.data(), static_cast<DWORD>(program.size()));
  for (const DWORD density : {Designed, DWORD{120}, DWORD{144}, DWORD{192}}) {
    CAPTURE(density);
    SetDensity(density);
    _wputenv_s(Variable, std::to_wstring(density).c_str());
    CHECK(_wspawnl(_P_WAIT, program.data(), L"test", ThisTest().c_str(), nullptr) == 0);
  }
  _wputenv_s(Variable, L"");
  SetDensity(Designed);
}

}  // namespace formwizard::tests
