#include "adapters/native/NativeLibraries.h"
#include "adapters/satellite/StringResources.h"

#include "tests/support/TemporaryFolder.h"

#include <random>

using namespace formwizard::tests;

namespace {
const formwizard::adapters::native::NativeLibraries libraries(formwizard::adapters::satellite::IsSatellite);
}

TEST_CASE("Texts of every language come out of the satellites whole, and cut to the size asked for") {
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

TEST_CASE("A satellite that is cut or damaged is none, or harmless") {
  const std::string whole = ReadFile(BuiltFolder() + "OstrelFormWizardDEU.dll");
  TemporaryFolder folder;
  const auto load = [&](const std::string& bytes) {
    WriteFile(folder / "x.dll", bytes);
    return libraries.LoadAsData(folder / "x.dll");
  };
  CHECK(load(whole));
  CHECK(load(whole.substr(0, whole.size() - 1)) == nullptr);
  for (std::size_t size = 0; size < whole.size(); size += 512) CHECK(load(whole.substr(0, size)) == nullptr);
  std::mt19937 random(20031);
  for (int round = 0; round < 300; ++round) {
    std::string bytes = whole;
    for (int i = 0; i < 8; ++i) bytes[random() % (i < 4 ? 1024 : bytes.size())] = static_cast<char>(random());
    const auto library = load(bytes);
    for (int id = 0; library && id < 700; ++id) CHECK(library->LoadString(id, 1024).size() < 4096);
  }
}

TEST_CASE("The user's language is three letters, and of the same locale as the number") {
  const std::string language = libraries.UserLanguage();
  CHECK(language.size() == 3);
  CHECK(libraries.UserLocaleId() > 0);
  if (libraries.UserLocaleId() == 1033) CHECK(language == "ENU");
}
