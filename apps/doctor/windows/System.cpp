#include "apps/doctor/windows/System.h"

#include "apps/common/Platform.h"
#include "apps/registration/Key.h"
#include "system/FileSystem.h"
#include "system/Paths.h"
#include "system/Text.h"

#include <array>
#include <cstring>
#include <filesystem>
#include <memory>
#include <stdexcept>
#include <type_traits>

namespace formwizard::apps::doctor {
namespace {

// What `ask` finds in a key; nothing when key or value is not there.
template <typename Value, typename Ask>
std::optional<Value> Asked(HKEY hive, const std::string& key, REGSAM view, Ask&& ask) {
  Value value{};
  registration::Key opened;
  LSTATUS status = opened.Open(hive, system::Wide(key), KEY_QUERY_VALUE | view);
  if (status == ERROR_SUCCESS) status = ask(opened.Handle(), value);
  if (status == ERROR_SUCCESS) return value;
  if (status == ERROR_FILE_NOT_FOUND) return {};
  throw std::runtime_error("the registry's key " + key + " cannot be read: error " + std::to_string(status));
}

}  // namespace

std::optional<std::string> RegistryText(HKEY hive, const std::string& key, const std::string& name, REGSAM view) {
  return Asked<std::string>(hive, key, view, [&](HKEY opened, std::string& value) {
    LSTATUS status = ERROR_MORE_DATA;
    constexpr DWORD unit = sizeof(wchar_t);
    for (DWORD length = MAX_PATH; status == ERROR_MORE_DATA; length *= 2) {
      std::wstring text(length, L'\0');
      DWORD size = length * unit;
      status = ::RegGetValueW(opened, nullptr, system::Wide(name).c_str(), RRF_RT_REG_SZ, nullptr, text.data(), &size);
      value = system::Utf8(std::wstring_view(text.c_str()));
    }
    return status;
  });
}

std::optional<DWORD> RegistryNumber(HKEY hive, const std::string& key, const std::string& name, REGSAM view) {
  return Asked<DWORD>(hive, key, view, [&](HKEY opened, DWORD& value) {
    DWORD size = sizeof(value);
    return ::RegGetValueW(opened, nullptr, system::Wide(name).c_str(), RRF_RT_REG_DWORD, nullptr, &value, &size);
  });
}

bool HasKey(HKEY hive, const std::string& key, REGSAM view) {
  return Asked<bool>(hive, key, view, [](HKEY, bool&) { return LSTATUS{ERROR_SUCCESS}; }).has_value();
}

std::string SystemFolder() {
  std::array<wchar_t, MAX_PATH> folder{};
  if (::GetSystemWow64DirectoryW(folder.data(), MAX_PATH) == 0) ::GetSystemDirectoryW(folder.data(), MAX_PATH);
  return system::Utf8(std::wstring_view(folder.data()));
}

std::string MeantBy32Bits(const std::string& path) {
  const bool isQuoted = path.size() >= 2 && path.front() == '"';
  const std::string plain = isQuoted ? path.substr(1, path.find('"', 1) - 1) : path;
  std::array<wchar_t, MAX_PATH> folder{};
  ::GetSystemDirectoryW(folder.data(), MAX_PATH);
  const std::string own = system::Utf8(std::wstring_view(folder.data())) + "\\";
  return IsSamePath(plain.substr(0, own.size()), own) ? SystemFolder() + plain.substr(own.size() - 1) : plain;
}

bool IsFile(const std::string& path) {
  std::error_code error;
  return std::filesystem::is_regular_file(system::NativePath(path), error);
}

bool IsOf32Bits(const std::string& path) {
  constexpr std::size_t whereHeader = 0x3C, most = 4096;
  const auto read = system::RealFileSystem().ReadHead(path, most);
  const std::string_view bytes = read ? std::string_view(read->Bytes) : std::string_view();
  if (bytes.size() < whereHeader + 2) return false;
  const auto at = [&](std::size_t offset) { return static_cast<unsigned char>(bytes[offset]); };
  const std::size_t header = at(whereHeader) + (std::size_t{at(whereHeader + 1)} << 8);
  return header < bytes.size() && bytes.substr(header).starts_with(std::string_view("PE\0\0\x4C\x01", 6));
}

std::string VersionOf(const std::string& path) {
  constexpr int versionResource = 16;
  constexpr std::size_t header = 40;  // three numbers and the name of the block, filled up to four bytes
  const std::unique_ptr<std::remove_pointer_t<HMODULE>, decltype(&::FreeLibrary)> module(
      ::LoadLibraryExW(system::Wide(path).c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE), ::FreeLibrary);
  const HRSRC resource =
      module ? ::FindResourceW(module.get(), MAKEINTRESOURCEW(VS_VERSION_INFO), MAKEINTRESOURCEW(versionResource))
             : nullptr;
  VS_FIXEDFILEINFO info{};
  if (!resource || ::SizeofResource(module.get(), resource) < header + sizeof(info)) return "";
  const auto* bytes = static_cast<const char*>(::LockResource(::LoadResource(module.get(), resource)));
  std::memcpy(&info, bytes + header, sizeof(info));
  return std::to_string(HIWORD(info.dwFileVersionMS)) + "." + std::to_string(LOWORD(info.dwFileVersionMS)) + "." +
         std::to_string(HIWORD(info.dwFileVersionLS));
}

std::string FolderWithSeparator(const std::string& path) { return std::string(system::FolderPart(path)); }

bool IsSamePath(const std::string& a, const std::string& b) {
  return ::CompareStringOrdinal(system::Wide(a).c_str(), -1, system::Wide(b).c_str(), -1, TRUE) == CSTR_EQUAL;
}

std::string RegisteringCommand(const std::string& library, const std::string& option) {
  return SystemFolder() + "\\regsvr32 " + option + "\"" + library + "\"";
}

std::string FixingCommand() { return "\"" + system::Utf8(common::RunningProgram()) + "\" doctor --fix"; }

}  // namespace formwizard::apps::doctor
