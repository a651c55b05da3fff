#include "adapters/native/AnsiText.h"
#include "adapters/native/NativeProfile.h"

#include "tests/support/TemporaryFolder.h"

#include <doctest/doctest.h>

using namespace formwizard::adapters::native;
using namespace formwizard::tests;

namespace {

struct ProfileFixture {
  TemporaryFolder Folder;
  std::string File = Folder / "outility.ini";
  NativeProfile Files;

  std::string Get(const char* key, const char* standard = "none", std::size_t size = 2048) {
    return Files.GetProfileString("Wizard", key, standard, size, File);
  }
};

}  // namespace

TEST_CASE("The platform's reading rules reach the wizard unchanged") {
  ProfileFixture profile;
  WriteFile(profile.File, "[other]\r\nKey=wrong\r\n[wizard]\r\n KEY = first \r\nkey=second\r\nQuoted=\" a b \"\r\n" +
                              ToAnsi("Größe=weiß\r\n"));
  CHECK(profile.Get("key") == "first");
  CHECK(profile.Get("quoted") == " a b ");
  CHECK(profile.Get("Größe") == "weiß");
  CHECK(profile.Get("Missing", "standard  ") == "standard");
  CHECK(profile.Get("key", "", 4) == "fir");
  CHECK(profile.Get("Größe", "", 4) == "wei");
  CHECK(profile.Get("key", "", 0).empty());
  CHECK(profile.Files.GetProfileString("Wizard", "key", "standard", 100, profile.Folder / "none.ini") == "standard");
}

TEST_CASE("A written text is read again, from a file in the machine's code page, in any folder") {
  ProfileFixture profile;
  for (const char* name : {"outility.ini", "a/b/outility.ini", "Gebühren Žluťoučký 項目/outility.ini"}) {
    CAPTURE(name);
    profile.File = profile.Folder / name;
    CHECK(profile.Files.WriteProfileString("Wizard", "LastConnect", "Bücher", profile.File));
    CHECK(ReadFile(profile.File) == ToAnsi("[Wizard]\r\nLastConnect=Bücher\r\n"));
    CHECK(profile.Files.WriteProfileString("Wizard", "Columns", "2", profile.File));
    CHECK(profile.Get("LastConnect") == "Bücher");
    CHECK(profile.Get("Columns") == "2");
  }
  WriteFile(profile.Folder / "file", "");
  CHECK_FALSE(profile.Files.WriteProfileString("Wizard", "A", "1", profile.Folder / "file/outility.ini"));
}

TEST_CASE("A profile named without a folder is the one in the current folder, not the one of Windows") {
  ProfileFixture profile;
  const std::filesystem::path before = std::filesystem::current_path();
  std::filesystem::current_path(profile.Folder.Path());
  CHECK(profile.Files.WriteProfileString("Wizard", "Here", "yes", "own.ini"));
  const std::string value = profile.Files.GetProfileString("Wizard", "Here", "no", 10, "own.ini");
  std::filesystem::current_path(before);
  CHECK(value == "yes");
  CHECK(ReadFile(profile.Folder / "own.ini") == "[Wizard]\r\nHere=yes\r\n");
}
