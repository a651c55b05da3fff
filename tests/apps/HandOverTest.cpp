// The commands that are done by the desktop program.
#ifndef _WIN32
#include "tests/support/RunProgram.h"

using namespace formwizard::tests;
namespace fs = std::filesystem;

TEST_CASE(
    "The desktop program, beside this one or on the path, opens the wizard over inputs that are right, and draws "
    "forms") {
  const TemporaryFolder folder;
  const std::string program = folder / "ostrel-form-wizard", other = "/ostrel-form-wizard-desktop";
  fs::copy_file(BuiltProgram("ostrel-form-wizard"), program);
  CopySample("new-project", folder / "my project");
  const auto run = [&](const std::string& arguments) {
    return RunProgram(program, arguments, folder, "", "PATH=on:/usr/bin:/bin");
  };
  CHECK(run("dictionary import \"" + SourceFolder() + "/samples/dictionary.json\" d").Status == 0);
  const std::string wizard = "wizard --project \"my project/Project1.vbp\" --dictionary ";
  const std::string render = "render --code-page 1250 -- -x.frm '-$(a b).SVG'";
  for (const std::string& command : {wizard + "d", render}) {
    const Outcome alone = run(command);
    CHECK(alone.Status == 3);
    CHECK_MESSAGE(Has(alone.Error,
                      "neither beside this program nor on the path; install it (on Debian, the package "
                      "ostrel-form-wizard-desktop)"),
                  alone.Error);
  }
  for (const char* wrong : {"render x.frm x.gif", "render x.frm -", "render - x.png", "render x.frm",
                            "wizard --project \"my project/Project1.vbp\" --dictionary d --language sv"}) {
    CHECK_MESSAGE(run(wrong).Status == 2, wrong);
  }
  for (const char* place : {"on", "."}) {  // the one beside comes first
    fs::create_directories(folder.Path() / place);
    const std::string script = folder / place + other;
    WriteFile(script, "#!/bin/sh\necho " + std::string(place) + "; printf '<%s>\\n' \"$@\"; exit 7\n");
    fs::permissions(script, fs::perms::owner_all);
    const Outcome opened =
        run(wizard + "d --toolbox \"" + SourceFolder() + "/samples/toolbox.ini\" --language EN --profile p");
    CHECK(opened.Status == 7);
    CHECK(opened.Error.starts_with("ostrel-form-wizard: warning: p: there is no such settings file"));
    CHECK(opened.Out == std::string(place) +
                            "\n<--wizard>\n<--dictionary=d>\n<--code-page=1252>\n<--toolbox=" + SourceFolder() +
                            "/samples/toolbox.ini>\n<--profile=p>\n<--language=EN>\n<-->\n<my project/Project1.vbp>\n");
    CHECK(run(render).Out == std::string(place) + "\n<--render=-x.frm>\n<--code-page=1250>\n<-->\n<./-$(a b).SVG>\n");
  }
  for (const char* wrong : {"none", "d --toolbox none"}) {
    const Outcome refused = run(wizard + wrong);
    CHECK(refused.Status == 3);
    CHECK(refused.Out.empty());
    CHECK_MESSAGE(refused.Error.starts_with("ostrel-form-wizard: none: "), refused.Error);
  }
}
#endif
