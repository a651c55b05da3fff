// What the command line program is to Windows, and what only there can go wrong with its arguments, paths and output.
#include "tests/support/BuildTree.h"
#include "tests/support/TemporaryFolder.h"

#include <doctest/doctest.h>

#include <windows.h>

#include <array>
#include <string>
#include <tuple>

using namespace formwizard::tests;

TEST_CASE("The program's manifest is one, and says what the program relies on") {
  const std::wstring program = NativePath(BuiltProgram("ostrel-form-wizard")).make_preferred();
  ACTCTXW source{};
  source.cbSize = sizeof source;
  source.dwFlags = ACTCTX_FLAG_RESOURCE_NAME_VALID;
  source.lpSource = program.c_str();
  source.lpResourceName = MAKEINTRESOURCEW(1);
  const HANDLE context = ::CreateActCtxW(&source);
  REQUIRE(context != INVALID_HANDLE_VALUE);
  using Setting = std::tuple<const wchar_t*, const wchar_t*, const wchar_t*>;
  for (const auto& [year, name, expected] : {Setting{L"2005", L"dpiAware", L"true"},
                                             {L"2016", L"dpiAwareness", L"system"},
                                             {L"2016", L"longPathAware", L"true"}}) {
    const std::wstring space = std::wstring(L"http://schemas.microsoft.com/SMI/") + year + L"/WindowsSettings";
    std::array<wchar_t, 32> value{};
    SIZE_T size = 0;
    CHECK(::QueryActCtxSettingsW(0, context, space.c_str(), name, value.data(), value.size(), &size));
    CHECK(std::wstring(value.data()) == expected);
  }
  ACTIVATION_CONTEXT_RUN_LEVEL_INFORMATION level{};
  CHECK(::QueryActCtxW(0, context, nullptr, RunlevelInformationInActivationContext, &level, sizeof level, nullptr));
  CHECK(level.RunLevel == ACTCTX_RUN_LEVEL_AS_INVOKER);
  ::ReleaseActCtx(context);
}
