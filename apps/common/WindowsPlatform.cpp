#include "adapters/com/ComFactory.h"
#include "adapters/native/NativeLibraries.h"
#include "adapters/satellite/StringResources.h"

#include "apps/common/MemoryProfile.h"
#include "apps/common/Platform.h"
#include "apps/common/WindowsConsole.h"
#include "support/Failures.h"
#include "system/FileSystem.h"
#include "system/Paths.h"
#include "system/Text.h"

#include <windows.h>

#include <fcntl.h>
#include <io.h>
#include <shellapi.h>
#include <shlobj.h>
#include <shlwapi.h>
#include <stdio.h>

#include <algorithm>
#include <array>
#include <utility>

namespace formwizard::apps::common {

namespace fs = std::filesystem;

namespace {

// The registered object factory; automation works on this thread as long as the object lives.
class ComServer : public wizard::factory::FactoryCreator {
 public:
  ComServer() { ::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED); }
  ~ComServer() override { ::CoUninitialize(); }
  ComServer(const ComServer&) = delete;
  ComServer& operator=(const ComServer&) = delete;

  std::unique_ptr<wizard::factory::ObjectFactory> Create() override {
    try {
      return creator_.Create();
    } catch (const runtime::RuntimeError& error) {
      throw support::InputError("the server's object factory cannot be created (" + error.Description() +
                                "); install the server's client, of 32 bits as this program is");
    }
  }

 private:
  adapters::com::ComFactoryCreator creator_;
};

// The one in which programs without a manifest like ours read and write their settings. GetACP tells this program's
// own, which is UTF-8.
int CodePageOfMachine() {
  std::array<wchar_t, 16> text{};
  DWORD size = sizeof text;
  const LSTATUS status = ::RegGetValueW(HKEY_LOCAL_MACHINE, L"SYSTEM\\CurrentControlSet\\Control\\Nls\\CodePage",
                                        L"ACP", RRF_RT_REG_SZ, nullptr, text.data(), &size);
  const int number = status == ERROR_SUCCESS ? ::_wtoi(text.data()) : 0;
  return number == 0 ? system::Utf8CodePage : number;  // a locale that knows nothing but Unicode
}

// Those that a name with "*" or "?" stands for, in order; none for any other name.
std::vector<std::string> FilesLike(const std::string& name) {
  const system::FileSystem& files = system::RealFileSystem();
  const std::string folder(system::FolderPart(name));
  const std::wstring pattern = system::Wide(name.substr(folder.size()));
  std::vector<std::string> found;
  if (pattern.find_first_of(L"*?") == std::wstring::npos) return found;
  for (const std::string& each : files.NamesIn(system::FolderOf(name)).value_or(std::vector<std::string>())) {
    const bool matches =
        ::PathMatchSpecExW(system::Wide(each).c_str(), pattern.c_str(), PMSF_DONT_STRIP_SPACES) == S_OK;
    if (matches && files.KindOf(folder + each) != system::FileKind::Folder) found.push_back(folder + each);
  }
  std::ranges::sort(found);
  return found;
}

}  // namespace

fs::path RunningProgram() {
  std::wstring path(MAX_PATH, L'\0');
  for (;;) {
    const DWORD length = ::GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
    if (length < path.size()) {
      path.resize(length);
      return path;
    }
    path.resize(path.size() * 2);
  }
}

fs::path ConfigurationRoot() {
  std::wstring path(MAX_PATH, L'\0');
  if (FAILED(::SHGetFolderPathW(nullptr, CSIDL_APPDATA, nullptr, SHGFP_TYPE_CURRENT, path.data()))) return {};
  return path.c_str();
}

// `main` gets them in the machine's code page, so they are asked for again.
std::vector<std::string> Arguments(int, char**) {
  int count = 0;
  LPWSTR* const all = ::CommandLineToArgvW(::GetCommandLineW(), &count);
  std::vector<std::string> arguments;
  for (int i = 1; i < count; ++i) arguments.push_back(system::Utf8(std::wstring_view(all[i])));
  ::LocalFree(all);
  return arguments;
}

std::vector<std::string> FilesMeant(std::vector<std::string> names) {
  std::vector<std::string> files;
  for (std::string& name : names) {
    const std::vector<std::string> found = FilesLike(name);
    if (found.empty()) files.push_back(std::move(name));
    files.insert(files.end(), found.begin(), found.end());
  }
  return files;
}

std::unique_ptr<settings::ProfileStore> PlatformProfile(const std::string& profile) {
  if (profile.empty()) return std::make_unique<MemoryProfile>();
  return std::make_unique<adapters::profile::ProfileFiles>(system::RealFileSystem(), CodePageOfMachine());
}

std::vector<adapters::profile::ProfileKey> ProfileKeys(const std::string& profile, std::string_view section) {
  return adapters::profile::ProfileFiles(system::RealFileSystem(), CodePageOfMachine()).KeysIn(section, profile);
}

bool IsTerminal(Output output) {
  DWORD mode = 0;
  const HANDLE handle = ::GetStdHandle(output == Output::Error ? STD_ERROR_HANDLE : STD_OUTPUT_HANDLE);
  return ::GetConsoleMode(handle, &mode) != 0;
}

std::unique_ptr<support::ResourceLibraries> PlatformLibraries() {
  return std::make_unique<adapters::native::NativeLibraries>(adapters::satellite::IsSatellite);
}

bool CanHaveServer() { return true; }
std::unique_ptr<wizard::factory::FactoryCreator> InstalledServer() { return std::make_unique<ComServer>(); }

std::shared_ptr<void> UseStandardStreams() {
  for (FILE* stream : {stdin, stdout, stderr}) ::_setmode(::_fileno(stream), _O_BINARY);
  return ShowOnConsole();
}

bool IsTerminal(StandardStream stream) {
  DWORD mode = 0;
  return ::GetConsoleMode(::GetStdHandle(stream == StandardStream::Output ? STD_OUTPUT_HANDLE : STD_ERROR_HANDLE),
                          &mode) != 0;
}

void SurviveFailedWrites() {}  // as it is on this system

}  // namespace formwizard::apps::common
