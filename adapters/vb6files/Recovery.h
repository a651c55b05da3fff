// What a save that was cut off has left beside the project.
#pragma once

#include "adapters/vb6files/SavePlace.h"
#include "adapters/vb6files/SaveRecord.h"

#include <string>
#include <vector>

namespace formwizard::adapters::vb6files {

// Whoever calls these holds the lock of the project's folder.

// Takes the save of this folder back, or ends it where its last step was done.
void Recover(const SavePlace& place, const std::string& folder);
void RecoverAll(const SavePlace& place);

// Removes what a save that is not done has moved into place. A file that cannot be taken back stays, without anything
// that refers to it; false then. One that was changed since is somebody's.
bool RollBack(const SavePlace& place, const SaveRecord& record);

// Only what was made here, the record first: what has none needs nothing more than to be removed.
void RemoveStaging(const SavePlace& place, const std::string& folder);

}  // namespace formwizard::adapters::vb6files
