#include "adapters/profile/ProfileFile.h"

#include "tests/adapters/profile/ProfileCases.h"

#include <tuple>

using namespace formwizard::tests;
using Fixture = ProfileFixture<formwizard::adapters::profile::ProfileFiles>;

TEST_CASE("A profile file keeps the platform's rules, in UTF-8") {
  CheckStore<formwizard::adapters::profile::ProfileFiles>([](std::string_view utf8) { return std::string(utf8); });
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
