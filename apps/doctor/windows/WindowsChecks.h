// What is looked at on Windows alone.
#pragma once

#include "apps/doctor/Check.h"

#include <optional>
#include <string>

namespace formwizard::apps::doctor {

// The add-in as it is registered (AddInClass).
Finding Registered();
Finding UserClass();
std::string RemoveUserClass();
Finding Library();
std::string RegisterForUser();
Finding Version();
// The library that the environment gets; nothing when none is registered.
std::optional<std::string> RegisteredLibrary();
// Why nothing can be said about that library; nothing when it is one of 32 bits.
std::optional<Finding> NoLibrary();
bool IsForUserOnly();

// The environment's lists of add-ins (AddInLists).
Finding AddInList();
std::string MendList();
Finding ListedOnce();

// Beside the registered library (AddInFiles).
Finding AddInSettings();
Finding AddInLanguages();

// The environment (EnvironmentChecks).
Finding Environment();
Finding Elevation();
bool HasEnvironment();
bool IsElevated(unsigned long process);  // by its id

// What generated forms use (ControlChecks).
Finding CommonControls();
Finding CommonDialog();
Finding QueryControl();

// What only a 32-bit program can try, and what may hang (Trials).
Finding Loading();
Finding Creation();
Finding ServerCreation();

}  // namespace formwizard::apps::doctor
