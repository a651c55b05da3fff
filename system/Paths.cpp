#include "system/Paths.h"

#include "support/Failures.h"
#include "system/Limits.h"

namespace formwizard::system {
namespace {

constexpr bool HasDrives = std::filesystem::path::preferred_separator == '\\';
constexpr std::string_view Separators = HasDrives ? "/\\:" : "/";

// A message is no place for a path of thousands of characters.
std::string Shortened(const std::string& path) {
  constexpr std::size_t most = 120;
  std::size_t start = path.size() < most ? 0 : path.size() - most;
  while (start > 0 && start < path.size() && (static_cast<unsigned char>(path[start]) & 0xC0) == 0x80) ++start;
  return start == 0 ? path : "..." + path.substr(start);
}

std::string Megabytes(std::uint64_t bytes) { return std::to_string((bytes + (1U << 20) - 1) >> 20) + " MiB"; }

}  // namespace

#ifndef _WIN32
std::filesystem::path NativePath(const std::string& utf8) { return utf8; }
#endif

std::string Utf8(const std::filesystem::path& path) {
  const std::u8string text = path.u8string();
  return std::string(text.begin(), text.end());
}

std::string_view FolderPart(std::string_view path) { return path.substr(0, path.find_last_of(Separators) + 1); }

std::string FolderOf(std::string_view path) {
  const std::string_view part = FolderPart(path);
  if (part.empty()) return ".";
  const bool isRoot = part.size() == 1 || part.substr(0, part.size() - 1).ends_with(':');
  if (part.back() == ':') return std::string(part) + ".";  // where the drive is just now
  return std::string(isRoot ? part : part.substr(0, part.size() - 1));
}

bool IsAbsolute(std::string_view path) {
  if (path.empty()) return false;
  return path.front() == '/' || (HasDrives && (path.front() == '\\' || path.substr(1, 1) == ":"));
}

void CheckPath(const std::string& path) {
  if (path.empty()) throw support::InputError("the path of a file is empty; give a name");
  if (path.size() > LongestPath) {
    throw support::InputError(Shortened(path) + ": this path has " + std::to_string(path.size()) +
                              " bytes, a path has at most " + std::to_string(LongestPath) + "; shorten it");
  }
  if (path.find('\0') != std::string::npos) {
    throw support::InputError(path.substr(0, path.find('\0')) +
                              ": behind this the path has a character that no name "
                              "can have; mend it");
  }
}

void FailTooLarge(const std::string& path, std::uint64_t size, std::size_t most) {
  throw support::InputError(path + ": the file has " + Megabytes(size) + ", at most " + Megabytes(most) +
                            " are read; check that it is the right one");
}

}  // namespace formwizard::system
