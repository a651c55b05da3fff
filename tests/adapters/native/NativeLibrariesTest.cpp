#include "adapters/native/NativeLibraries.h"

#include "tests/support/BuildTree.h"
#include "tests/support/TemporaryFolder.h"

#include <doctest/doctest.h>

#include <string>

using namespace formwizard::tests;

TEST_CASE("Texts of every language come out of the satellites whole, and cut to the size asked for") {
  const formwizard::adapters::native::NativeLibraries libraries;
  const std::string stem = BuiltFolder() + "OstrelFormWizard";
  TemporaryFolder folder;
  WriteFile(folder / "Größe 項目/x.dll", ReadFile(stem + "DEU.dll"));
  const auto german = libraries.LoadAsData(folder / "Größe 項目/x.dll");
  const auto japanese = libraries.LoadAsData(stem + "JPN.dll");
  REQUIRE(german);
  REQUIRE(japanese);
  CHECK(german->LoadString(203, 1024) == "S&chließen");
  CHECK(german->LoadString(203, 9) == "S&chließ");
  CHECK(german->LoadString(203, 1).empty());
  CHECK(german->LoadString(203, 0).empty());
  CHECK(german->LoadString(9999, 1024).empty());
  CHECK(japanese->LoadString(203, 1024) == "閉じる(&C)");  // whatever the machine's code page is

  WriteFile(folder / "text.dll", "no library");
  CHECK(libraries.LoadAsData(folder / "text.dll") == nullptr);
  CHECK(libraries.LoadAsData("OstrelFormWizardDEU.dll") == nullptr);  // not looked for in other folders
}

TEST_CASE("The user's language is three letters, and of the same locale as the number") {
  const formwizard::adapters::native::NativeLibraries libraries;
  const std::string language = libraries.UserLanguage();
  CHECK(language.size() == 3);
  CHECK(libraries.UserLocaleId() > 0);
  if (libraries.UserLocaleId() == 1033) CHECK(language == "ENU");
}
