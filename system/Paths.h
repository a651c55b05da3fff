// Paths as texts, cut at the separators of the operating system: "/", on Windows "\" and the colon of a drive as well.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

namespace formwizard::system {

// Between UTF-8 and the operating system's own form. On Windows a path that is too long for its older calls becomes one
// from the root that all of them take.
std::filesystem::path NativePath(const std::string& utf8);
std::string Utf8(const std::filesystem::path& path);

// What stands before the file's name, with its separator: "a/b/" of "a/b/c.vbp". Empty for a name alone.
std::string_view FolderPart(std::string_view path);
// The folder as the operating system takes it: "a/b" of "a/b/c.vbp", "." of "c.vbp", "/" of "/c.vbp".
std::string FolderOf(std::string_view path);
// Whether it is the same file wherever the program runs.
bool IsAbsolute(std::string_view path);

// support::InputError for a path that no file can have: an empty one, one longer than LongestPath, one with a NUL.
void CheckPath(const std::string& path);
// support::InputError saying how large the file is and how large it may be.
[[noreturn]] void FailTooLarge(const std::string& path, std::uint64_t size, std::size_t most);

}  // namespace formwizard::system
