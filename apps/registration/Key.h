// A key of the registry, open as long as the object lives.
#pragma once

#include <windows.h>

#include <string>
#include <utility>

namespace formwizard::apps::registration {

class Key {
 public:
  Key() = default;
  Key(Key&& other) noexcept : handle_(std::exchange(other.handle_, nullptr)), isNew_(other.isNew_) {}
  Key& operator=(Key&&) = delete;
  ~Key() {
    if (handle_) RegCloseKey(handle_);
  }

  // `access` holds the view, too. Once for each object.
  LSTATUS Open(HKEY hive, const std::wstring& path, REGSAM access) {
    return RegOpenKeyExW(hive, path.c_str(), 0, access, &handle_);
  }
  LSTATUS Create(HKEY hive, const std::wstring& path, REGSAM access) {
    DWORD how = 0;
    const LSTATUS status = RegCreateKeyExW(hive, path.c_str(), 0, nullptr, 0, access, nullptr, &handle_, &how);
    isNew_ = status == ERROR_SUCCESS && how == REG_CREATED_NEW_KEY;
    return status;
  }

  HKEY Handle() const { return handle_; }
  bool IsNew() const { return isNew_; }

 private:
  HKEY handle_ = nullptr;
  bool isNew_ = false;
};

}  // namespace formwizard::apps::registration
