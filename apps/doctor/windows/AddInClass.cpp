// The class of the add-in: by whom it is registered, and the library that it names.
#include "apps/common/Paths.h"
#include "apps/doctor/windows/System.h"
#include "apps/doctor/windows/WindowsChecks.h"
#include "apps/registration/Registration.h"
#include "system/Text.h"

#include <array>

namespace formwizard::apps::doctor {
namespace {

using registration::List;
using registration::Scope;
using registration::View;

constexpr const char* NotRegistered = "the add-in is not registered";
constexpr const char* ForUser = "/n /i:user ";

std::optional<std::string> LibraryOf(Scope scope, View view = View::Bits32) {
  const auto library = registration::RegisteredLibrary(scope, view);
  return library ? std::optional(system::Utf8(*library)) : std::nullopt;
}

std::string LibraryBeside() { return common::ProgramFolder() + system::Utf8(registration::LibraryName); }

// By which a library becomes the registered one; empty when there is none beside the program.
std::string RegisteringBeside(bool forUser) {
  if (!IsFile(LibraryBeside())) return "";
  return (forUser ? "" : "as an administrator, ") + RegisteringCommand(LibraryBeside(), forUser ? ForUser : "");
}

// The first entry of the class that is not as registration would make it; empty for none.
std::string WrongEntry(Scope scope, const std::string& library) {
  for (const registration::Reading& reading : registration::Read(scope, List::Classes, system::Wide(library))) {
    if (!reading.IsRight()) return system::Utf8(reading.Wanted.Key);
  }
  return "";
}

// What is wrong with a library's file; empty for nothing.
std::string FaultOf(const std::string& library) {
  if (!IsFile(library)) return " is not there";
  return IsOf32Bits(library) ? "" : " is no 32-bit library, as the environment needs";
}

}  // namespace

bool IsForUserOnly() { return LibraryOf(Scope::User) && !LibraryOf(Scope::Machine); }

std::optional<std::string> RegisteredLibrary() {
  const auto ofUser = LibraryOf(Scope::User);
  return ofUser ? ofUser : LibraryOf(Scope::Machine);
}

Finding Registered() {
  const auto library = RegisteredLibrary();
  if (!library) {
    for (const Scope scope : registration::BothScopes) {
      if (const auto other = LibraryOf(scope, View::Bits64)) {
        return {State::Fault, "registered for 64-bit programs, which the environment is not: " + *other,
                RegisteringBeside(false)};
      }
    }
    return {State::NotInstalled, NotRegistered, RegisteringBeside(false)};
  }
  const bool isUsers = LibraryOf(Scope::User).has_value();
  const std::string wrong = WrongEntry(isUsers ? Scope::User : Scope::Machine, *library);
  const std::string where = isUsers ? "HKEY_CURRENT_USER" : "HKEY_LOCAL_MACHINE";
  if (!wrong.empty()) {
    return {State::Fault, "incomplete: " + where + "\\" + wrong + " is missing or another's",
            (isUsers ? "" : "as an administrator, ") + RegisteringCommand(*library, isUsers ? ForUser : "")};
  }
  return {State::Good, std::string(isUsers ? "for you alone" : "for all users") + ", in " + where +
                           " as 32-bit programs see it: " + *library};
}

Finding UserClass() {
  const auto ofUser = LibraryOf(Scope::User), ofMachine = LibraryOf(Scope::Machine);
  if (!ofUser || !ofMachine) return {State::Good, "nothing hides the class for all users"};
  if (IsSamePath(*ofUser, *ofMachine))
    return {State::Good, "your own class names the same library as that for all users"};
  return {State::Fault, "your own class names " + *ofUser + " and hides the one for all users, " + *ofMachine,
          FixingCommand()};
}

std::string RemoveUserClass() {
  const std::array user{Scope::User};
  return registration::Unregister(user) == ERROR_SUCCESS ? "removed your own class" : "";
}

Finding Library() {
  const auto library = RegisteredLibrary();
  if (!library) return {State::NotInstalled, NotRegistered};
  const std::string fault = FaultOf(*library);
  if (fault.empty()) return {State::Good, *library + " is there"};
  return {State::Fault, *library + fault, RegisteringBeside(IsForUserOnly())};
}

std::optional<Finding> NoLibrary() {
  const auto library = RegisteredLibrary();
  if (!library) return Finding{State::NotInstalled, NotRegistered};
  const std::string fault = FaultOf(*library);
  return fault.empty() ? std::nullopt : std::optional(Finding{State::Unknown, "cannot be told: " + *library + fault});
}

std::string RegisterForUser() {
  if (!IsForUserOnly() || !IsFile(LibraryBeside())) return "";
  const LSTATUS status = registration::Register(Scope::User, system::Wide(LibraryBeside()));
  return status == ERROR_SUCCESS ? "registered " + LibraryBeside() + " for you" : "";
}

Finding Version() {
  if (const auto none = NoLibrary()) return *none;
  const std::string library = RegisteredLibrary().value_or(""), version = VersionOf(library), own = FORMWIZARD_VERSION;
  if (version == own) return {State::Good, own};
  return {State::Fault,
          library + (version.empty() ? " tells no version" : " is version " + version) + ", this program " + own,
          RegisteringBeside(IsForUserOnly())};
}

}  // namespace formwizard::apps::doctor
