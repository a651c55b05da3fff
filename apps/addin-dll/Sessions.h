// The sessions of this process, by environment.
#pragma once

#include "apps/addin-dll/Session.h"

#include <memory>

namespace formwizard::apps::addin {

// The one that lasts in the environment with this root object, or else a new one: two entries in the environment's
// lists make two objects of the add-in, which share the command on its menu.
std::shared_ptr<Session> SessionOf(IDispatch* root);

}  // namespace formwizard::apps::addin
