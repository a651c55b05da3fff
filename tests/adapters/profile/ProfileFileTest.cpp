#include "adapters/profile/ProfileFile.h"

#include "runtime/RuntimeError.h"
#include "tests/adapters/profile/ProfileCases.h"
#include "tests/support/MemoryFileSystem.h"

using namespace formwizard::tests;
using Fixture = ProfileFixture<formwizard::adapters::profile::ProfileFiles>;

namespace {
struct WesternFiles : formwizard::adapters::profile::ProfileFiles {
  WesternFiles() : ProfileFiles(formwizard::system::RealFileSystem(), 1252) {}
};
}  // namespace

TEST_CASE("A profile file keeps the platform's rules, in UTF-8, in a code page and in UTF-16") {
  CheckStore<formwizard::adapters::profile::ProfileFiles>([](std::string_view utf8) { return std::string(utf8); });
  CheckStore<WesternFiles>([](std::string_view utf8) { return formwizard::system::CodePage(1252).Encode(utf8); });
  ProfileFixture<WesternFiles> profile;
  CHECK(profile.Put("Size", "weiß"));
  CHECK_FALSE(profile.Put("Size", "重さ"));  // what cannot be written is not written as something else
  CHECK(profile.Get("Size", "", 4) == "wei");
  CHECK(profile.Get("None", "Größe") == "Größe");
  const auto utf16 = [](std::string_view ascii) {
    std::string bytes = "\xFF\xFE";
    for (const char c : ascii) (bytes += c) += '\0';
    return bytes;
  };
  WriteFile(profile.File, utf16("[Wizard]\r\nSize=5\r\n"));
  CHECK(profile.Get("size") == "5");
  CHECK(profile.Put("Size", "\u00DF"));
  CHECK(profile.Get("size") == "ß");
  CHECK(ReadFile(profile.File) == utf16("[Wizard]\r\nSize=\xDF\r\n"));
  WriteFile(profile.File, utf16("[Wizard]\r\nSize=5\r\n") + "x");
  CHECK_FALSE(profile.Put("Size", "6"));
}

TEST_CASE("Comments, keys without a value and sections that are not meant give nothing") {
  Fixture profile;
  WriteFile(profile.File,
            "Key=outside\r\n; [Wizard]\r\n [ wizard ] \r\n;Key=comment\r\nNoValue\r\nHalf=\"a\r\nEmpty=\r\n"
            "[Wizard]\r\nLate=x\r\n");
  for (const char* key : {"Key", ";Key", "NoValue", "Late"}) {  // a second section of the name does not count
    CAPTURE(key);
    CHECK(profile.Get(key) == "none");
  }
  CHECK(profile.Get("Half") == "\"a");
  CHECK(profile.Get("Empty").empty());
}

TEST_CASE("Writing changes the value's text and nothing else") {
  Fixture profile;
  for (const auto& [before, key, after] :
       {std::tuple{"; mine\r\n[Wizard]\r\nColumns = 2\r\n; note\r\n\r\n[b]\r\nColumns=9", "columns",
                   "; mine\r\n[Wizard]\r\nColumns =3\r\n; note\r\n\r\n[b]\r\nColumns=9"},
        std::tuple{"[Wizard]\r\nA=2\r\n; note\r\n\r\n[b]", "New", "[Wizard]\r\nA=2\r\n; note\r\nNew=3\r\n\r\n[b]"},
        std::tuple{"[b]\r\nColumns=9", "New", "[b]\r\nColumns=9\r\n[Wizard]\r\nNew=3\r\n"},
        std::tuple{"[Wizard]\nA=1\n", "B", "[Wizard]\nA=1\nB=3\n"}}) {
    CAPTURE(before);
    WriteFile(profile.File, before);
    CHECK(profile.Put(key, "3"));
    CHECK(ReadFile(profile.File) == after);
  }
}

TEST_CASE("A settings file that cannot be read is an error and is never replaced") {
  for (int look = 1; look < 8; ++look) {
    CAPTURE(look);
    MemoryFileSystem files(MemoryFileSystem::Contents{{"ini", "[Wizard]\r\nMenu=0\r\nColumns=2\r\n"}});
    formwizard::adapters::profile::ProfileFiles profiles(files);
    files.FailsToRead = look;
    const std::string all = files.Files.at("ini"), changed = all.substr(0, all.size() - 3) + "3\r\n";
    if (look == 1) {
      CHECK(ErrorNumberOf([&] { profiles.GetProfileString("Wizard", "Menu", "1", 9, "ini"); }) ==
            formwizard::runtime::PathFileAccessError);
      files.Looks = 0;
    }
    const bool isDone = profiles.WriteProfileString("Wizard", "Columns", "3", "ini");
    CHECK(files.Files.at("ini") == (isDone ? changed : all));
    CHECK(files.Files.size() == 1);
  }
  // What another program changes at the same time stays.
  MemoryFileSystem files(MemoryFileSystem::Contents{{"ini", "[Wizard]\r\n"}});
  files.BeforeExchange = [&] { files.Files["ini"] += "Theirs=1\r\n"; };
  CHECK(formwizard::adapters::profile::ProfileFiles(files).WriteProfileString("Wizard", "Ours", "2", "ini"));
  CHECK(files.Files.at("ini") == "[Wizard]\r\nTheirs=1\r\nOurs=2\r\n");
}
