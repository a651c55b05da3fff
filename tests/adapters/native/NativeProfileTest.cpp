#include "adapters/native/AnsiText.h"
#include "adapters/native/NativeProfile.h"

#include "tests/adapters/profile/ProfileCases.h"

using namespace formwizard::adapters::native;
using namespace formwizard::tests;

TEST_CASE("The platform's rules reach the wizard unchanged, in the machine's code page") {
  CheckStore<NativeProfile>(ToAnsi);
  ProfileFixture<NativeProfile> profile;
  CHECK(profile.Put("Size", "weiß"));
  CHECK(profile.Get("Size", "", 4) == "wei");
}

TEST_CASE("A profile named without a folder is the one in the current folder, not the one of Windows") {
  ProfileFixture<NativeProfile> profile;
  const std::filesystem::path before = std::filesystem::current_path();
  std::filesystem::current_path(profile.Folder.Path());
  profile.File = "own.ini";
  CHECK(profile.Put("Here", "yes"));
  const std::string value = profile.Get("Here");
  std::filesystem::current_path(before);
  CHECK(value == "yes");
  CHECK(ReadFile(profile.Folder / "own.ini") == "[Wizard]\r\nHere=yes\r\n");
}
