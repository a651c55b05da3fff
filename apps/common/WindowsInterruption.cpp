#include "apps/common/Interruption.h"
#include "apps/common/Platform.h"
#include "system/Paths.h"

#include <windows.h>

#include <atomic>
#include <csignal>
#include <fstream>
#include <iostream>

namespace formwizard::apps::common {
namespace {

std::atomic<bool> kept = false;  // the system calls the handler on a thread of its own

BOOL WINAPI Keep(DWORD event) {
  if (event != CTRL_C_EVENT && event != CTRL_BREAK_EVENT) return FALSE;
  return kept.exchange(true) ? FALSE : TRUE;
}

}  // namespace

void KeepInterruptions() { ::SetConsoleCtrlHandler(Keep, TRUE); }

void CheckInterrupted() {
  if (kept) throw Interrupted(SIGINT);
}

int EndInterrupted(const Interrupted& interrupted) {
  constexpr int endedBySignal = 128;
  return endedBySignal + interrupted.Signal();
}

std::unique_ptr<std::istream> OpenInput(const std::string& path) {
  if (path == "-") return std::make_unique<std::istream>(std::cin.rdbuf());
  auto file = std::make_unique<std::ifstream>(system::NativePath(path), std::ios::binary);
  return *file ? std::move(file) : nullptr;
}

}  // namespace formwizard::apps::common
