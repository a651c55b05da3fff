// Runs a program as a shell would.
#pragma once

#include "tests/support/TemporaryFolder.h"

#ifndef _WIN32
#include <sys/wait.h>
#endif

namespace formwizard::tests {

struct Outcome {
  int Status = 0;
  std::string Out, Error;
};

// In the given folder, where its output is kept in two files meanwhile; standard input is empty. `arguments` are
// separated by blanks and may be quoted by ". Speaks English.
#ifdef _WIN32
inline Outcome RunProgram(const std::string& program, const std::string& arguments, const TemporaryFolder& folder) {
  const std::string command =
      "cd /d \"" + Utf8(folder.Path()) + "\" && \"" + program + "\" " + arguments + " >out.txt 2>error.txt <NUL";
  const int status = ::_wsystem(NativePath(command).c_str());
  return {status, ReadFile(folder / "out.txt"), ReadFile(folder / "error.txt")};
}
#else
// `redirection` comes after those of the output's files, as in ">/dev/full"; variables may stand before the program.
inline Outcome RunProgram(const std::string& program, const std::string& arguments, const TemporaryFolder& folder,
                          const std::string& redirection = "", const std::string& variables = "") {
  const std::string command = "cd '" + folder.Path().string() + "' && LANG=C LC_ALL=C " + variables + " '" + program +
                              "' " + arguments + " >out.txt 2>error.txt </dev/null " + redirection;
  const int status = std::system(command.c_str());
  return {WEXITSTATUS(status), ReadFile(folder / "out.txt"), ReadFile(folder / "error.txt")};
}
#endif

}  // namespace formwizard::tests
