// What the wizard relies on whichever store keeps its profile. `encode` turns a UTF-8 text into the store's bytes.
#pragma once

#include "tests/support/TemporaryFolder.h"

namespace formwizard::tests {

template <typename Store>
struct ProfileFixture {
  TemporaryFolder Folder;
  std::string File = Folder / "outility.ini";
  Store Profiles;

  std::string Get(const char* key, const char* standard = "none", std::size_t size = 2048) {
    return Profiles.GetProfileString("Wizard", key, standard, size, File);
  }
  bool Put(const char* key, const char* value) { return Profiles.WriteProfileString("Wizard", key, value, File); }
};

template <typename Store>
void CheckStore(std::string (*encode)(std::string_view utf8)) {
  ProfileFixture<Store> profile;
  CHECK(profile.Get("key", "standard  ") == "standard");  // there is no file
  WriteFile(profile.File, "[other]\r\nKey=wrong\r\n[wizard]\r\n KEY = first \r\nkey=second\r\nQuoted=\" a b \"\r\n");
  CHECK(profile.Get("key") == "first");
  CHECK(profile.Get("quoted") == " a b ");
  CHECK(profile.Get("Missing", "standard  ") == "standard");
  CHECK(profile.Get("key", "", 4) == "fir");
  CHECK(profile.Get("key", "", 0).empty());
  for (const char* name : {"new.ini", "a/b/outility.ini", "Gebühren Žluťoučký 項目/outility.ini"}) {
    CAPTURE(name);
    profile.File = profile.Folder / name;
    CHECK(profile.Put("Größe", "Bücher"));
    CHECK(ReadFile(profile.File) == encode("[Wizard]\r\nGröße=Bücher\r\n"));
    CHECK(profile.Put("Columns", "2"));
    CHECK(profile.Get("Größe") == "Bücher");
    CHECK(profile.Get("Columns") == "2");
  }
  CHECK(FilesIn(profile.Folder.Path()).size() == 4);  // nothing is left beside them
  profile.File += "/outility.ini";
  CHECK_FALSE(profile.Put("A", "1"));
}

}  // namespace formwizard::tests
