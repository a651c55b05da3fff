// What a long run shows, and that an interrupted one leaves nothing behind.
#include "apps/cli/Progress.h"
#include "tests/support/BuildTree.h"
#include "tests/support/RunProgram.h"

#include <doctest/doctest.h>

#ifndef _WIN32
#include <unistd.h>
#endif

#include <array>
#include <chrono>
#include <csignal>
#include <filesystem>
#include <sstream>
#include <thread>

using namespace formwizard::tests;
using namespace std::chrono_literals;
using formwizard::apps::cli::Progress;

TEST_CASE("Progress is shown where it may be, not too often, and goes before anything else is written") {
  for (const bool isShown : {true, false}) {
    std::ostringstream terminal;
    Progress::Clock::time_point now;
    {
      Progress progress(terminal, "importing", isShown, [&] { return now; });
      for (const auto& [after, done, total] : {std::tuple{400ms, 30.0, 100.0},
                                               {600ms, 25.0, 100.0},
                                               {100ms, 26.0, 100.0},
                                               {900ms, 99.0, 100.0},
                                               {300ms, 5e6, 0.0}}) {
        now += after;
        progress.Show(done, total);
      }
      terminal << "note" << '\n';
      now += 1s;
      progress.Show(0, 8);
    }
    terminal << "end";
    const std::string blanks(25, ' ');
    CHECK(terminal.str() ==
          (isShown ? "\rimporting: 25 %, 3 s left\rimporting: 99 %, 0 s left\rimporting: 5 MB" + std::string(10, ' ') +
                         "\r" + blanks + "\rnote\n\rimporting: 0 %\r" + std::string(14, ' ') + "\rend"
                   : "note\nend"));
  }
}

#ifndef _WIN32
namespace {

// Starts a shell's command in a folder, where it reads from a pipe that never ends, and sends it a signal when `path`
// is there. Returns what waitpid tells.
int Interrupted(const std::string& command, const TemporaryFolder& folder, const std::string& begin, int signal) {
  std::array<int, 2> ends{};
  REQUIRE(::pipe(ends.data()) == 0);
  const auto before = FilesIn(folder.Path()).size();
  const ::pid_t child = ::fork();
  if (child == 0) {
    ::dup2(ends[0], STDIN_FILENO);
    ::close(ends[1]);
    std::signal(signal, SIG_DFL);
    ::execl("/bin/sh", "sh", "-c", ("cd '" + folder.Path().string() + "' && exec " + command + " 2>/dev/null").c_str(),
            static_cast<char*>(nullptr));
    ::_exit(127);
  }
  CHECK(::write(ends[1], begin.data(), begin.size()) == static_cast<::ssize_t>(begin.size()));
  int status = 0;
  ::pid_t ended = 0;
  while (FilesIn(folder.Path()).size() == before && (ended = ::waitpid(child, &status, WNOHANG)) == 0)
    std::this_thread::sleep_for(5ms);
  CHECK(ended == 0);  // it waits for more
  ::kill(child, signal);
  ::waitpid(child, &status, 0);
  for (const int end : ends) ::close(end);
  return status;
}

}  // namespace

TEST_CASE("An interrupted run ends as the signal says and leaves everything as it was") {
  const TemporaryFolder folder;
  const std::string program = "'" + BuiltProgram("ostrel-form-wizard") + "' ", samples = SourceFolder() + "/samples/";
  CopySample("new-project", folder / "project");
  WriteFile(folder / "one.json", R"({"class":"Sample.Person","fields":["Name"]})");
  WriteFile(folder / "outility.ini", "");
  const std::string generate =
      "generate --project project/Project1.vbp --dictionary d.sqlite --profile outility.ini "
      "--toolbox '" +
      samples + "toolbox.ini' one.json ";
  REQUIRE(RunProgram(BuiltProgram("ostrel-form-wizard"), "dictionary import '" + samples + "dictionary.json' d.sqlite",
                     folder)
              .Status == 0);
  const auto before = FilesIn(folder.Path());
  for (const int signal : {SIGINT, SIGTERM}) {
    for (const std::string& command : {std::string("dictionary import - d.sqlite"), generate + "-"}) {
      CAPTURE(command);
      const int status = Interrupted(program + command, folder, "{ \"systems\": [", signal);
      CHECK(WIFSIGNALED(status));
      CHECK(WTERMSIG(status) == signal);
      CHECK(FilesIn(folder.Path()) == before);
    }
  }
  CHECK(RunProgram(BuiltProgram("ostrel-form-wizard"), generate, folder).Status == 0);
}
#endif
