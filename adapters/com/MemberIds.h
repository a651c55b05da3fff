// The dispatch ids of members: an object is asked once per name and type.
#pragma once

#include <windows.h>

#include <oleauto.h>

#include <cstring>
#include <map>
#include <memory>
#include <string>
#include <string_view>

namespace formwizard::adapters::com {

// Names and values are given and taken in English, as a program of the language does wherever it runs.
constexpr LCID English = MAKELCID(MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_US), SORT_DEFAULT);

// The ids of one type's members.
class MemberIds {
 public:
  // `object` is of this type. Error 438 for a member that it does not have.
  DISPID Of(const wchar_t* name, IDispatch& object);

 private:
  std::map<std::wstring, DISPID, std::less<>> ids_;
};

// The types that were met, told apart by the identifier in their description.
class MemberIdsByType {
 public:
  // An object that does not say what it is has ids of its own.
  std::shared_ptr<MemberIds> For(IDispatch& object);

 private:
  struct Before {
    bool operator()(const GUID& a, const GUID& b) const { return std::memcmp(&a, &b, sizeof(GUID)) < 0; }
  };
  std::map<GUID, std::shared_ptr<MemberIds>, Before> types_;
};

}  // namespace formwizard::adapters::com
