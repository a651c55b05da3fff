#include "system/Paths.h"
#include "system/Text.h"

#include <windows.h>

namespace formwizard::system {
namespace {

// A folder's path must leave room for a name of 12 characters; no call but those takes less.
constexpr std::size_t LongestUnmarked = MAX_PATH - 12;

constexpr std::wstring_view Mark = LR"(\\?\)";  // the path behind it is taken as it is, however long

// From the root of a drive or a share, with backslashes, without "." and ".."; empty when the system gives none.
std::wstring Whole(const std::wstring& path) {
  std::wstring whole(MAX_PATH, L'\0');
  for (;;) {
    const DWORD length = ::GetFullPathNameW(path.c_str(), static_cast<DWORD>(whole.size()), whole.data(), nullptr);
    const bool fits = length < whole.size();
    whole.resize(length);
    if (fits) return whole;
  }
}

}  // namespace

// Systems before Windows 10 take no long path without the mark, and later ones only where their user allows it.
std::filesystem::path NativePath(const std::string& utf8) {
  std::wstring path = Wide(utf8);
  if (path.empty()) return path;
  const std::wstring whole = Whole(path);
  if (whole.size() < LongestUnmarked || whole.starts_with(Mark) || whole.starts_with(LR"(\\.\)")) return path;
  return whole.starts_with(LR"(\\)") ? LR"(\\?\UNC)" + whole.substr(1) : std::wstring(Mark) + whole;
}

}  // namespace formwizard::system
