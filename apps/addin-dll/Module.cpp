#include "apps/addin-dll/Module.h"

#include "adapters/com/Counted.h"

#include <atomic>

extern "C" IMAGE_DOS_HEADER __ImageBase;  // NOLINT(bugprone-reserved-identifier): the linker's name

namespace formwizard::apps::addin {
namespace {

std::atomic<LONG> holds = 0;  // one count for the whole library, which is what the system asks

}  // namespace

HINSTANCE ThisModule() { return reinterpret_cast<HINSTANCE>(&__ImageBase); }

std::wstring ModulePath() {
  std::wstring path(MAX_PATH, L'\0');
  for (;;) {
    const DWORD length = GetModuleFileNameW(ThisModule(), path.data(), static_cast<DWORD>(path.size()));
    if (length < path.size()) {
      path.resize(length);
      return path;
    }
    path.resize(path.size() * 2);
  }
}

std::wstring ModuleFolder() {
  const std::wstring path = ModulePath();
  return path.substr(0, path.find_last_of(L'\\') + 1);
}

void HoldModule() { ++holds; }
void LetGoModule() { --holds; }
bool IsModuleNeeded() { return holds != 0 || adapters::com::LivingObjects != 0; }

}  // namespace formwizard::apps::addin
