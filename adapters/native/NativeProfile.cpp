#include "adapters/native/NativeProfile.h"

#include "adapters/native/AnsiText.h"

#include <windows.h>
#undef GetProfileString
#undef WriteProfileString

#include <algorithm>
#include <filesystem>
#include <limits>
#include <system_error>
#include <vector>

namespace formwizard::adapters::native {
namespace {

namespace fs = std::filesystem;

// The calls look for a bare name in the folder of Windows.
fs::path Absolute(const std::string& file) {
  std::error_code error;
  fs::path path = fs::absolute(Utf16(file), error);
  return path.make_preferred();
}

// The path for an "A" call: by its short name where the code page lacks a character of the long one.
std::string AnsiPath(const fs::path& path) {
  const std::string text = Utf8(path.native());
  std::string bytes = ToAnsi(text);
  if (FromAnsi(bytes) == text) return bytes;
  std::wstring shortName(MAX_PATH, L'\0');
  const fs::path folder = path.parent_path();
  const DWORD length = ::GetShortPathNameW(folder.c_str(), shortName.data(), static_cast<DWORD>(shortName.size()));
  if (length == 0 || length >= shortName.size()) return bytes;
  shortName.resize(length);
  return ToAnsi(Utf8((fs::path(shortName) / path.filename()).native()));
}

}  // namespace

std::string NativeProfile::GetProfileString(std::string_view section, std::string_view key,
                                            std::string_view defaultText, std::size_t size,
                                            const std::string& file) const {
  if (size == 0) return "";
  std::vector<char> buffer(std::min<std::size_t>(size, std::numeric_limits<int>::max()));
  const DWORD length =
      ::GetPrivateProfileStringA(ToAnsi(section).c_str(), ToAnsi(key).c_str(), ToAnsi(defaultText).c_str(),
                                 buffer.data(), static_cast<DWORD>(buffer.size()), AnsiPath(Absolute(file)).c_str());
  return FromAnsi(std::string_view(buffer.data(), length));
}

bool NativeProfile::WriteProfileString(std::string_view section, std::string_view key, std::string_view value,
                                       const std::string& file) {
  const fs::path path = Absolute(file);
  std::error_code error;
  fs::create_directories(path.parent_path(), error);
  return ::WritePrivateProfileStringA(ToAnsi(section).c_str(), ToAnsi(key).c_str(), ToAnsi(value).c_str(),
                                      AnsiPath(path).c_str()) != 0;
}

}  // namespace formwizard::adapters::native
