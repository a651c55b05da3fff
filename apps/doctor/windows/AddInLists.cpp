// The environment's lists of add-ins: the machine's, the user's and the older one.
#include "apps/doctor/windows/System.h"
#include "apps/doctor/windows/WindowsChecks.h"
#include "apps/registration/Registration.h"
#include "system/Text.h"

#include <array>

namespace formwizard::apps::doctor {
namespace {

using registration::List;
using registration::Scope;

constexpr DWORD AtStartup = 1;  // a bit of LoadBehavior

struct Listed {
  bool IsThere = false, IsLoaded = false;  // at the environment's start
};

Listed ListedIn(Scope scope) {
  Listed listed;
  for (const registration::Reading& reading : registration::Read(scope, List::AddIns, L"")) {
    listed.IsThere |= reading.Status == ERROR_SUCCESS;
    const auto* number = std::get_if<DWORD>(&reading.Found);
    const bool isBehavior = std::wstring_view(reading.Wanted.Name) == L"LoadBehavior";
    listed.IsLoaded |= isBehavior && number && (*number & AtStartup) != 0;
  }
  return listed;
}

std::string RemovingCommand(Scope scope) {
  const char* hive = scope == Scope::User ? "HKCU\\" : "HKLM\\";
  return "reg delete \"" + (hive + system::Utf8(registration::KeysOf(List::AddIns).front())) + "\" /f /reg:32";
}

}  // namespace

Finding AddInList() {
  const Listed ofMachine = ListedIn(Scope::Machine), ofUser = ListedIn(Scope::User);
  const bool isListed = ofMachine.IsThere || ofUser.IsThere;
  if (!RegisteredLibrary()) {
    if (!isListed) return {State::NotInstalled, "the add-in is not registered, and in no list"};
    return {State::Fault, "the add-in is not registered, but listed: the environment complains at every start",
            (ofUser.IsThere ? "" : "as an administrator, ") +
                RemovingCommand(ofUser.IsThere ? Scope::User : Scope::Machine)};
  }
  if (!isListed) {
    return {State::Fault, "the add-in is in no list, and so not on the menu", FixingCommand()};
  }
  std::string where = ofMachine.IsThere ? "in the list of all users" : "in your list";
  if (registration::IsInOlderList()) where += " and in the older list";
  const bool isLoaded = ofUser.IsThere ? ofUser.IsLoaded : ofMachine.IsLoaded;
  return {State::Good,
          where + (isLoaded ? ", loaded at every start" : "; the Add-In Manager loads it, not every start")};
}

std::string MendList() {
  if (RegisteredLibrary()) {
    return registration::EnterUsersList() == ERROR_SUCCESS ? "entered the add-in into your list" : "";
  }
  const std::array user{Scope::User};
  return registration::Unregister(user) == ERROR_SUCCESS ? "took the add-in out of your list" : "";
}

Finding ListedOnce() {
  if (!ListedIn(Scope::Machine).IsThere || !ListedIn(Scope::User).IsThere)
    return {State::Good, "at most one list has it"};
  return {State::Fault, "your list and that of all users both have it; the environment may load it twice",
          RemovingCommand(Scope::User)};
}

}  // namespace formwizard::apps::doctor
