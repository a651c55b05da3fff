// The open project as automation objects.
#pragma once

#include "adapters/vb6files/ProjectOnDisk.h"
#include "tests/apps/addin-dll/HostObject.h"

namespace formwizard::tests::host {

com::ComPtr<HostObject> NewProject(adapters::vb6files::ProjectOnDisk& project);

}  // namespace formwizard::tests::host
