// Paths as texts, cut at the separators of the operating system: "/", on Windows "\" and the colon of a drive as well.
#pragma once

#include <string>
#include <string_view>

namespace formwizard::adapters::vb6files {

// What stands before the file's name, with its separator: "a/b/" of "a/b/c.vbp". Empty for a name alone.
std::string_view FolderPart(std::string_view path);
// The folder as the operating system takes it: "a/b" of "a/b/c.vbp", "." of "c.vbp", "/" of "/c.vbp".
std::string FolderOf(std::string_view path);
// The path that a project gives to a file, its parts separated by "\", as a path of the operating system. It begins in
// `folder`, which is a FolderPart, and keeps to the separator that is used there.
std::string FileIn(std::string_view folder, std::string_view projectPath);

}  // namespace formwizard::adapters::vb6files
