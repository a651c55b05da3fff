#include "adapters/native/NativeLibraries.h"

#include "system/Paths.h"
#include "system/Text.h"

#include <windows.h>
#undef LoadString

#include <algorithm>
#include <array>
#include <cstdint>
#include <filesystem>
#include <limits>
#include <string_view>
#include <system_error>
#include <vector>

namespace formwizard::adapters::native {
namespace {

class Library : public support::ResourceLibrary {
 public:
  explicit Library(HMODULE module) : module_(module) {}
  ~Library() override { ::FreeLibrary(module_); }
  Library(const Library&) = delete;
  Library& operator=(const Library&) = delete;

  // By the wide call: the "A" call would lose what the machine's code page lacks.
  std::string LoadString(int id, std::size_t size) const override {
    if (size == 0) return "";
    std::vector<wchar_t> text(std::min<std::size_t>(size, std::numeric_limits<std::int16_t>::max()));
    const int length = ::LoadStringW(module_, static_cast<UINT>(id), text.data(), static_cast<int>(text.size()));
    std::wstring_view found(text.data(), static_cast<std::size_t>(length));
    const bool isCut = found.size() + 1 == text.size();
    if (isCut && !found.empty() && IS_HIGH_SURROGATE(found.back())) found.remove_suffix(1);
    return system::Utf8(found);
  }

 private:
  HMODULE module_;
};

}  // namespace

std::string NativeLibraries::UserLanguage() const {
  std::array<char, 16> name{};
  ::GetLocaleInfoA(LOCALE_USER_DEFAULT, LOCALE_NOUSEROVERRIDE | LOCALE_SABBREVLANGNAME, name.data(),
                   static_cast<int>(name.size()));
  return name.data();
}

int NativeLibraries::UserLocaleId() const { return static_cast<int>(::GetUserDefaultLCID()); }

std::unique_ptr<support::ResourceLibrary> NativeLibraries::LoadAsData(const std::string& path) const {
  if (!isWhole_(path)) return nullptr;
  // By its whole path, so that it is looked for nowhere else; as data, so that nothing in it is made to run or to fit,
  // whether it has 32 or 64 bits; and without a message box.
  std::error_code error;
  std::filesystem::path file = std::filesystem::absolute(system::NativePath(path), error);
  file.make_preferred();
  DWORD errorMode = 0;
  ::SetThreadErrorMode(SEM_FAILCRITICALERRORS, &errorMode);
  HMODULE module = ::LoadLibraryExW(file.c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE);
  ::SetThreadErrorMode(errorMode, nullptr);
  return module ? std::make_unique<Library>(module) : nullptr;
}

}  // namespace formwizard::adapters::native
