#include "adapters/profile/ProfileFile.h"

#include "tests/support/TemporaryFolder.h"

#include <doctest/doctest.h>

using namespace formwizard::adapters::profile;
using namespace formwizard::tests;

namespace {

struct ProfileFixture {
  TemporaryFolder Folder;
  std::string File = Folder / "outility.ini";
  ProfileFiles Files;

  std::string Get(const char* key, const char* standard = "none", std::size_t size = 2048) {
    return Files.GetProfileString("Wizard", key, standard, size, File);
  }
};

}  // namespace

TEST_CASE("The first match is read, in any case of its letters, without blanks and quotes") {
  ProfileFixture profile;
  WriteFile(
      profile.File,
      "Key=outside\r\n[other]\r\nKey=wrong\r\n; [Wizard]\r\n [ wizard ] \r\n;Key=comment\r\nNoValue\r\n"
      " KEY = first \r\nkey=second\r\nQuoted=\" a b \"\r\nHalf=\"a\r\nEmpty=\r\nÄ=Größe\r\n[Wizard]\r\nLate=x\r\n");
  CHECK(profile.Get("key") == "first");
  CHECK(profile.Get("quoted") == " a b ");
  CHECK(profile.Get("Half") == "\"a");
  CHECK(profile.Get("Empty").empty());
  CHECK(profile.Get("Ä") == "Größe");
  CHECK(profile.Get("NoValue", "standard  ") == "standard");
  CHECK(profile.Get("Late") == "none");  // a second section of the name does not count
  CHECK(profile.Get("key", "", 4) == "fir");
  CHECK(profile.Files.GetProfileString("Wizard", "key", "standard", 100, profile.Folder / "missing.ini") == "standard");
}

TEST_CASE("Writing changes the value's text and nothing else") {
  ProfileFixture profile;
  const std::string before = "; mine\r\n[a]\r\nx=1\r\n\r\n[Wizard]\r\nColumns = 2\r\n; note\r\n\r\n[b]\r\nColumns=9";
  WriteFile(profile.File, before);
  CHECK(profile.Files.WriteProfileString("WIZARD", "columns", "3", profile.File));
  CHECK(ReadFile(profile.File) ==
        "; mine\r\n[a]\r\nx=1\r\n\r\n[Wizard]\r\nColumns =3\r\n; note\r\n\r\n[b]\r\nColumns=9");
  CHECK(profile.Files.WriteProfileString("Wizard", "New", "y", profile.File));
  CHECK(profile.Files.WriteProfileString("c", "New", "z", profile.File));
  CHECK(ReadFile(profile.File) ==
        "; mine\r\n[a]\r\nx=1\r\n\r\n[Wizard]\r\nColumns =3\r\n; "
        "note\r\nNew=y\r\n\r\n[b]\r\nColumns=9\r\n[c]\r\nNew=z\r\n");
  const std::string unix = profile.Folder / "unix.ini";
  WriteFile(unix, "[Wizard]\nA=1\n");
  CHECK(profile.Files.WriteProfileString("Wizard", "B", "2", unix));
  CHECK(ReadFile(unix) == "[Wizard]\nA=1\nB=2\n");
}

TEST_CASE("A write replaces the file as a whole, keeps its permissions and creates its folder") {
  ProfileFixture profile;
  const std::string deep = profile.Folder / "a/b/outility.ini";
  CHECK(profile.Files.WriteProfileString("Wizard", "LastConnect", "Samples", deep));
  CHECK(ReadFile(deep) == "[Wizard]\r\nLastConnect=Samples\r\n");
  std::filesystem::permissions(NativePath(deep),
                               std::filesystem::perms::owner_read | std::filesystem::perms::owner_write);
  const auto permissions = std::filesystem::status(NativePath(deep)).permissions();
  CHECK(profile.Files.WriteProfileString("Wizard", "LastConnect", "Archive", deep));
  CHECK(std::filesystem::status(NativePath(deep)).permissions() == permissions);
  CHECK(FilesIn(profile.Folder.Path()).size() == 1);  // nothing is left beside it
  WriteFile(profile.Folder / "file", "");
  CHECK_FALSE(profile.Files.WriteProfileString("Wizard", "A", "1", profile.Folder / "file/outility.ini"));
}
