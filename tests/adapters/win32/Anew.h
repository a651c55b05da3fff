// Tests that need another process: one with other settings of the system, or one that is killed.
#pragma once

#include <string>

namespace formwizard::tests {

// Runs the test that calls it in a process of its own, which finds `told` in an environment variable. Its exit status.
int RunAnew(const wchar_t* variable, const std::wstring& told);

// Ends this process with this status, without any clean-up.
inline constexpr int Killed = 9;
[[noreturn]] void KillThisProcess();

}  // namespace formwizard::tests
