// Enters the add-in into the system's list of classes and the environment's list of add-ins, and takes it out again.
#pragma once

#include <windows.h>

namespace formwizard::apps::addin {

// For all users where that is allowed, for this user otherwise. SELFREG_E_CLASS when neither can be written.
HRESULT Register();

// Takes out what either kind of registration has entered.
HRESULT Unregister();

}  // namespace formwizard::apps::addin
