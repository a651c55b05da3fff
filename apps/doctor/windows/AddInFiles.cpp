// The files beside the library that is registered.
#include "apps/common/Paths.h"
#include "apps/doctor/CommonChecks.h"
#include "apps/doctor/windows/System.h"
#include "apps/doctor/windows/WindowsChecks.h"
#include "settings/Profile.h"
#include "system/Text.h"

#include <shlobj.h>

#include <array>

namespace formwizard::apps::doctor {
namespace {

// The folder of the registered library, with its separator.
std::string AddInFolder() { return FolderWithSeparator(RegisteredLibrary().value_or("")); }

// A program such as the environment, which does not say that it knows of rights, gets a copy of the user's own of a
// file that it writes below the folder of programs.
bool IsRedirected(const std::string& folder) {
  std::array<wchar_t, MAX_PATH> programs{};
  if (FAILED(::SHGetFolderPathW(nullptr, CSIDL_PROGRAM_FILESX86, nullptr, SHGFP_TYPE_CURRENT, programs.data())) &&
      FAILED(::SHGetFolderPathW(nullptr, CSIDL_PROGRAM_FILES, nullptr, SHGFP_TYPE_CURRENT, programs.data()))) {
    return false;
  }
  const std::string redirected = system::Utf8(std::wstring_view(programs.data())) + "\\";
  constexpr const char* policies = "Software\\Microsoft\\Windows\\CurrentVersion\\Policies\\System";
  return IsSamePath(folder.substr(0, redirected.size()), redirected) &&
         RegistryNumber(HKEY_LOCAL_MACHINE, policies, "EnableVirtualization", KEY_WOW64_64KEY).value_or(0) != 0;
}

}  // namespace

Finding AddInSettings() {
  if (const auto none = NoLibrary()) return *none;
  const std::string folder = AddInFolder();
  const std::string profile = folder + std::string(settings::ProfileName);
  Finding finding = SettingsIn(profile, "the add-in");
  if (finding.Is != State::Fault || !IsRedirected(folder)) return finding;
  return {State::Good, "what the add-in keeps in " + profile + " Windows redirects to a copy of your own"};
}

Finding AddInLanguages() {
  if (const auto none = NoLibrary()) return *none;
  const std::string folder = AddInFolder();
  if (IsSamePath(folder, common::ProgramFolder())) return {State::Good, "those of the command line"};
  return LanguagesIn(folder);
}

}  // namespace formwizard::apps::doctor
