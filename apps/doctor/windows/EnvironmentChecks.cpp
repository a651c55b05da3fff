// The environment: whether it is installed, and whether it runs as an administrator.
#include "apps/doctor/windows/System.h"
#include "apps/doctor/windows/WindowsChecks.h"
#include "system/Text.h"

#include <tlhelp32.h>

#include <memory>

namespace formwizard::apps::doctor {
namespace {

constexpr const char* ProgramName = "VB6.EXE";

// Where its setup has entered it, or where projects are opened by it; empty when it is not installed.
std::string EnvironmentProgram() {
  const std::string paths = std::string("Software\\Microsoft\\Windows\\CurrentVersion\\App Paths\\") + ProgramName;
  for (const HKEY hive : {HKEY_CURRENT_USER, HKEY_LOCAL_MACHINE}) {
    std::string program = MeantBy32Bits(RegistryText(hive, paths).value_or(""));
    if (IsFile(program)) return program;
  }
  const std::string project = RegistryText(HKEY_CLASSES_ROOT, ".vbp").value_or("");
  const std::string command =
      project.empty() ? "" : RegistryText(HKEY_CLASSES_ROOT, project + "\\shell\\open\\command").value_or("");
  std::string program = MeantBy32Bits(command);
  return IsFile(program) ? program : "";
}

bool IsSetToRunElevated(const std::string& program) {
  constexpr const char* layers = "Software\\Microsoft\\Windows NT\\CurrentVersion\\AppCompatFlags\\Layers";
  for (const HKEY hive : {HKEY_CURRENT_USER, HKEY_LOCAL_MACHINE}) {
    for (const auto view : {REGSAM{KEY_WOW64_64KEY}, REGSAM{KEY_WOW64_32KEY}}) {
      const std::string layer = RegistryText(hive, layers, program, view).value_or("");
      if (layer.find("RUNASADMIN") != std::string::npos) return true;
    }
  }
  return false;
}

using Handle = std::unique_ptr<void, decltype(&::CloseHandle)>;

Handle Owned(HANDLE handle) { return {handle == INVALID_HANDLE_VALUE ? nullptr : handle, ::CloseHandle}; }

bool RunsElevated() {
  const Handle all = Owned(::CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0));
  PROCESSENTRY32W process{};
  process.dwSize = sizeof(process);
  for (BOOL more = all && ::Process32FirstW(all.get(), &process); more; more = ::Process32NextW(all.get(), &process)) {
    if (IsSamePath(system::Utf8(std::wstring_view(process.szExeFile)), ProgramName) &&
        IsElevated(process.th32ProcessID)) {
      return true;
    }
  }
  return false;
}

}  // namespace

// A process whose rights may not be looked at has more of them than this one.
bool IsElevated(unsigned long id) {
  const Handle process = Owned(::OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE, id));
  HANDLE opened = nullptr;
  if (!process || !::OpenProcessToken(process.get(), TOKEN_QUERY, &opened))
    return ::GetLastError() == ERROR_ACCESS_DENIED;
  const Handle token = Owned(opened);
  TOKEN_ELEVATION elevation{};
  DWORD size = 0;
  return ::GetTokenInformation(token.get(), TokenElevation, &elevation, sizeof(elevation), &size) &&
         elevation.TokenIsElevated != 0;
}

bool HasEnvironment() { return !EnvironmentProgram().empty(); }

Finding Environment() {
  const std::string program = EnvironmentProgram();
  if (program.empty()) return {State::NotInstalled, "Visual Basic 6, which the command line does not need"};
  return {State::Good, program};
}

Finding Elevation() {
  const std::string program = EnvironmentProgram();
  if (program.empty()) return {State::NotInstalled, "Visual Basic 6"};
  const bool isSet = IsSetToRunElevated(program);
  if (!isSet && !RunsElevated()) return {State::Good, "Visual Basic is not set to run as an administrator"};
  const std::string how =
      isSet ? "Visual Basic is set to run as an administrator" : "Visual Basic runs as an administrator";
  if (!IsForUserOnly()) return {State::Good, how};
  return {State::Fault, how + " and then ignores the add-in, which is registered for you alone",
          "as an administrator, " + RegisteringCommand(RegisteredLibrary().value_or(""), "/n /i:machine ")};
}

}  // namespace formwizard::apps::doctor
