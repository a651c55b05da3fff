#include "tests/adapters/win32/Anew.h"
#include "tests/support/Test.h"

#include "adapters/win32/Text.h"

#include <windows.h>

#include <process.h>

namespace formwizard::tests {
namespace {

// A comma would separate two tests, so a sign for any character stands for it.
std::wstring ThisTest() {
  std::wstring name = adapters::win32::Wide(doctest::getContextOptions()->currentTest->m_name);
  for (wchar_t& character : name) {
    if (character == L',') character = L'?';
  }
  return L"\"--test-case=" + name + L"\"";
}

}  // namespace

int RunAnew(const wchar_t* variable, const std::wstring& told) {
  std::array<wchar_t, 1024> program{};
  GetModuleFileNameW(nullptr, program.data(), static_cast<DWORD>(program.size()));
  _wputenv_s(variable, told.c_str());
  const auto status = _wspawnl(_P_WAIT, program.data(), L"test", ThisTest().c_str(), nullptr);
  _wputenv_s(variable, L"");
  return static_cast<int>(status);
}

void KillThisProcess() {
  TerminateProcess(GetCurrentProcess(), Killed);
  std::abort();
}

}  // namespace formwizard::tests
