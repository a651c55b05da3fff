// Runs a program as a shell would.
#pragma once

#include "tests/support/TemporaryFolder.h"

#ifdef _WIN32
#include <windows.h>
#else
#include <sys/wait.h>
#include <cstdlib>
#endif

#include <string>

namespace formwizard::tests {

struct Outcome {
  int Status = 0;
  std::string Out, Error;
};

// In the given folder, where its output is kept in two files meanwhile; standard input is empty. `arguments` are
// separated by blanks and may be quoted by ". Speaks English.
#ifdef _WIN32
inline Outcome RunProgram(const std::string& program, const std::string& arguments, const TemporaryFolder& folder) {
  SECURITY_ATTRIBUTES inherited{sizeof(SECURITY_ATTRIBUTES), nullptr, TRUE};
  const auto open = [&](const std::filesystem::path& path, DWORD access, DWORD disposition) {
    return ::CreateFileW(path.c_str(), access, FILE_SHARE_READ, &inherited, disposition, FILE_ATTRIBUTE_NORMAL,
                         nullptr);
  };
  STARTUPINFOW start{};
  start.cb = sizeof start;
  start.dwFlags = STARTF_USESTDHANDLES;
  start.hStdInput = open(L"NUL", GENERIC_READ, OPEN_EXISTING);
  start.hStdOutput = open(folder.Path() / "out.txt", GENERIC_WRITE, CREATE_ALWAYS);
  start.hStdError = open(folder.Path() / "error.txt", GENERIC_WRITE, CREATE_ALWAYS);
  std::wstring command = NativePath("\"" + program + "\" " + arguments).native();
  PROCESS_INFORMATION process{};
  const BOOL started = ::CreateProcessW(nullptr, command.data(), nullptr, nullptr, TRUE, 0, nullptr,
                                        folder.Path().c_str(), &start, &process);
  for (const HANDLE file : {start.hStdInput, start.hStdOutput, start.hStdError}) ::CloseHandle(file);
  if (!started) throw std::runtime_error("cannot start " + program);
  ::WaitForSingleObject(process.hProcess, INFINITE);
  DWORD status = 0;
  ::GetExitCodeProcess(process.hProcess, &status);
  ::CloseHandle(process.hThread);
  ::CloseHandle(process.hProcess);
  return {static_cast<int>(status), ReadFile(folder / "out.txt"), ReadFile(folder / "error.txt")};
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
