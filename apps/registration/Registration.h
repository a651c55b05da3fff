// Enters the add-in into the system's registry and the environment's lists, takes it out, and tells what is there.
//
// Everything is done in the view of 32-bit programs, which the environment is, also by a program of 64 bits, unless a
// view is asked for. Failures are the system's error numbers; ERROR_SUCCESS is 0.
#pragma once

#include "apps/registration/Entries.h"

#include <optional>
#include <span>
#include <string>
#include <vector>

namespace formwizard::apps::registration {

// For all users, in HKEY_LOCAL_MACHINE, or for the one who runs the program, in HKEY_CURRENT_USER.
enum class Scope { Machine, User };
inline constexpr Scope BothScopes[] = {Scope::Machine, Scope::User};

// What a program sees of the registry by the number of its bits. They differ on a Windows of 64 bits alone.
enum class View { Bits32, Bits64 };

// One entry as it is.
struct Reading {
  Entry Wanted;
  LSTATUS Status;  // ERROR_FILE_NOT_FOUND: it is not there; any other failure: it cannot be read or is of another type
  Data Found;      // when it was read

  // Whether it is what registration would enter, or what the user made of it. Texts compare without regard to case.
  bool IsRight() const;
};

// The entries of one list, in the order of the table, compared with those for a library.
std::vector<Reading> Read(Scope scope, List list, const std::wstring& library, View view = View::Bits32);

// The library that the class is registered with; none when it is not registered, or cannot be read: Read tells which.
std::optional<std::wstring> RegisteredLibrary(Scope scope, View view = View::Bits32);

bool IsInOlderList();

// Enters the class and the add-in. Without the rights nothing is changed. For all users it takes this user's class out
// of the way, which has precedence and may name an old file, and writes no list of this user's, who may be an
// administrator that only lends the rights. The older list is written where its folder is within reach.
LSTATUS Register(Scope scope, const std::wstring& library);

// Enters the add-in into this user's lists, whoever's class it is.
LSTATUS EnterUsersList();

// Takes class and add-in out of all the scopes, or changes nothing when the rights for one of them are missing. With
// the last class go this user's lists too: an entry without a class would be complained about at every start.
LSTATUS Unregister(std::span<const Scope> scopes);

}  // namespace formwizard::apps::registration
