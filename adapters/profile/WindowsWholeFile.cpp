#include "adapters/profile/WholeFile.h"

#include <windows.h>

#include <string>
#include <system_error>

namespace formwizard::adapters::profile {
namespace {

namespace fs = std::filesystem;

// Creates the file with these bytes, flushed to the disk.
bool WriteNew(const fs::path& path, std::string_view text) {
  const HANDLE file =
      ::CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (file == INVALID_HANDLE_VALUE) return false;
  DWORD written = 0;
  const bool done = ::WriteFile(file, text.data(), static_cast<DWORD>(text.size()), &written, nullptr) &&
                    written == text.size() && ::FlushFileBuffers(file);
  return ::CloseHandle(file) && done;
}

// What stands aside takes the place of the old file and its access rights.
bool Exchange(const fs::path& aside, const fs::path& target) {
  if (::ReplaceFileW(target.c_str(), aside.c_str(), nullptr, 0, nullptr, nullptr)) return true;
  return ::GetLastError() == ERROR_FILE_NOT_FOUND &&
         ::MoveFileExW(aside.c_str(), target.c_str(), MOVEFILE_WRITE_THROUGH);
}

}  // namespace

bool WriteWholeFile(const fs::path& file, std::string_view text) {
  std::error_code error;
  fs::path target(file);
  if (fs::is_symlink(target, error)) target = fs::canonical(target, error);
  if (target.has_parent_path()) fs::create_directories(target.parent_path(), error);
  fs::path aside = target;
  aside += L"." + std::to_wstring(::GetCurrentProcessId()) + L".tmp";
  if (WriteNew(aside, text) && Exchange(aside, target)) return true;
  fs::remove(aside, error);
  return false;
}

}  // namespace formwizard::adapters::profile
