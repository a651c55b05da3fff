#include "tests/support/RunProgram.h"

#include <nlohmann/json.hpp>

using namespace formwizard::tests;

namespace {

// What a program prints, with the ends of lines as they are everywhere.
std::string Printed(const Outcome& outcome) {
  std::string text = outcome.Out;
  std::erase(text, '\r');
  return text;
}

}  // namespace

TEST_CASE("A check that fails, hangs, throws or crashes is told in a line of its own and stops no other") {
  const TemporaryFolder folder;
  const std::string patient = BuiltProgram("doctor_patient");
  const std::string older = folder / ("older" + Utf8(std::filesystem::path(patient).extension()));
  std::filesystem::copy_file(NativePath(patient), NativePath(older));
  const std::string others =
      "unknown       throws: an answer\\nof two lines\n"
      "warning       optional: bad; to mend it: do it\n"
      "not-installed absent: not here\n";
  const std::string rest =
      "warning       hangs: given up: this takes more than 0.2 s\n"
      "warning       crashes: the program that tried it came to grief (status 77)\n"
      "good          last: well\n";
  const std::string broken = "good          good: well\nfault         mended: broken; to mend it: rm broken\n";
  const std::string mended = "good          good: well\nmended        mended: removed it; in order\n";
  const std::string sound = "good          good: well\ngood          mended: in order\n";
  const std::string nobody = "unknown       elsewhere: cannot be told from here: ";
  struct Case {
    std::string Arguments;
    bool IsBroken;
    std::string Out;
    int Status;
  };
  for (const Case& c : {
           Case{"32=\"" + patient + "\"", true, broken + others + "good          elsewhere: well\n" + rest, 1},
           Case{"", false, sound + others + nobody + "only a 32-bit program can, and there is none\n" + rest, 0},
           Case{"32=\"" + older + "\" --fix", true,
                mended + others + nobody + "the 32-bit program is of another version\n" + rest, 0},
           Case{"healthy --strict --fix", true, mended, 0},
           Case{"healthy --strict", false, sound, 0},
           Case{"healthy --json", true,
                nlohmann::ordered_json::parse(R"([
             {"id": "good", "state": "good", "message": "well", "remedy": ""},
             {"id": "mended", "state": "fault", "message": "broken", "remedy": "rm broken"}])")
                        .dump(2) +
                    "\n",
                1},
       }) {
    CAPTURE(c.Arguments);
    if (c.IsBroken) WriteFile(folder / "broken", "");
    const Outcome outcome = RunProgram(patient, c.Arguments, folder);
    CHECK(Printed(outcome) == c.Out);
    CHECK(outcome.Status == c.Status);
    const bool isMended = c.Arguments.find("--fix") != std::string::npos;
    CHECK(std::filesystem::exists(folder.Path() / "broken") == (c.IsBroken && !isMended));
    std::filesystem::remove(folder.Path() / "broken");
  }
  CHECK(RunProgram(patient, "--strict", folder).Status == 1);  // also without a fault
}

#ifndef _WIN32
TEST_CASE("The command line's own doctor says what is wrong with its files and the fonts, and leaves all as it is") {
  const TemporaryFolder folder, output;
  const auto makeTool = [&](const std::string& path, const std::string& prints) {
    WriteFile(folder / path, "#!/bin/sh\necho " + prints + "\n");
    std::filesystem::permissions(folder.Path() / path, std::filesystem::perms::owner_all);
  };
  std::filesystem::copy_file(BuiltProgram("ostrel-form-wizard"), folder / "ostrel-form-wizard");
  std::filesystem::copy_file(BuiltFolder() + "OstrelFormWizardFRA.dll", folder / "OstrelFormWizardFRA.dll");
  makeTool("font/fc-match", "Some Font");
  makeTool("nofont/fc-match", "");
  const std::string at = folder / "", newSettings = at + "new/ostrel-form-wizard/outility.ini";
  const std::string withoutDesktop =
      "not-installed desktop: the desktop program, which the command line does not need; to have it: apt-get install "
      "./ostrel-form-wizard-desktop_*.deb\n"
      "not-installed fonts: the desktop program, which alone draws pictures of forms\n";
  const std::string good = "good          settings: " + newSettings +
                           " can be made by the command line\ngood          languages: English and, in " + at +
                           ", FRA\ngood          code-pages: all that a project can be written in\n";
  const auto check = [&](const std::string& tools, const std::string& expected, int status,
                         const std::string& options = "") {
    const Outcome outcome = RunProgram(folder / "ostrel-form-wizard", "doctor" + options, output, "",
                                       "XDG_CONFIG_HOME='" + at + "new' PATH='" + at + tools + "'");
    CHECK(outcome.Out == expected);
    CHECK(outcome.Status == status);
    CHECK_FALSE(std::filesystem::exists(folder / "new"));
  };
  check("none", good + withoutDesktop, 0);
  check("none", good + withoutDesktop, 1, " --strict");
  WriteFile(folder / "ostrel-form-wizard-desktop", "");
  const auto before = FilesIn(folder.Path());
  const std::string desktop = good + "good          desktop: " + at + "ostrel-form-wizard-desktop\n";
  const std::string noFont = "warning       fonts: there is no font, and so no text in pictures of forms; to mend it: ",
                    noTool = "unknown       fonts: cannot be told from here: fc-match is not installed; to have it: ";
  check("font", desktop + "good          fonts: pictures of forms are drawn in Some Font\n", 0, " --strict");
  check("nofont", desktop + noFont + "apt-get install fonts-liberation\n", 0);
  check("none", desktop + noTool + "apt-get install fontconfig\n", 0);
  CHECK(FilesIn(folder.Path()) == before);
  // The library lacks its resources; in the place of the settings' folder is a file.
  WriteFile(folder / "OstrelFormWizardFRA.dll", ReadFile(folder / "OstrelFormWizardFRA.dll").substr(0, 300));
  const Outcome outcome = RunProgram(folder / "ostrel-form-wizard", "doctor", output, "",
                                     "XDG_CONFIG_HOME='" + at + "ostrel-form-wizard-desktop'");
  CHECK(outcome.Status == 1);
  CHECK(outcome.Out.find("fault         settings: the command line cannot ") == 0);
  CHECK(Has(outcome.Out, "fault         languages: " + at +
                             "OstrelFormWizardFRA.dll: this is not a library with texts, "
                             "or only part of one; to mend it: install the programs again, or for English rm \"" +
                             at + "OstrelFormWizardFRA.dll\"\n"));
}
#endif
