// What the checks ask of Windows. Texts and paths are UTF-8.
#pragma once

#include <windows.h>

#include <optional>
#include <string>

namespace formwizard::apps::doctor {

// A text of the registry, variables of the environment in it resolved; nothing for none. An empty name is the key's own
// value. std::runtime_error for one that is there and cannot be read.
std::optional<std::string> RegistryText(HKEY hive, const std::string& key, const std::string& name = "",
                                        REGSAM view = KEY_WOW64_32KEY);
std::optional<DWORD> RegistryNumber(HKEY hive, const std::string& key, const std::string& name, REGSAM view);
bool HasKey(HKEY hive, const std::string& key, REGSAM view = KEY_WOW64_32KEY);

// Where the system keeps its 32-bit files, without a separator at the end.
std::string SystemFolder();

// The path that a 32-bit program means by one: without quotes around it, and with its own system folder.
std::string MeantBy32Bits(const std::string& path);
bool IsFile(const std::string& path);
// By the header of a program or library.
bool IsOf32Bits(const std::string& path);
// "1.0.0" of the version resource; empty when there is none.
std::string VersionOf(const std::string& path);
std::string FolderWithSeparator(const std::string& path);

// Without regard to case.
bool IsSamePath(const std::string& a, const std::string& b);

// The command that registers a library, for all users or, with an option, for whom that says.
std::string RegisteringCommand(const std::string& library, const std::string& option = "");
// The command by which this program mends what it has found.
std::string FixingCommand();

}  // namespace formwizard::apps::doctor
