#include "apps/registration/OlderList.h"

#include "apps/registration/Registration.h"

#include <array>
#include <string>

namespace formwizard::apps::registration {
namespace {

std::wstring PathOfFile() {
  std::array<wchar_t, MAX_PATH> folder{};
  GetWindowsDirectoryW(folder.data(), MAX_PATH);
  return std::wstring(folder.data()) + L"\\" + OlderListFile;
}

}  // namespace

bool IsInOlderList() { return GetPrivateProfileIntW(OlderListSection, ProgId, 0, OlderListFile) != 0; }

void EnterIntoOlderList() { WritePrivateProfileStringW(OlderListSection, ProgId, L"1", OlderListFile); }

void RemoveFromOlderList() {
  std::array<wchar_t, 8> some{};
  WritePrivateProfileStringW(OlderListSection, ProgId, nullptr, OlderListFile);
  if (GetPrivateProfileSectionW(OlderListSection, some.data(), 8, OlderListFile) != 0) return;
  WritePrivateProfileStringW(OlderListSection, nullptr, nullptr, OlderListFile);
  if (GetPrivateProfileSectionNamesW(some.data(), 8, OlderListFile) == 0) DeleteFileW(PathOfFile().c_str());
}

}  // namespace formwizard::apps::registration
