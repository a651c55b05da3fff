// Paths as projects write them.
#pragma once

#include <string>
#include <string_view>

namespace formwizard::adapters::vb6files {

// The path that a project gives to a file, its parts separated by "\", as a path of the operating system. It begins in
// `folder`, which is a FolderPart, and keeps to the separator that is used there.
// A path with a drive or a server stays as it is on a system that has none.
std::string FileIn(std::string_view folder, std::string_view projectPath);

// Whether it is such a path, which cannot be reached here.
bool IsForeign(std::string_view path);

}  // namespace formwizard::adapters::vb6files
