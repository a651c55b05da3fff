#include "settings/Settings.h"

#include "settings/Profile.h"
#include "tests/support/FakeDesktop.h"
#include "tests/support/FakeProfile.h"
#include "tests/support/TemporaryFolder.h"

#include <regex>

using namespace formwizard;
using namespace formwizard::settings;
using namespace formwizard::tests;

TEST_CASE("An empty default and a size of 0 are filled in for the caller, the blank mark never comes out") {
  FakeProfile profile;
  profile.Values = {{"Marked", "~blank~"}, {"Long", std::string(3000, 'x')}};
  std::string standard;
  std::size_t size = 0;
  CHECK(ReadProfile(profile, "s", "missing", standard, "f", size).empty());
  CHECK(standard == "~blank~");
  CHECK(ReadProfile(profile, "s", "Marked", standard, "f", size).empty());
  CHECK(ReadProfile(profile, "s", "Long", standard, "f", size).size() == 2047);
}

TEST_CASE("Values are written trimmed, an empty one as a blank, and a failure can be tried again") {
  FakeProfile profile;
  FakeDesktop desktop;
  for (const auto& [value, stored] : {std::pair{"", " "}, std::pair{"\n", " "}, std::pair{"  a b ", "a b"},
                                      std::pair{"x\r", "x"}, std::pair{"x\n\n", "x\n"}}) {
    std::string text = value;
    WriteProfile(profile, desktop, "s", "Key", text, "f");
    CHECK(profile.Values["Key"] == stored);
    CHECK(text == stored);
  }
  profile.FailingWrites = 3;
  desktop.Answers = {ui::MessageAnswer::Retry, ui::MessageAnswer::Retry, ui::MessageAnswer::Ignore};
  std::string value = "new";
  WriteProfile(profile, desktop, "s", "Key", value, "f");
  CHECK(profile.Values["Key"] == "x\n");
  CHECK(desktop.Messages.size() == 3);
  CHECK(desktop.Messages[0].Style == 2 + 48 + 256);
}

TEST_CASE("Settings load with their defaults and refuse what does not convert") {
  FakeProfile profile;
  Settings settings;
  settings.ButtonAreaWidth = Int16(0);
  LoadSettings(settings, profile, "f");
  CHECK(settings.ButtonAreaWidth == Int16(1335));
  profile.Values = {{"Menu", "fAlse"}, {"FormSizable", "1"}, {"SearchNew", "TRUE"}, {"Columns", " 4 "}};
  LoadSettings(settings, profile, "f");
  CHECK_FALSE(settings.Menu);
  CHECK((settings.FormSizable && settings.SearchNew));
  CHECK(settings.Columns == Int16(4));
  for (const auto& [key, value] :
       {std::pair{"Menu", "yes"}, std::pair{"Menu", "2"}, std::pair{"Menu", "-1"}, std::pair{"Menu", "0.0"},
        std::pair{"Columns", "two"}, std::pair{"Bold", "~blank~"}}) {
    CAPTURE(std::string(key));
    profile.Values = {{key, value}};
    CHECK(ErrorNumberOf([&] { LoadSettings(settings, profile, "f"); }) == runtime::TypeMismatch);
  }
}

TEST_CASE("Documents and completions name every setting, the documents with its default") {
  for (const std::string file :
       {"README.md", "docs/man/ostrel-form-wizard.1", "packaging/completion/_ostrel-form-wizard",
        "packaging/completion/ostrel-form-wizard.bash"}) {
    CAPTURE(file);
    const std::string text = ReadFile(SourceFolder() + "/" + file);
    const auto has = [&](const std::string& pattern) { return std::regex_search(text, std::regex(pattern)); };
    for (const SettingKey& key : SettingKeys()) {
      const std::string name(key.Key);
      CAPTURE(name);
      CHECK(has("\\b" + name + "\\b"));
      const std::string row = "\n(?:\\| " + name + " \\|[^|]+\\| |\\.BR " + name + " \" \\()";
      CHECK(has(row) == has(row + DefaultOf(key) + "\\b"));
    }
  }
}
