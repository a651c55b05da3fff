#include "apps/registration/Registration.h"

#include "apps/registration/Key.h"
#include "apps/registration/OlderList.h"

#include <algorithm>
#include <cwchar>
#include <initializer_list>

namespace formwizard::apps::registration {
namespace {

HKEY HiveOf(Scope scope) { return scope == Scope::Machine ? HKEY_LOCAL_MACHINE : HKEY_CURRENT_USER; }
REGSAM BitsOf(View view) { return view == View::Bits32 ? KEY_WOW64_32KEY : KEY_WOW64_64KEY; }

bool SameText(const std::wstring& a, const std::wstring& b) {
  return CompareStringOrdinal(a.c_str(), -1, b.c_str(), -1, TRUE) == CSTR_EQUAL;
}

LSTATUS ReadText(HKEY key, const wchar_t* name, std::wstring& text) {
  DWORD bytes = 0;
  LSTATUS status = ERROR_MORE_DATA;
  while (status == ERROR_MORE_DATA) {  // it may grow between two calls
    text.resize(bytes / sizeof(wchar_t) + 1);
    bytes = static_cast<DWORD>(text.size()) * DWORD{sizeof(wchar_t)};
    status = RegGetValueW(key, nullptr, name, RRF_RT_REG_SZ, nullptr, text.data(), &bytes);
  }
  text.resize(std::wcslen(text.c_str()));
  return status;
}

LSTATUS ReadNumber(HKEY key, const wchar_t* name, DWORD& number) {
  DWORD bytes = sizeof(number);
  return RegGetValueW(key, nullptr, name, RRF_RT_REG_DWORD, nullptr, &number, &bytes);
}

Reading ReadEntry(Scope scope, const Entry& entry, View view) {
  Reading reading{entry, ERROR_SUCCESS, {}};
  Key key;
  reading.Status = key.Open(HiveOf(scope), entry.Key, KEY_QUERY_VALUE | BitsOf(view));
  if (reading.Status != ERROR_SUCCESS) return reading;
  if (std::holds_alternative<std::wstring>(entry.Value)) {
    reading.Status = ReadText(key.Handle(), entry.Name, reading.Found.emplace<std::wstring>());
  } else {
    reading.Status = ReadNumber(key.Handle(), entry.Name, reading.Found.emplace<DWORD>());
  }
  return reading;
}

LSTATUS WriteEntry(HKEY key, const Entry& entry) {
  const auto set = [&](DWORD type, const void* data, std::size_t bytes) {
    return RegSetValueExW(key, entry.Name, 0, type, static_cast<const BYTE*>(data), static_cast<DWORD>(bytes));
  };
  if (const auto* text = std::get_if<std::wstring>(&entry.Value)) {
    return set(REG_SZ, text->c_str(), (text->size() + 1) * sizeof(wchar_t));
  }
  return set(REG_DWORD, &std::get<DWORD>(entry.Value), sizeof(DWORD));
}

// All keys are opened before the first value is written, and those that were made for it go again when one refuses.
LSTATUS Enter(Scope scope, const std::vector<Entry>& entries) {
  std::vector<Key> keys(entries.size());
  LSTATUS status = ERROR_SUCCESS;
  for (std::size_t i = 0; i < entries.size() && status == ERROR_SUCCESS; ++i) {
    status = keys[i].Create(HiveOf(scope), entries[i].Key, KEY_SET_VALUE | KEY_WOW64_32KEY);
  }
  if (status != ERROR_SUCCESS) {
    for (std::size_t i = entries.size(); i > 0; --i) {
      if (keys[i - 1].IsNew()) RegDeleteKeyExW(HiveOf(scope), entries[i - 1].Key.c_str(), KEY_WOW64_32KEY, 0);
    }
  }
  for (std::size_t i = 0; i < entries.size() && status == ERROR_SUCCESS; ++i) {
    status = WriteEntry(keys[i].Handle(), entries[i]);
  }
  return status;
}

// One that cannot be read is there.
bool HasClass(Scope scope) {
  return ReadEntry(scope, {List::Classes, ServerKey(), L"", L""}, View::Bits32).Status != ERROR_FILE_NOT_FOUND;
}

std::vector<Entry> EntriesIn(List list, const std::wstring& library) {
  std::vector<Entry> entries = EntriesFor(library);
  std::erase_if(entries, [&](const Entry& entry) { return entry.In != list; });
  return entries;
}

// Whether every key of a list that is there may be deleted.
LSTATUS MayRemove(Scope scope, List list) {
  for (const Entry& entry : EntriesIn(list, L"")) {
    const LSTATUS status = Key().Open(HiveOf(scope), entry.Key, DELETE | KEY_SET_VALUE | KEY_READ | KEY_WOW64_32KEY);
    if (status != ERROR_SUCCESS && status != ERROR_FILE_NOT_FOUND) return status;
  }
  return ERROR_SUCCESS;
}

LSTATUS RemoveTree(HKEY hive, const std::wstring& path) {
  const std::size_t name = path.find_last_of(L'\\');
  Key parent;  // gives the view, which RegDeleteTree does not know
  LSTATUS status = parent.Open(hive, path.substr(0, name), KEY_READ | KEY_WOW64_32KEY);
  if (status == ERROR_SUCCESS) status = RegDeleteTreeW(parent.Handle(), path.c_str() + name + 1);
  return status == ERROR_FILE_NOT_FOUND ? ERROR_SUCCESS : status;
}

// Whether a key has no values and as many keys in it.
bool HoldsOnly(HKEY hive, const wchar_t* path, DWORD wantedKeys) {
  Key key;
  DWORD keys = 0, values = 0;
  return key.Open(hive, path, KEY_READ | KEY_WOW64_32KEY) == ERROR_SUCCESS &&
         RegQueryInfoKeyW(key.Handle(), nullptr, nullptr, nullptr, &keys, nullptr, nullptr, &values, nullptr, nullptr,
                          nullptr, nullptr) == ERROR_SUCCESS &&
         keys == wantedKeys && values == 0;
}

// Where the environment is not installed, its keys are there for the add-in's sake alone.
void RemoveEmptyList(HKEY hive) {
  const auto& [product, version, list] = ListParents;
  if (HoldsOnly(hive, product, 1) && HoldsOnly(hive, version, 1) && HoldsOnly(hive, list, 0)) RemoveTree(hive, product);
}

LSTATUS Remove(Scope scope, List list) {
  LSTATUS status = ERROR_SUCCESS;
  for (const std::wstring& key : KeysOf(list)) {
    const LSTATUS removed = RemoveTree(HiveOf(scope), key);
    if (status == ERROR_SUCCESS) status = removed;
  }
  if (list == List::AddIns) RemoveEmptyList(HiveOf(scope));
  return status;
}

LSTATUS FirstFailure(std::initializer_list<LSTATUS> statuses) {
  for (const LSTATUS status : statuses) {
    if (status != ERROR_SUCCESS) return status;
  }
  return ERROR_SUCCESS;
}

}  // namespace

bool Reading::IsRight() const {
  if (Status != ERROR_SUCCESS) return false;
  if (Wanted.IsUsersChoice) return true;
  const auto* wanted = std::get_if<std::wstring>(&Wanted.Value);
  return wanted ? SameText(*wanted, std::get<std::wstring>(Found)) : Wanted.Value == Found;
}

std::vector<Reading> Read(Scope scope, List list, const std::wstring& library, View view) {
  std::vector<Reading> readings;
  for (const Entry& entry : EntriesIn(list, library)) readings.push_back(ReadEntry(scope, entry, view));
  return readings;
}

std::optional<std::wstring> RegisteredLibrary(Scope scope, View view) {
  const Reading reading = ReadEntry(scope, {List::Classes, ServerKey(), L"", L""}, view);
  if (reading.Status != ERROR_SUCCESS) return std::nullopt;
  return std::get<std::wstring>(reading.Found);
}

LSTATUS Register(Scope scope, const std::wstring& library) {
  const LSTATUS status = Enter(scope, EntriesFor(library));
  if (status != ERROR_SUCCESS) return status;
  EnterIntoOlderList();
  return scope == Scope::Machine ? Remove(Scope::User, List::Classes) : ERROR_SUCCESS;
}

LSTATUS EnterUsersList() {
  EnterIntoOlderList();
  return Enter(Scope::User, EntriesIn(List::AddIns, L""));
}

LSTATUS Unregister(std::span<const Scope> scopes) {
  LSTATUS status = ERROR_SUCCESS;
  for (const Scope scope : scopes) {
    status = FirstFailure({status, MayRemove(scope, List::Classes), MayRemove(scope, List::AddIns)});
  }
  if (status != ERROR_SUCCESS) return status;
  for (const Scope scope : scopes) {
    status = FirstFailure({status, Remove(scope, List::Classes), Remove(scope, List::AddIns)});
  }
  if (std::ranges::any_of(BothScopes, HasClass)) return status;
  RemoveFromOlderList();
  return FirstFailure({status, Remove(Scope::User, List::AddIns)});
}

}  // namespace formwizard::apps::registration
