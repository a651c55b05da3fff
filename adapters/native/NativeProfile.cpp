#include "adapters/native/NativeProfile.h"

#include "adapters/native/AnsiText.h"
#include "runtime/RuntimeError.h"
#include "support/Failures.h"
#include "system/Paths.h"
#include "system/WholeFile.h"

#include <windows.h>
#undef GetProfileString
#undef WriteProfileString

#include <algorithm>
#include <filesystem>
#include <limits>
#include <optional>
#include <system_error>
#include <vector>

namespace formwizard::adapters::native {
namespace {

namespace fs = std::filesystem;

// The calls look for a bare name in the folder of Windows.
fs::path Absolute(const std::string& file) {
  std::error_code error;
  fs::path path = fs::absolute(system::NativePath(file), error);
  return path.make_preferred();
}

// The path for an "A" call: by its short name where the code page lacks a character of the long one.
std::string AnsiPath(const fs::path& path) {
  const std::string text = system::Utf8(path);
  std::string bytes = ToAnsi(text);
  if (FromAnsi(bytes) == text) return bytes;
  std::wstring shortName(MAX_PATH, L'\0');
  const fs::path folder = path.parent_path();
  const DWORD length = ::GetShortPathNameW(folder.c_str(), shortName.data(), static_cast<DWORD>(shortName.size()));
  if (length == 0 || length >= shortName.size()) return bytes;
  shortName.resize(length);
  return ToAnsi(system::Utf8(fs::path(shortName) / path.filename()));
}

// The platform takes a file that cannot be read for one that is not there.
void CheckReadable(const std::string& file) {
  try {
    system::RealFileSystem().ReadHead(system::Utf8(Absolute(file)), 1);
  } catch (const support::InputError& error) {
    runtime::Raise(runtime::PathFileAccessError, error.what());
  }
}

}  // namespace

std::string NativeProfile::GetProfileString(std::string_view section, std::string_view key,
                                            std::string_view defaultText, std::size_t size,
                                            const std::string& file) const {
  if (size == 0) return "";
  CheckReadable(file);
  std::vector<char> buffer(std::min<std::size_t>(size, std::numeric_limits<int>::max()));
  const DWORD length =
      ::GetPrivateProfileStringA(ToAnsi(section).c_str(), ToAnsi(key).c_str(), ToAnsi(defaultText).c_str(),
                                 buffer.data(), static_cast<DWORD>(buffer.size()), AnsiPath(Absolute(file)).c_str());
  return FromAnsi(std::string_view(buffer.data(), length));
}

bool NativeProfile::WriteProfileString(std::string_view section, std::string_view key, std::string_view value,
                                       const std::string& file) {
  system::FileSystem& files = system::RealFileSystem();
  try {
    const std::string path = system::Utf8(Absolute(file));
    const std::optional<std::string> old = files.Read(path, system::LargestSettings);
    if (!old) system::MakeFolderOf(files, path);
    system::WholeFile changed(files, path);
    changed.Write(old.value_or(""));
    const std::string aside = AnsiPath(system::NativePath(changed.Lend()));
    if (!::WritePrivateProfileStringA(ToAnsi(section).c_str(), ToAnsi(key).c_str(), ToAnsi(value).c_str(),
                                      aside.c_str())) {
      return false;
    }
    ::WritePrivateProfileStringA(nullptr, nullptr, nullptr, aside.c_str());  // from memory to the file
    return changed.CommitOver(old);
  } catch (const support::InputError&) {
    return false;
  } catch (const support::SaveError&) {
    return false;
  }
}

}  // namespace formwizard::adapters::native
