// What the command line program is to Windows, and what only there can go wrong with its arguments, paths and output.
#include "tests/support/BuildTree.h"
#include "tests/support/RunProgram.h"
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
                                             {L"2016", L"longPathAware", L"true"},
                                             {L"2019", L"activeCodePage", L"UTF-8"}}) {
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

namespace {

struct Place {
  TemporaryFolder Folder;
  Place() {
    CopySample("new-project", Folder / "project");
    CHECK(Run("dictionary import \"" + SourceFolder() + "/samples/dictionary.json\" d.sqlite").Status == 0);
  }
  Outcome Run(const std::string& arguments) const {
    return RunProgram(BuiltProgram("ostrel-form-wizard"), arguments, Folder);
  }
  std::string Generate(const std::string& more) const {
    return "generate --project project/Project1.vbp --dictionary d.sqlite --toolbox \"" + SourceFolder() +
           "/samples/toolbox.ini\" " + more;
  }
};

}  // namespace

TEST_CASE("Settings are shared with the add-in, in the machine's code page, although the program's own is UTF-8") {
  const Place place;
  std::string dictionary = ReadFile(SourceFolder() + "/samples/dictionary.json");
  dictionary.replace(dictionary.find("\"Samples\"") + 1, 7, "Bücher");
  WriteFile(place.Folder / "d.json", dictionary);
  CHECK(place.Run("dictionary import d.json d.sqlite").Status == 0);
  const std::string before =
      "[Other]\r\nName=B\xFC"
      "cher\r\n[OstrelFormWizard]\r\nColumns=2\r\n";
  WriteFile(place.Folder / "own.ini", before);
  const Outcome made = place.Run(place.Generate("--profile own.ini --class Sample.Person --fields Name"));
  CHECK_MESSAGE(made.Status == 0, made.Error);
  CHECK(ReadFile(place.Folder / "own.ini") == before +
                                                  "LastConnect=B\xFC"
                                                  "cher\r\n");
}
