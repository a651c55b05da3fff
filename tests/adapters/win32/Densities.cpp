#include "tests/adapters/win32/Densities.h"
#include "tests/support/Test.h"

#include "adapters/win32/Screen.h"
#include "tests/adapters/win32/Anew.h"

#include <windows.h>

namespace formwizard::tests {
namespace {

constexpr wchar_t Variable[] = L"FORMWIZARD_DENSITY";
constexpr DWORD Designed = 96;

void SetDensity(DWORD dotsPerInch) {
  RegSetKeyValueW(HKEY_CURRENT_USER, L"Control Panel\\Desktop", L"LogPixels", REG_DWORD, &dotsPerInch,
                  sizeof(dotsPerInch));
}

bool IsWine() { return GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version") != nullptr; }

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
  for (const DWORD density : {Designed, DWORD{120}, DWORD{144}, DWORD{192}}) {
    CAPTURE(density);
    SetDensity(density);
    CHECK(RunAnew(Variable, std::to_wstring(density)) == 0);
  }
  SetDensity(Designed);
}

}  // namespace formwizard::tests
