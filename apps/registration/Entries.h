// What of the add-in stands in the system's registry: its class, by which the environment creates it, and its entry in
// the environment's list of add-ins. One table, by which registration is written, taken out and compared.
#pragma once

#include <windows.h>

#include <string>
#include <variant>
#include <vector>

namespace formwizard::apps::registration {

inline constexpr wchar_t ProgId[] = L"OstrelFormWizard.Wizard";
inline constexpr GUID ClassId{0x21C062AC, 0x2BC3, 0x4D75, {0xA2, 0xFD, 0x04, 0x51, 0x7B, 0x9C, 0xF2, 0x98}};
inline constexpr wchar_t LibraryName[] = L"OstrelFormWizard.dll";

// The system's list of classes, or the environment's list of add-ins.
enum class List { Classes, AddIns };

using Data = std::variant<std::wstring, DWORD>;  // REG_SZ or REG_DWORD

struct Entry {
  List In;
  std::wstring Key;     // below HKEY_LOCAL_MACHINE or HKEY_CURRENT_USER, in the view of 32-bit programs
  const wchar_t* Name;  // of the value; empty: that of the key itself
  Data Value;
  bool IsUsersChoice = false;  // may have another value, which the environment's own dialogs give it
};

// All that registration enters for the library at a full path. A key stands before those in it.
std::vector<Entry> EntriesFor(const std::wstring& library);

// The keys that are the add-in's alone, with all that is in them.
std::vector<std::wstring> KeysOf(List list);

// Where the path of the library stands: the one entry that tells registrations apart.
std::wstring ServerKey();

// The parts of the environment's list that registration makes when the environment is not installed, outermost first.
inline constexpr const wchar_t* ListParents[] = {L"Software\\Microsoft\\Visual Basic",
                                                 L"Software\\Microsoft\\Visual Basic\\6.0",
                                                 L"Software\\Microsoft\\Visual Basic\\6.0\\Addins"};

// The environment's older list: a line "ProgId=1" in a section of a file in the Windows folder.
inline constexpr wchar_t OlderListFile[] = L"vbaddin.ini", OlderListSection[] = L"Add-Ins32";

}  // namespace formwizard::apps::registration
